import QtQuick
import QtQuick.Layouts
import Ornivo

// The header, the cards that there is a reason for, and the footer.
ColumnLayout {
    id: root

    required property AppStore store
    required property Desktop desktop

    spacing: 0

    CardsPresenter {
        id: cards
        store: root.store
    }

    AppHeader {
        Layout.fillWidth: true
        store: root.store
    }

    ScrollColumn {
        id: column
        objectName: "cards"
        Layout.fillWidth: true
        Layout.fillHeight: true

        ModeToggle {
            Layout.fillWidth: true
            store: root.store
        }
        FoldersCard {
            Layout.fillWidth: true
            store: root.store
        }
        CardSlot {
            objectName: "targetSpeciesSlot"
            shown: cards.shown.targetSpecies
            sourceComponent: TargetSpeciesCard {
                id: targets
                store: root.store
                onSuggested: column.show(targets)
            }
        }
        CardSlot {
            objectName: "pausedRunSlot"
            shown: cards.shown.pausedRun
            onLoaded: column.showInstead(this)
            sourceComponent: PausedRunCard { store: root.store }
        }
        CardSlot {
            objectName: "optionsSlot"
            shown: cards.shown.options
            sourceComponent: OptionsCard { store: root.store }
        }
        CardSlot {
            objectName: "progressSlot"
            shown: cards.shown.progress
            onLoaded: column.show(this)
            sourceComponent: ProgressCard { store: root.store }
        }
        CardSlot {
            objectName: "predictionSlot"
            shown: cards.shown.prediction
            onLoaded: column.show(this)
            sourceComponent: PredictionStatusCard { store: root.store }
        }
        CardSlot {
            objectName: "sortResultSlot"
            shown: cards.shown.sortResult
            onLoaded: column.show(this)
            sourceComponent: SortResultCard { store: root.store; desktop: root.desktop }
        }
        CardSlot {
            objectName: "findResultSlot"
            shown: cards.shown.findResult
            onLoaded: column.show(this)
            sourceComponent: FindResultCard { store: root.store; desktop: root.desktop }
        }
        CardSlot {
            objectName: "previewSlot"
            shown: cards.shown.preview
            sourceComponent: PreviewCard { store: root.store }
        }
    }

    AppFooter {
        Layout.fillWidth: true
        store: root.store
    }
}
