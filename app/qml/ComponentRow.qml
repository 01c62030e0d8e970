import QtQuick
import QtQuick.Layouts
import Ornivo

// Something the program is built with: its name and licence, which lead to it, and what it does.
ColumnLayout {
    id: root

    required property var row

    signal clicked

    spacing: 2

    LinkRow {
        id: head

        Layout.fillWidth: true
        row: root.row
        onClicked: root.clicked()

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.small

            Icon {
                symbol: "shipping-box"
                color: Theme.fsAccent
                Layout.alignment: Qt.AlignTop
            }
            FSText {
                text: root.row.name
                Layout.maximumWidth: head.width - Theme.iconSize - Theme.small
                Layout.alignment: Qt.AlignTop
                Accessible.ignored: true
            }
            FSText {
                text: root.row.detail
                color: Theme.fsSubtext
                Layout.fillWidth: true
                Layout.alignment: Qt.AlignTop
                Accessible.ignored: true
            }
        }
    }
    FSText {
        Layout.fillWidth: true
        Layout.leftMargin: Theme.iconSize + Theme.small
        text: root.row.role
        color: Theme.fsSubtext
    }
}
