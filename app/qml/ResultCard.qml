import QtQuick
import QtQuick.Layouts
import Ornivo

// What a run did. `SortResultCard` and `FindResultCard` are the ones to use.
FSCard {
    id: root

    required property AppStore store
    required property Desktop desktop

    ResultPresenter {
        id: words
        store: root.store
    }

    Repeater {
        model: words.outcome
        delegate: TonedLine {
            required property var modelData
            objectName: "outcomeLine"
            line: modelData
        }
    }
    WarningRows {
        warnings: words.warnings
    }
    Repeater {
        model: words.ending
        delegate: TonedLine {
            required property var modelData
            objectName: "endingLine"
            line: modelData
        }
    }
    RevealButton {
        Layout.topMargin: Theme.small
        url: root.store.sink
        desktop: root.desktop
    }
}
