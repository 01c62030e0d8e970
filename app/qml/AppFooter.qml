import QtQuick
import QtQuick.Layouts
import Ornivo

// What is going on or what is missing, and the button that does the work.
Item {
    id: root

    required property AppStore store

    implicitHeight: row.implicitHeight + 2 * Theme.medium

    FooterPresenter {
        id: words
        store: root.store
    }

    Rectangle {
        anchors { left: parent.left; right: parent.right; top: parent.top }
        height: 1
        color: Theme.footerEdge
    }
    RowLayout {
        id: row
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.large, Theme.columnWidth)
        spacing: Theme.large

        FSText {
            objectName: "footerStatus"
            text: words.status
            maximumLineCount: 2
            elide: Text.ElideRight
            Layout.fillWidth: true
        }
        PrimaryButton {
            objectName: "primaryButton"
            text: words.label
            enabled: root.store.foldersReady
            keys: "Ctrl+Return"
            Layout.minimumWidth: 160
            onClicked: root.store.tapPrimaryCTA()
        }
    }
}
