import QtQuick
import QtQuick.Layouts
import Ornivo

// A line to name a species in, and under it the species it may be. The arrow keys walk through
// them while one types, Return takes the one reached, and Escape goes back.
ColumnLayout {
    id: root

    required property AppStore store
    signal suggested

    spacing: Theme.small

    function pick(row) {
        search.choose(row)
        field.forceActiveFocus()
    }
    function submit() {
        if (suggestions.currentIndex >= 0) pick(suggestions.currentIndex)
        else store.selectTypedSpecies()
    }
    function goBack() {
        if (suggestions.currentIndex >= 0) suggestions.currentIndex = -1
        else store.speciesQuery = ""
    }

    SpeciesSearch { id: search; store: root.store }

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.small

        FSTextField {
            id: field

            Layout.fillWidth: true
            placeholderText: search.placeholder
            text: root.store.speciesQuery
            onTextEdited: root.store.speciesQuery = text
            onAccepted: root.submit()
            // A suggestion that Tab came by on its way here isn't meant.
            onActiveFocusChanged: if (activeFocus) suggestions.currentIndex = -1
            Accessible.description: suggestions.currentItem ? suggestions.currentItem.commonName : ""
            Keys.onDownPressed: event => event.accepted = suggestions.visible && suggestions.take(event.key)
            Keys.onUpPressed: event => event.accepted = suggestions.visible && suggestions.take(event.key)
            Keys.onEscapePressed: event => {
                event.accepted = length > 0
                root.goBack()
            }
        }
        PrimaryButton {
            text: "Set Target"
            enabled: search.canSetTarget
            onClicked: {
                root.store.selectTypedSpecies()
                field.forceActiveFocus()
            }
        }
    }

    FSList {
        id: suggestions

        objectName: "suggestions"
        Layout.fillWidth: true
        Layout.preferredHeight: Math.min(148, wholeHeight)
        visible: count > 0
        onVisibleChanged: if (visible) root.suggested()
        name: "Suggestions"
        picks: true
        model: search.suggestions
        delegate: SpeciesRow {
            width: ListView.view.width
            picks: true
            isCurrent: ListView.isCurrentItem
            onClicked: root.pick(index)
        }
        onPicked: row => root.pick(row)
        Keys.onEscapePressed: {
            currentIndex = -1
            field.forceActiveFocus()
        }
    }
    Connections {
        target: search.suggestions
        function onModelReset() { suggestions.currentIndex = -1 }
    }
}
