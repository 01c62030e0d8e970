import QtQuick
import QtQuick.Controls.impl
import QtQuick.Templates as T
import Ornivo

// The one menu, and the keys of what stands in it.
T.MenuBar {
    id: root

    required property UpdaterController updater
    signal aboutWanted
    signal settingsWanted

    implicitHeight: contentHeight + topPadding + bottomPadding
    horizontalPadding: Theme.tiny

    contentItem: Row {
        Repeater { model: root.contentModel }
    }
    background: Rectangle { color: Theme.fsCard }

    delegate: T.MenuBarItem {
        id: title

        implicitWidth: implicitContentWidth + leftPadding + rightPadding
        implicitHeight: implicitContentHeight + topPadding + bottomPadding
        horizontalPadding: Theme.medium
        verticalPadding: Theme.small

        Accessible.name: title.text.replace("&", "")

        // Underlines the letter that opens it.
        contentItem: IconLabel {
            text: title.text
            color: Theme.text
            font.pixelSize: Theme.body
        }
        background: Rectangle {
            color: Theme.text
            opacity: title.down || title.highlighted ? 0.12 : title.hovered ? 0.06 : 0
        }
    }

    Shortcut {
        sequence: "F10"
        autoRepeat: false
        onActivated: root.itemAt(0).triggered()
    }

    FSMenu {
        title: "&Ornivo"
        onAboutToShow: root.updater.refresh()

        T.Action {
            text: "About"
            onTriggered: root.aboutWanted()
        }
        T.Action {
            text: "Check for Updates…"
            enabled: root.updater.canCheckForUpdates
            onTriggered: root.updater.checkForUpdates()
        }
        T.Action {
            text: "Settings…"
            shortcut: "Ctrl+,"
            onTriggered: root.settingsWanted()
        }
        T.MenuSeparator {
            implicitHeight: 1 + 2 * Theme.tiny
            padding: Theme.tiny
            contentItem: Rule {}
        }
        T.Action {
            text: "Quit"
            // Not every desktop has keys of its own for it.
            shortcut: "Ctrl+Q"
            onTriggered: Qt.quit()
        }
    }
}
