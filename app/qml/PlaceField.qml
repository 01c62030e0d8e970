import QtQuick
import QtQuick.Layouts
import Ornivo

// Names a region by a place in it.
ColumnLayout {
    id: root

    required property AppStore store

    // There may be something new to read.
    signal answered

    spacing: Theme.small

    PlaceLookup {
        id: place
        store: root.store
        onResolved: root.answered()
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.small

        Icon { symbol: "magnifying-glass" }
        FSTextField {
            objectName: "placeField"
            Layout.fillWidth: true
            placeholderText: "or type a place — Kerala, Ladakh, Bangalore…"
            text: place.query
            onTextEdited: place.query = text
            onAccepted: place.resolve()
            Accessible.description: place.note
        }
        SecondaryButton {
            text: "Use"
            visible: place.query !== ""
            onClicked: place.resolve()
        }
    }
    FSText {
        objectName: "placeNote"
        Layout.fillWidth: true
        visible: text !== ""
        text: place.note
        color: place.isResolved ? Theme.fsAccent : Theme.fsWarn
    }
}
