import QtQuick
import Ornivo

// The square mark of every box that can be ticked.
Item {
    id: root

    required property bool on

    implicitWidth: Theme.iconSize
    implicitHeight: Theme.iconSize

    Icon {
        anchors.fill: parent
        symbol: root.on ? "checkmark-square-fill" : "square"
        color: root.on ? Theme.fsAccent : Theme.fsSubtext
    }
}
