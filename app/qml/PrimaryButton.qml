import QtQuick
import Ornivo

// The one thing to do next.
FSButton {
    fill: Theme.fsAccent
    ink: Theme.fsBlack
    font.weight: Font.DemiBold
}
