import QtQuick
import QtQuick.Controls.impl
import QtQuick.Templates as T
import Ornivo

// What every button shares. `PrimaryButton` and `SecondaryButton` are the ones to use.
T.Button {
    id: root

    // What it does, where its text leaves that open.
    property string description
    // Keys that press it from anywhere in the window, while it can be seen and pressed.
    property string keys
    property color fill: "transparent"
    property color ink: Theme.text
    property color outline: "transparent"

    // Told by the tip and to those who hear the screen.
    property string hint:
        keys === "" ? description : (description || text) + " (" + keyNames.nativeText + ")"

    implicitWidth: Math.max(implicitBackgroundWidth, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(Theme.controlHeight, implicitContentHeight + topPadding + bottomPadding)
    horizontalPadding: Theme.large
    verticalPadding: Theme.tiny
    spacing: Theme.small
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.dimmed
    font.pixelSize: Theme.body
    icon { width: Theme.iconSize; height: Theme.iconSize; color: root.ink }

    Accessible.role: Accessible.Button
    Accessible.name: root.text || root.description
    Accessible.description: root.hint

    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    Shortcut {
        id: keyNames
        sequence: root.keys
        enabled: root.keys !== "" && root.enabled && root.visible
        onActivated: root.clicked()
    }

    FSToolTip {
        visible: (root.hovered || root.visualFocus) && root.enabled && text !== ""
        text: root.hint
    }

    contentItem: IconLabel {
        text: root.text
        icon: root.icon
        font: root.font
        color: root.ink
        spacing: root.spacing
        display: root.display
        mirrored: root.mirrored
    }

    background: Rectangle {
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
}
