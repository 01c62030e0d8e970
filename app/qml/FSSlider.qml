import QtQuick
import QtQuick.Templates as T
import Ornivo

// A slider over whole numbers.
T.Slider {
    id: root

    implicitWidth: 200
    implicitHeight: Theme.controlHeight
    stepSize: 1
    snapMode: T.Slider.SnapAlways
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.dimmed

    Accessible.role: Accessible.Slider

    // The ends of the scale, as the arrow keys take the steps between.
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Home && event.key !== Qt.Key_End) return
        value = event.key === Qt.Key_Home ? from : to
        moved()
        event.accepted = true
    }

    background: Rectangle {
        x: root.leftPadding + handle.width / 2
        y: root.topPadding + (root.availableHeight - height) / 2
        width: root.availableWidth - handle.width
        height: 4
        radius: 2
        color: Theme.fsBorder

        Rectangle {
            width: root.visualPosition * parent.width
            height: parent.height
            radius: parent.radius
            color: Theme.fsAccent
        }
    }
    handle: Rectangle {
        id: handle
        x: root.leftPadding + root.visualPosition * (root.availableWidth - width)
        y: root.topPadding + (root.availableHeight - height) / 2
        width: Theme.iconSize
        height: width
        radius: width / 2
        color: root.pressed || root.hovered ? Qt.lighter(Theme.fsAccent, 1.1) : Theme.fsAccent

        FocusRing { control: root; radius: width / 2 }
    }
}
