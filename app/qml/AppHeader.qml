import QtQuick
import QtQuick.Layouts
import Ornivo

// The program's name, what it promises, and the way to its settings.
Item {
    id: root

    required property AppStore store
    // Whether cards are hidden behind it; then an edge shows where.
    property bool isOverCards: false

    implicitHeight: row.implicitHeight + 2 * Theme.medium

    HeaderPresenter {
        id: words
    }

    Rule {
        objectName: "headerEdge"
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        visible: root.isOverCards
    }
    RowLayout {
        id: row
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.large, Theme.columnWidth)
        spacing: Theme.medium

        ColumnLayout {
            spacing: 0
            FSText {
                text: "Ornivo"
                font { pixelSize: Theme.title; weight: Font.Bold }
                wrapMode: Text.NoWrap
                Accessible.role: Accessible.Heading
            }
            CaptionText {
                objectName: "tagline"
                text: words.tagline
                wrapMode: Text.NoWrap
            }
        }
        Item { Layout.fillWidth: true }
        OnDeviceBadge {}
        IconButton {
            objectName: "settingsButton"
            symbol: "gearshape"
            description: "Settings"
            // The menu has the keys; here they are only told.
            hint: "Settings (Ctrl+,)"
            onClicked: root.store.showingSettings = true
        }
    }
}
