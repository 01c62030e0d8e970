import QtQuick
import Ornivo

// The promise that no photograph leaves the machine.
Rectangle {
    id: root

    implicitWidth: row.implicitWidth + 2 * Theme.small
    implicitHeight: row.implicitHeight + 2 * Theme.tiny
    color: "transparent"
    border.color: Theme.fsBorder
    radius: height / 2

    Accessible.role: Accessible.StaticText
    Accessible.name: label.text

    Row {
        id: row
        anchors.centerIn: parent
        spacing: Theme.tiny

        Icon {
            symbol: "lock-shield"
            size: Math.round(Theme.caption * 1.25)
            anchors.verticalCenter: parent.verticalCenter
        }
        CaptionText {
            id: label
            text: "Identified on-device"
            wrapMode: Text.NoWrap
            anchors.verticalCenter: parent.verticalCenter
            Accessible.ignored: true
        }
    }
}
