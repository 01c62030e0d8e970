import QtQuick
import QtQuick.Layouts
import Ornivo

// A run that a full disk ended, to be gone on with or forgotten.
FSCard {
    id: root

    required property AppStore store

    title: "Paused Run"

    PausedRunPresenter {
        id: words
        store: root.store
    }

    component Detail: RowLayout {
        property alias label: name.text
        property alias value: content.text

        Layout.fillWidth: true
        spacing: Theme.small

        FSText {
            id: name
            objectName: "label"
            color: Theme.fsSubtext
            Layout.preferredWidth: 76
            Layout.maximumWidth: 76
            Layout.alignment: Qt.AlignTop
        }
        FSText {
            id: content
            objectName: "value"
            maximumLineCount: 2
            elide: Text.ElideRight
            Layout.fillWidth: true

            WholeTextTip {}
        }
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.small

        Icon {
            objectName: "pausedSymbol"
            symbol: "pause"
            color: Theme.text
            Layout.alignment: Qt.AlignTop
        }
        FSText {
            objectName: "pausedSummary"
            text: words.text.summary
            font.weight: Font.DemiBold
            Layout.fillWidth: true
        }
    }
    FSText {
        objectName: "pausedExplanation"
        text: words.text.explanation
        color: Theme.fsSubtext
        Layout.fillWidth: true
    }
    Rectangle {
        Layout.fillWidth: true
        implicitHeight: details.implicitHeight + 2 * Theme.medium
        color: Theme.fsBackground
        radius: Theme.radius

        ColumnLayout {
            id: details
            anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.medium }
            spacing: Theme.tiny

            Detail { objectName: "pausedFrom"; label: "From"; value: words.text.from }
            Detail { objectName: "pausedTo"; label: "To"; value: words.text.to }
            Detail { objectName: "pausedCalls"; label: "Calls"; value: words.text.calls }
            Detail { objectName: "pausedDone"; label: "Done so far"; value: words.text.doneSoFar }
        }
    }
    FSText {
        objectName: "pausedMismatch"
        visible: text !== ""
        text: words.text.mismatch
        color: Theme.fsWarn
        Layout.fillWidth: true
    }
    RowLayout {
        Layout.topMargin: Theme.tiny
        spacing: Theme.small

        PrimaryButton {
            objectName: "resumeButton"
            text: "Resume sorting"
            enabled: root.store.jobState !== AppStore.Running
            onClicked: root.store.resumePausedRun()
        }
        SecondaryButton {
            objectName: "discardButton"
            text: "Discard"
            description: "Forgets this run; what is sorted stays"
            ink: Theme.fsSubtext
            onClicked: root.store.discardPausedRun()
        }
    }
}
