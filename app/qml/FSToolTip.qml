import QtQuick
import QtQuick.Controls.Basic
import Ornivo

// What a control does, and the keys that do it.
ToolTip {
    id: root

    delay: 600
    padding: Theme.small
    contentItem: CaptionText {
        text: root.text
        color: Theme.text
        Accessible.ignored: true
    }
    background: Rectangle {
        color: Theme.fsCard
        border.color: Theme.fsBorder
        radius: Theme.radius
    }
    enter: Transition {}
    exit: Transition {}
}
