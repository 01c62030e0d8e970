import QtQuick
import Ornivo

// Inside a text that may be cut short: tells all of it while the mouse is over it.
Item {
    id: root

    anchors.fill: parent

    HoverHandler { id: pointer }
    FSToolTip {
        visible: pointer.hovered && root.parent.truncated
        text: root.parent.text
    }
}
