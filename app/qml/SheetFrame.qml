import QtQuick
import QtQuick.Templates as T
import Ornivo

// What lies over the window until it is dismissed. `Sheet` is the one that scrolls.
T.Popup {
    id: root

    required property string title

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    modal: true
    focus: true

    background: Rectangle {
        color: Theme.fsBackground
        border.color: Theme.fsBorder
        radius: Theme.cardRadius
    }
    T.Overlay.modal: Rectangle { color: Theme.scrim }

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.calm }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; from: 1; to: 0; duration: Theme.quick }
    }
}
