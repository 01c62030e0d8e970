import QtQuick
import QtQuick.Layouts
import Ornivo

// Files what was decided in the review page and copied there.
FSCard {
    id: root

    required property AppStore store
    required property bool hasSink
    // How decisions come from the review page.
    required property string note

    // There may be something new to read.
    signal answered

    title: "Reviewed decisions"
    spacing: Theme.medium

    DecisionFiler {
        id: filer
        store: root.store
        onChanged: root.answered()
    }

    NoteRow {
        symbol: "list-rectangle"
        text: root.note
    }
    FSText {
        objectName: "sinkNeeded"
        Layout.fillWidth: true
        visible: !root.hasSink
        text: "Choose a sorted folder first — that is where the photos will be filed."
        color: Theme.fsSubtext
    }
    PrimaryButton {
        visible: root.hasSink
        enabled: !root.store.isFilingDecisions
        text: "Paste decisions and file them"
        // What became of the last paste is said where the keyboard is.
        Accessible.description: filer.note
        onClicked: filer.fileClipboard()
    }
    FSText {
        objectName: "applyNote"
        Layout.fillWidth: true
        visible: text !== ""
        text: filer.note
        color: filer.isSuccess ? Theme.fsAccent : Theme.fsWarn
    }
}
