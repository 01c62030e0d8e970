import QtQuick
import QtQuick.Templates as T
import Ornivo

// Shows where in something long one is, and gets one elsewhere.
T.ScrollBar {
    id: root

    implicitWidth: 10
    implicitHeight: 10
    padding: 2
    minimumSize: Math.min(1, 24 / Math.max(1, height))
    visible: size < 1
    Accessible.ignored: true

    contentItem: Rectangle {
        radius: width / 2
        color: Theme.fsSubtext
        opacity: root.pressed ? 0.9 : root.hovered ? 0.7 : 0.45
    }
}
