import QtQuick
import QtQuick.Layouts
import Ornivo

// A row with a mark that says whether it holds, a title, and perhaps a hint. `RadioRow` and
// `CheckRow` are the ones to use.
Pressable {
    id: root

    property string text
    property bool on
    required property Component mark

    implicitWidth: row.implicitWidth
    implicitHeight: row.implicitHeight + 2 * Theme.tiny
    opacity: enabled ? 1 : Theme.dimmed

    Accessible.name: root.text
    Accessible.checkable: true
    Accessible.checked: root.on
    Accessible.onToggleAction: root.press()

    Rectangle {
        anchors.fill: parent
        color: Theme.text
        opacity: root.down ? 0.08 : root.hovered ? 0.04 : 0
        radius: Theme.radius
    }
    RowLayout {
        id: row
        anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter }
        spacing: Theme.small

        Loader {
            sourceComponent: root.mark
            Layout.alignment: Qt.AlignTop
        }
        FSText {
            text: root.text
            Layout.maximumWidth: root.width - Theme.iconSize - Theme.small
            Layout.alignment: Qt.AlignTop
            Accessible.ignored: true
        }
        FSText {
            text: root.hint
            color: Theme.fsSubtext
            Layout.fillWidth: true
            Layout.alignment: Qt.AlignTop
            Accessible.ignored: true
        }
    }

    FocusRing { control: root; gap: 0 }
}
