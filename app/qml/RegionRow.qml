import QtQuick
import QtQuick.Layouts
import Ornivo

// A region to choose, with the countries it lies in.
Pressable {
    id: root

    required property string label
    // The countries.
    required hint
    required property int index
    required property bool chosen
    required property bool isCurrent

    implicitHeight: Theme.controlHeight
    takesKeyboard: false

    Accessible.role: Accessible.RadioButton
    Accessible.name: root.label
    Accessible.checkable: true
    Accessible.checked: root.chosen
    Accessible.selected: root.isCurrent
    Accessible.onToggleAction: root.press()

    FSToolTip {
        visible: root.hovered && hintText.truncated
        text: root.hint
    }

    Rectangle {
        anchors.fill: parent
        color: root.isCurrent ? Theme.fsAccent : Theme.text
        opacity: root.isCurrent ? 0.16 : root.down ? 0.1 : root.hovered ? 0.05 : 0
        radius: Theme.radius
    }
    RowLayout {
        id: row
        anchors { fill: parent; leftMargin: Theme.small; rightMargin: Theme.small }
        spacing: Theme.small

        Icon {
            symbol: root.chosen ? "circle-fill" : "circle"
            color: root.chosen ? Theme.fsAccent : Theme.fsSubtext
        }
        FSText {
            text: root.label
            wrapMode: Text.NoWrap
            elide: Text.ElideRight
            Layout.maximumWidth: row.width - Theme.iconSize - Theme.small
            Accessible.ignored: true
        }
        FSText {
            id: hintText
            text: root.hint
            color: Theme.fsSubtext
            wrapMode: Text.NoWrap
            elide: Text.ElideRight
            Layout.fillWidth: true
            Accessible.ignored: true
        }
    }
}
