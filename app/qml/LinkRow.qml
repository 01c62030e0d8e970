import QtQuick
import QtQuick.Templates as T
import Ornivo

// A row that opens an address where it has one, and is plain text where not.
T.AbstractButton {
    id: root

    required property var row
    readonly property bool leads: row.url.toString() !== ""

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    verticalPadding: Theme.tiny
    enabled: leads
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true

    Accessible.role: leads ? Accessible.Link : Accessible.StaticText
    Accessible.name: root.row.name
    Accessible.description: root.row.detail

    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    HoverHandler { cursorShape: root.leads ? Qt.PointingHandCursor : Qt.ArrowCursor }
    FSToolTip {
        visible: root.leads && (root.hovered || root.visualFocus)
        text: root.row.url
    }

    background: Rectangle {
        color: Theme.text
        opacity: root.down ? 0.08 : root.hovered && root.leads ? 0.04 : 0
        radius: Theme.radius
    }
    FocusRing { control: root; gap: 0 }
}
