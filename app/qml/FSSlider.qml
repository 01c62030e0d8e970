import QtQuick
import QtQuick.Templates as T
import Ornivo

// A slider over whole numbers. It stands at `shown`; where the user wants it to be comes as `asked`,
// by pointer, keys or screen reader alike.
T.Slider {
    id: root

    required property real shown
    signal asked(int value)

    implicitWidth: 200
    implicitHeight: Theme.controlHeight
    value: shown
    stepSize: 1
    snapMode: T.Slider.SnapAlways
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.dimmed
    onValueChanged: {
        if (value === shown) return
        asked(Math.round(value))
        // Whatever came of it.
        value = Qt.binding(() => root.shown)
    }

    Accessible.role: Accessible.Slider

    // The ends of the scale, as the arrow keys take the steps between.
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End
        if (event.accepted) asked(event.key === Qt.Key_Home ? from : to)
    }

    background: Rectangle {
        x: root.leftPadding
        y: root.topPadding + (root.availableHeight - height) / 2
        width: root.availableWidth
        height: 4
        radius: 2
        color: Theme.fsBorder

        Rectangle {
            width: handle.x + handle.width / 2 - parent.x
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
