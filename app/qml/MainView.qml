import QtQuick
import QtQuick.Layouts
import Ornivo

// The header, the cards that there is a reason for, and the footer.
ColumnLayout {
    id: root

    required property AppStore store
    required property Desktop desktop

    // The keyboard goes on when what it was at has gone: in a run to its button Pause, at its end to
    // the button that begins the next, and otherwise to what follows.
    function goOnFrom(left, isMarked) {
        // Until then not all cards have come and gone.
        Qt.callLater(goOn, left, isMarked)
    }
    function goOn(left, isMarked) {
        const next = progress.item ? progress.item.pauseButton
                                   : left === progress ? footer.button
                                                       : left.nextItemInFocusChain()
        // The mark is for those who use the keyboard.
        if (!isMarked && "wasPointedAt" in next) next.wasPointedAt = true
        next.forceActiveFocus(Qt.TabFocusReason)
    }

    spacing: 0
    focus: true
    Keys.forwardTo: [column]

    CardsPresenter {
        id: cards
        store: root.store
    }

    AppHeader {
        Layout.fillWidth: true
        isOverCards: column.contentY > 0
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
            onKeyboardLost: (slot, isMarked) => root.goOnFrom(slot, isMarked)
            sourceComponent: TargetSpeciesCard {
                id: targets
                store: root.store
                onSuggested: column.show(targets)
            }
        }
        CardSlot {
            objectName: "pausedRunSlot"
            shown: cards.shown.pausedRun
            onKeyboardLost: (slot, isMarked) => root.goOnFrom(slot, isMarked)
            onLoaded: column.showInstead(this)
            sourceComponent: PausedRunCard { store: root.store }
        }
        CardSlot {
            objectName: "optionsSlot"
            shown: cards.shown.options
            onKeyboardLost: (slot, isMarked) => root.goOnFrom(slot, isMarked)
            sourceComponent: OptionsCard { store: root.store }
        }
        CardSlot {
            id: progress
            objectName: "progressSlot"
            shown: cards.shown.progress
            onKeyboardLost: (slot, isMarked) => root.goOnFrom(slot, isMarked)
            onLoaded: column.show(this)
            sourceComponent: ProgressCard {
                store: root.store
                room: column.height - 2 * column.padding - column.spacing - prediction.height
            }
        }
        CardSlot {
            id: prediction
            objectName: "predictionSlot"
            shown: cards.shown.prediction
            onLoaded: column.show(this)
            sourceComponent: PredictionStatusCard { store: root.store }
        }
        CardSlot {
            objectName: "sortResultSlot"
            shown: cards.shown.sortResult
            onKeyboardLost: (slot, isMarked) => root.goOnFrom(slot, isMarked)
            onLoaded: column.show(this)
            sourceComponent: SortResultCard { store: root.store; desktop: root.desktop }
        }
        CardSlot {
            objectName: "findResultSlot"
            shown: cards.shown.findResult
            onKeyboardLost: (slot, isMarked) => root.goOnFrom(slot, isMarked)
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
        id: footer
        Layout.fillWidth: true
        store: root.store
        onKeyboardLost: isMarked => root.goOnFrom(footer, isMarked)
    }
}
