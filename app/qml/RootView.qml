import QtQuick
import Ornivo

// What fills the window: the cards, and over them the settings as a sheet.
Rectangle {
    id: root

    required property AppStore store
    required property Desktop desktop

    implicitWidth: Theme.columnWidth + 2 * Theme.large
    implicitHeight: cards.implicitHeight
    color: Theme.fsBackground

    MainView {
        id: cards
        anchors.fill: parent
        store: root.store
        desktop: root.desktop
    }
    Loader {
        active: root.store.showingSettings
        sourceComponent: SettingsView {
            store: root.store
            onClosed: root.store.showingSettings = false
        }
    }
}
