import QtQuick
import QtQuick.Layouts
import Ornivo

// How the next run files photographs.
FSCard {
    id: root

    required property AppStore store

    title: "Options"

    OptionsPresenter { id: options; store: root.store }

    RadioRow {
        Layout.fillWidth: true
        text: "Keep originals"
        hint: "— copies files, source untouched"
        on: options.keepsOriginals
        onClicked: options.keepOriginals()
    }
    RadioRow {
        Layout.fillWidth: true
        text: "Move originals to the Trash after sorting"
        on: !options.keepsOriginals
        onClicked: options.trashOriginals()
    }
    FSText {
        objectName: "originalsNote"
        Layout.fillWidth: true
        visible: text !== ""
        text: options.originalsNote
        color: Theme.fsWarn
    }

    ColumnLayout {
        objectName: "naming"
        Layout.fillWidth: true
        visible: options.showsNaming
        spacing: Theme.small

        Rule {}
        CheckRow {
            Layout.fillWidth: true
            text: "Rename files by species"
            hint: "— CommonName_001.jpg"
            on: root.store.rename
            onFlipped: on => root.store.rename = on
        }
        CheckRow {
            Layout.fillWidth: true
            text: "Create date subfolders"
            hint: "— /Species/YYYY-MM-DD/"
            on: root.store.dateSubfolders
            onFlipped: on => root.store.dateSubfolders = on
        }
    }

    Rule {}
    CallLevelPicker {
        Layout.fillWidth: true
        store: root.store
        options: options
    }
}
