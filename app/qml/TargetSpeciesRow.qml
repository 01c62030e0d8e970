import QtQuick
import QtQuick.Layouts
import Ornivo

// A chosen species, and what takes it away again.
RowLayout {
    id: root

    required property string speciesID
    required property string commonName
    required property string scientificName
    // A `SpeciesMark`: whether it is known.
    required property var mark

    signal removeWanted

    spacing: Theme.small

    Icon {
        objectName: "mark"
        symbol: root.mark.symbol
        color: Theme.colourOf(root.mark.tone)
    }
    FSText {
        text: root.commonName
        wrapMode: Text.NoWrap
        elide: Text.ElideRight
        Layout.fillWidth: true
        Layout.maximumWidth: Math.ceil(implicitWidth)
    }
    FSText {
        text: root.scientificName
        color: Theme.fsSubtext
        font.italic: true
        wrapMode: Text.NoWrap
        elide: Text.ElideRight
        Layout.fillWidth: true
        Layout.maximumWidth: Math.ceil(implicitWidth)
    }
    Item { Layout.fillWidth: true }
    IconButton {
        symbol: "xmark"
        description: "Remove " + (root.commonName || root.scientificName)
        onClicked: {
            // The keyboard goes on from here; it would be lost with the row.
            if (activeFocus) nextItemInFocusChain().forceActiveFocus(Qt.TabFocusReason)
            root.removeWanted()
        }
    }
}
