import QtQuick
import QtQuick.Controls.Basic
import Ornivo

// The window: its menu, its dialogs, and what is dropped on it. What it shows is MainView's.
ApplicationWindow {
    id: root

    required property AppStore store
    required property UpdaterController updater
    required property Desktop desktop

    title: "Ornivo"
    visible: true
    minimumWidth: 720
    minimumHeight: 560
    width: Math.max(minimumWidth, view.implicitWidth)
    height: Math.max(minimumHeight, 760)
    // The one grey of everything behind the cards.
    color: Qt.rgba(0.059, 0.059, 0.059, 1)
    palette {
        window: Qt.rgba(0.094, 0.094, 0.094, 1)
        windowText: "white"
        base: Qt.rgba(0.094, 0.094, 0.094, 1)
        text: "white"
        button: Qt.rgba(0.094, 0.094, 0.094, 1)
        buttonText: "white"
        light: Qt.rgba(0.165, 0.165, 0.165, 1)
        midlight: Qt.rgba(0.165, 0.165, 0.165, 1)
        mid: Qt.rgba(0.165, 0.165, 0.165, 1)
        dark: Qt.rgba(0.55, 0.55, 0.55, 1)
        highlight: Qt.rgba(0.784, 0.941, 0.376, 1)
        highlightedText: Qt.rgba(0.05, 0.05, 0.05, 1)
    }

    menuBar: AppMenuBar {
        updater: root.updater
        onAboutWanted: about.show()
        onSettingsWanted: root.store.showingSettings = true
    }

    RootView {
        id: view
        anchors.fill: parent
        store: root.store
        desktop: root.desktop
    }

    DropArea {
        anchors.fill: parent
        keys: ["text/uri-list"]
        onDropped: drop => root.store.takeDropped(drop.urls)
    }

    // Both are made when they are first needed: a start must not wait for them.
    FolderPicker {
        id: picker
        onSourceChosen: folder => root.store.chooseSource(folder)
        onSinkChosen: folder => root.store.chooseSink(folder)
    }
    Connections {
        target: root.store
        function onPickingSourceChanged() {
            if (!root.store.pickingSource) return
            root.store.pickingSource = false
            picker.pickSource()
        }
        function onPickingSinkChanged() {
            if (!root.store.pickingSink) return
            root.store.pickingSink = false
            picker.pickSink()
        }
    }

    Loader {
        id: about
        active: false
        function show() {
            active = true
            item.open()
        }
        sourceComponent: AboutDialog { version: root.store.version }
    }
}
