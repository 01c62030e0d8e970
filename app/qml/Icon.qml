import QtQuick
import QtQuick.Controls.impl
import Ornivo

// One of the drawings in `icons`, in any colour. It is drawn at the size it has on the screen, so
// it is sharp at every scale. What it says is said in words beside it.
IconImage {
    id: root

    required property string symbol
    property real size: Theme.iconSize

    source: Qt.resolvedUrl("icons/" + symbol + ".svg")
    color: Theme.fsSubtext
    sourceSize: Qt.size(size, size)
    width: size
    height: size
    Accessible.ignored: true
}
