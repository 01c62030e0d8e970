import QtQuick
import QtQuick.Dialogs

// The desktop's own chooser of folders. An answer of nothing is no answer.
Loader {
    id: root

    signal sourceChosen(url folder)
    signal sinkChosen(url folder)

    function pickSource() { ask(root.sourceChosen) }
    function pickSink() { ask(root.sinkChosen) }

    function ask(answer) {
        active = true
        // The window may still be used: a second question must not take the first one's answer.
        if (item.visible) return
        item.answer = answer
        item.open()
    }

    active: false
    sourceComponent: FolderDialog {
        property var answer

        title: "Choose a folder"
        acceptLabel: "Select"
        onAccepted: answer(selectedFolder)
    }
}
