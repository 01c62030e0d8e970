import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Ornivo

// A species in a list: its common name, and its scientific one behind it.
T.AbstractButton {
    id: root

    required property string commonName
    required property string scientificName
    required property int index
    property bool isCurrent: false
    property bool picks: false

    implicitHeight: Theme.controlHeight
    horizontalPadding: Theme.small
    focusPolicy: Qt.NoFocus
    activeFocusOnTab: false
    hoverEnabled: picks

    Accessible.role: Accessible.ListItem
    Accessible.name: root.commonName
    Accessible.description: root.scientificName
    Accessible.selected: root.isCurrent

    contentItem: RowLayout {
        spacing: Theme.small

        FSText {
            text: root.commonName
            wrapMode: Text.NoWrap
            elide: Text.ElideRight
            Layout.maximumWidth: root.availableWidth
            Accessible.ignored: true
        }
        FSText {
            text: root.scientificName
            color: Theme.fsSubtext
            wrapMode: Text.NoWrap
            elide: Text.ElideRight
            Layout.fillWidth: true
            Accessible.ignored: true
        }
    }
    background: Rectangle {
        color: root.isCurrent ? Theme.fsAccent : Theme.text
        opacity: root.isCurrent ? 0.16 : !root.picks ? 0 : root.down ? 0.1 : root.hovered ? 0.05 : 0
        radius: Theme.radius
    }
}
