import QtQuick
import Ornivo

// A smaller text that says more about something.
FSText {
    font.pixelSize: Theme.caption
    color: Theme.fsSubtext
}
