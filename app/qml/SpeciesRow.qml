import QtQuick
import QtQuick.Layouts
import Ornivo

// A species in a list: its common name, and its scientific one behind it.
Pressable {
    id: root

    required property string commonName
    required property string scientificName
    required property int index
    property bool isCurrent: false
    property bool picks: false

    implicitHeight: Theme.controlHeight
    hint: scientificName
    takesKeyboard: false

    Accessible.role: Accessible.ListItem
    Accessible.name: root.commonName
    Accessible.selected: root.isCurrent

    Rectangle {
        anchors.fill: parent
        color: root.isCurrent ? Theme.fsAccent : Theme.text
        opacity: root.isCurrent ? 0.16 : !root.picks ? 0 : root.down ? 0.1 : root.hovered ? 0.05 : 0
        radius: Theme.radius
    }
    RowLayout {
        id: row
        anchors { fill: parent; leftMargin: Theme.small; rightMargin: Theme.small }
        spacing: Theme.small

        FSText {
            text: root.commonName
            wrapMode: Text.NoWrap
            elide: Text.ElideRight
            Layout.maximumWidth: row.width
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
}
