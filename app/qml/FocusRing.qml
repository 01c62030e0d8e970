import QtQuick
import Ornivo

// Stands around the control that the keyboard is at.
Rectangle {
    id: root

    required property Item control
    property real gap: 2

    anchors { fill: parent; margins: -gap - border.width }
    visible: control.visualFocus
    color: "transparent"
    border { color: Theme.fsAccent; width: 2 }
    radius: Theme.radius + gap + border.width
    Accessible.ignored: true
}
