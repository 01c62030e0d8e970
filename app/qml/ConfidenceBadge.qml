import QtQuick
import Ornivo

// How sure an identification is.
Rectangle {
    id: root

    // A `TonedText`; without words there is no badge.
    required property var grade

    implicitWidth: label.implicitWidth + 2 * Theme.medium
    implicitHeight: label.implicitHeight + 2 * Theme.tiny
    visible: label.text !== ""
    color: "transparent"
    border.color: label.color
    radius: height / 2

    CaptionText {
        id: label
        anchors.centerIn: parent
        text: root.grade.text
        color: Theme.colourOf(root.grade.tone)
        font.weight: Font.DemiBold
        wrapMode: Text.NoWrap
    }
}
