import QtQuick
import QtQuick.Layouts
import Ornivo

// A `TonedText` in its colour; nothing at all when it is empty.
FSText {
    required property var line

    Layout.fillWidth: true
    visible: text !== ""
    text: line?.text ?? ""
    color: Theme.colourOf(line?.tone)
}
