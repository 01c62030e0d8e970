import QtQuick
import QtQuick.Layouts
import Ornivo

// Where the photographs were taken, how far bursts may lend confidence, what was decided in the
// review page, and what to know about the birds that are known.
Sheet {
    id: root

    required property AppStore store
    property bool showingCredits: false

    title: "Settings"

    SettingsPresenter { id: settings; store: root.store }

    FSCard {
        title: "On-device identification"
        spacing: Theme.medium
        Layout.fillWidth: true

        NoteRow {
            objectName: "modelNote"
            symbol: "cpu"
            text: settings.modelNote
        }
        NoteRow {
            symbol: "lock-shield"
            text: "Photos stay on this device during identification."
        }
        Rule {}
        SpeciesCoverageCheck { Layout.fillWidth: true }
    }
    ReviewApply {
        id: reviewApply
        Layout.fillWidth: true
        onAnswered: root.show(reviewApply)
        store: root.store
        hasSink: settings.hasSink
        note: settings.reviewNote
    }
    BurstPicker {
        Layout.fillWidth: true
        settings: settings
    }
    RegionPicker {
        id: regionPicker
        Layout.fillWidth: true
        onAnswered: root.show(regionPicker)
        store: root.store
        explanation: settings.regionExplanation
    }
    FSCard {
        title: "Credits"
        spacing: Theme.medium
        Layout.fillWidth: true

        NoteRow {
            symbol: "heart"
            text: "Trained on openly licensed photographs contributed by naturalists worldwide."
        }
        SecondaryButton {
            text: "Who made this possible"
            onClicked: root.showingCredits = true
        }
    }

    Loader {
        active: root.showingCredits
        visible: false
        sourceComponent: CreditsView { onClosed: root.showingCredits = false }
    }
}
