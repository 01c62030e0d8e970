import QtQuick
import QtQuick.Layouts
import Ornivo

// A row that opens an address where it has one, and is plain text where not. What stands inside
// the braces is what it shows.
Pressable {
    id: root

    required property var row
    readonly property bool leads: row.url.toString() !== ""
    default property alias content: column.data

    implicitWidth: column.implicitWidth
    implicitHeight: column.implicitHeight + 2 * Theme.tiny
    enabled: leads
    takesKeyboard: leads
    cursorShape: leads ? Qt.PointingHandCursor : Qt.ArrowCursor

    Accessible.role: leads ? Accessible.Link : Accessible.StaticText
    Accessible.name: root.row.name
    // A text that leads nowhere isn't a link out of order.
    Accessible.description: root.row.detail

    FSToolTip {
        visible: root.leads && (root.hovered || root.visualFocus)
        text: root.row.url
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.text
        opacity: root.down ? 0.08 : root.hovered && root.leads ? 0.04 : 0
        radius: Theme.radius
    }
    ColumnLayout {
        id: column
        anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter }
    }
    FocusRing { control: root; gap: 0 }
}
