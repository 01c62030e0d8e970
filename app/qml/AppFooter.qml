import QtQuick
import QtQuick.Layouts
import Ornivo

// What is going on or what is missing, and the button that does the work.
Item {
    id: root

    required property AppStore store
    readonly property alias button: button

    // The button was pressed with the keyboard at it, and can't have it any more; `isMarked` if that
    // could be seen.
    signal keyboardLost(bool isMarked)

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
            id: button
            objectName: "primaryButton"
            text: words.label
            enabled: root.store.foldersReady
            keys: "Ctrl+Return"
            Layout.minimumWidth: 160
            onClicked: {
                const hadKeyboard = activeFocus
                const wasMarked = visualFocus
                root.store.tapPrimaryCTA()
                if (!hadKeyboard || activeFocus) return
                // Else it would take the keyboard back as soon as it can be pressed again.
                focus = false
                root.keyboardLost(wasMarked)
            }
        }
    }
}
