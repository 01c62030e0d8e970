import QtQuick
import QtQuick.Layouts
import Ornivo

// The species that Find looks for.
FSCard {
    id: root

    required property AppStore store
    // Suggestions stand under what is being typed.
    signal suggested

    title: "Target Species"

    TargetSpeciesPresenter { id: targets; store: root.store }

    Repeater {
        model: targets.species

        TargetSpeciesRow {
            Layout.fillWidth: true
            onRemoveWanted: root.store.removeSpecies(speciesID)
        }
    }
    SymbolText {
        objectName: "unrecognised"
        Layout.fillWidth: true
        visible: text !== ""
        symbol: "warning-triangle"
        text: targets.unrecognisedMessage
        color: Theme.fsWarn
    }
    SpeciesSearchField {
        Layout.fillWidth: true
        store: root.store
        onSuggested: root.suggested()
    }
}
