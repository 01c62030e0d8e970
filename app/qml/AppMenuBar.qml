import QtQuick
import QtQuick.Controls.Basic
import Ornivo

MenuBar {
    id: root

    required property UpdaterController updater
    signal aboutWanted
    signal settingsWanted

    Menu {
        title: qsTr("Ornivo")
        onAboutToShow: root.updater.refresh()

        Action {
            text: qsTr("About")
            onTriggered: root.aboutWanted()
        }
        Action {
            text: qsTr("Check for Updates…")
            enabled: root.updater.canCheckForUpdates
            onTriggered: root.updater.checkForUpdates()
        }
        Action {
            text: qsTr("Settings…")
            shortcut: "Ctrl+,"
            onTriggered: root.settingsWanted()
        }
        MenuSeparator {}
        Action {
            text: qsTr("Quit")
            shortcut: StandardKey.Quit
            onTriggered: Qt.quit()
        }
    }
}
