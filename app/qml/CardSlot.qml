import QtQuick
import QtQuick.Layouts
import Ornivo

// The place of a card, which is there only while it is shown.
Loader {
    id: root

    required property bool shown

    // The card has gone, and the keyboard was at it; `isMarked` if that could be seen.
    signal keyboardLost(Item slot, bool isMarked)

    Layout.fillWidth: true
    active: false
    visible: active
    // No binding: where the keyboard is must be known before the card goes.
    onShownChanged: {
        const at = activeFocus ? Window.activeFocusItem : null
        active = shown
        if (at && !shown) keyboardLost(root, !(at.wasPointedAt ?? false))
    }
    Component.onCompleted: active = shown
    onLoaded: arrival.start()

    NumberAnimation {
        id: arrival
        target: root.item
        property: "opacity"
        from: 0
        to: 1
        duration: Theme.calm
        easing.type: Easing.OutCubic
    }
}
