import QtQuick
import Ornivo

// Whatever is pressed as a whole: with the pointer, with Return or Space, or through a screen
// reader. It stands on a plain item, as the roles of Qt's buttons can't be changed.
Item {
    id: root

    // Told to those who hear the screen, after the name.
    property string hint
    // Whether Tab comes to it. The rows of a list leave the keyboard to the list.
    property bool takesKeyboard: true
    property alias cursorShape: pointer.cursorShape

    readonly property alias hovered: pointer.containsMouse
    readonly property alias down: pointer.containsPress
    // Whether the keyboard is at it, and wasn't brought there by the pointer.
    readonly property bool visualFocus: activeFocus && !wasPointedAt
    property bool wasPointedAt: false

    signal clicked

    // What a user does; nothing while it is disabled.
    function press() { if (enabled) clicked() }

    activeFocusOnTab: takesKeyboard
    onFocusChanged: if (!focus) wasPointedAt = false

    Accessible.description: Access.description(root.hint, root.enabled)
    Accessible.focusable: root.takesKeyboard
    Accessible.onPressAction: root.press()

    // However long a key is held, it presses once.
    Keys.onPressed: event => {
        event.accepted = Access.presses(event)
        if (event.accepted && !event.isAutoRepeat) root.press()
    }

    MouseArea {
        id: pointer
        anchors.fill: parent
        hoverEnabled: true
        onPressed: {
            if (!root.takesKeyboard) return
            root.wasPointedAt = true
            root.forceActiveFocus(Qt.MouseFocusReason)
        }
        onClicked: root.press()
    }
}
