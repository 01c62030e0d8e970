import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Ornivo

// An entry of a menu, with its keys at the end of the line.
T.MenuItem {
    id: root

    implicitHeight: Theme.controlHeight
    horizontalPadding: Theme.medium
    opacity: enabled ? 1 : Theme.dimmed

    Accessible.name: root.text
    Accessible.description: Access.description(keyNames.nativeText, root.enabled)

    // The action has the keys; here they are only told.
    Shortcut {
        id: keyNames
        enabled: false
        sequence: root.action?.shortcut ?? ""
    }

    contentItem: RowLayout {
        spacing: Theme.large

        FSText {
            Layout.fillWidth: true
            text: root.text
            wrapMode: Text.NoWrap
            Accessible.ignored: true
        }
        FSText {
            text: keyNames.nativeText
            color: Theme.fsSubtext
            wrapMode: Text.NoWrap
            Accessible.ignored: true
        }
    }
    background: Rectangle {
        color: Theme.fsAccent
        opacity: root.down ? 0.28 : root.highlighted ? 0.16 : 0
        radius: Theme.radius
    }
}
