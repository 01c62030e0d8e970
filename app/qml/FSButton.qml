import QtQuick
import Ornivo

// What every button shares. `PrimaryButton` and `SecondaryButton` are the ones to use.
Pressable {
    id: root

    // Shown as it stands: what may be the name of a file has no keys marked in it.
    property string text
    // What it does, where its text leaves that open.
    property string description
    // Keys that press it from anywhere in the window, while it can be seen and pressed.
    property string keys
    property color fill: "transparent"
    property color ink: Theme.text
    property color outline: "transparent"
    property real horizontalPadding: Theme.large
    property alias font: label.font

    // The tip says it too.
    hint: keys === "" ? description : (description || text) + " (" + keyNames.nativeText + ")"

    implicitWidth: Math.ceil(label.implicitWidth) + 2 * horizontalPadding
    implicitHeight: Math.max(Theme.controlHeight, label.implicitHeight + 2 * Theme.tiny)
    opacity: enabled ? 1 : Theme.dimmed

    Accessible.role: Accessible.Button
    Accessible.name: root.text || root.description
    // Not the same words twice.
    Accessible.description: Access.description(hint === Accessible.name ? "" : hint, enabled)

    Shortcut {
        id: keyNames
        sequence: root.keys
        autoRepeat: false
        enabled: root.keys !== "" && root.enabled && root.visible
        onActivated: root.press()
    }

    FSToolTip {
        visible: (root.hovered || root.visualFocus) && root.enabled && text !== ""
        text: root.hint
    }

    Rectangle {
        anchors.fill: parent
        color: root.fill
        border { color: root.outline; width: root.outline.a > 0 ? 1 : 0 }
        radius: Theme.radius

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: root.ink
            opacity: root.down ? 0.18 : root.hovered ? 0.08 : 0
            Behavior on opacity { NumberAnimation { duration: Theme.quick } }
        }
        FocusRing { control: root }
    }
    FSText {
        id: label
        anchors.centerIn: parent
        width: Math.min(Math.ceil(implicitWidth), root.width - 2 * root.horizontalPadding)
        text: root.text
        color: root.ink
        wrapMode: Text.NoWrap
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
