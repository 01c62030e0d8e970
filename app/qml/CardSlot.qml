import QtQuick
import QtQuick.Layouts
import Ornivo

// The place of a card, which is there only while it is shown.
Loader {
    id: root

    required property bool shown

    Layout.fillWidth: true
    active: shown
    visible: active
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
