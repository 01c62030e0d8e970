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
    height: minimumHeight
    // Once: what comes later must not change the window under the user's hands.
    Component.onCompleted: {
        const wanted = view.implicitHeight + (menuBar?.height ?? 0)
        height = Math.max(minimumHeight, Math.min(wanted, Math.floor(Screen.height * 0.9)))
    }
    color: Theme.fsBackground
    // For what Qt itself draws, as the chooser of folders where the desktop has none.
    palette {
        window: Theme.fsCard
        windowText: Theme.text
        base: Theme.fsCard
        text: Theme.text
        button: Theme.fsCard
        buttonText: Theme.text
        light: Theme.fsBorder
        midlight: Theme.fsBorder
        mid: Theme.fsBorder
        dark: Theme.fsSubtext
        highlight: Theme.fsAccent
        highlightedText: Theme.fsBlack
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
