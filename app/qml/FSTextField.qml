import QtQuick
import QtQuick.Templates as T
import Ornivo

// A line to type in.
T.TextField {
    id: root

    readonly property bool visualFocus: activeFocus

    implicitWidth: 240
    implicitHeight: Math.max(Theme.controlHeight, contentHeight + topPadding + bottomPadding)
    leftPadding: Theme.medium
    rightPadding: Theme.medium
    verticalAlignment: TextInput.AlignVCenter
    selectByMouse: true
    color: Theme.text
    placeholderTextColor: Theme.fsSubtext
    selectionColor: Theme.fsAccent
    selectedTextColor: Theme.fsBlack
    font.pixelSize: Theme.body
    opacity: enabled ? 1 : Theme.dimmed

    Accessible.role: Accessible.EditableText
    Accessible.name: root.placeholderText

    FSText {
        anchors { fill: parent; leftMargin: root.leftPadding; rightMargin: root.rightPadding }
        visible: root.length === 0 && root.preeditText === ""
        text: root.placeholderText
        color: root.placeholderTextColor
        elide: Text.ElideRight
        wrapMode: Text.NoWrap
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    background: Rectangle {
        color: Theme.fsBackground
        border.color: Theme.fsBorder
        radius: Theme.radius
        FocusRing { control: root; gap: 0 }
    }
}
