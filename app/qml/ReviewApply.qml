import QtQuick
import QtQuick.Layouts
import Ornivo

// Files what was decided in the review page and copied there.
FSCard {
    id: root

    required property AppStore store
    required property bool hasSink

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
        text: "Open _Uncertain/review.html, decide what the photos are, then press Copy decisions "
              + "there and Paste here."
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
        enabled: !filer.isFiling
        text: "Paste decisions and file them"
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
