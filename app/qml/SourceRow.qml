import QtQuick
import QtQuick.Layouts
import Ornivo

// A source of photographs, and how many came from it.
LinkRow {
    id: root

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.small

        Icon {
            symbol: "photo-stack"
            color: Theme.fsAccent
            Layout.alignment: Qt.AlignTop
        }
        ColumnLayout {
            spacing: 2

            FSText {
                Layout.fillWidth: true
                text: root.row.name
                Accessible.ignored: true
            }
            FSText {
                Layout.fillWidth: true
                text: root.row.detail
                color: Theme.fsSubtext
                Accessible.ignored: true
            }
        }
    }
}
