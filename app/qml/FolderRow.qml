import QtQuick
import QtQuick.Layouts
import Ornivo

// One folder: what it is for, where it is, and a button to choose it.
RowLayout {
    id: root

    required property string label
    // The whole path; empty while none is chosen.
    required property string path
    required property string hint
    property bool disabled
    property alias keys: browse.keys
    signal action

    Layout.fillWidth: true
    spacing: 10
    enabled: !disabled
    opacity: disabled ? Theme.dimmed : 1

    FSText {
        text: root.label
        color: Theme.fsSubtext
        // As large as the column has room for.
        font.pixelSize: Math.min(Theme.caption, 11)
        wrapMode: Text.NoWrap
        Layout.preferredWidth: 50
        Layout.maximumWidth: 50
    }
    FSText {
        objectName: "path"
        text: root.path || root.hint
        color: root.path ? Theme.text : Theme.fsSubtext
        wrapMode: Text.NoWrap
        elide: Text.ElideMiddle
        Layout.fillWidth: true

        HoverHandler { id: pointer }
        FSToolTip {
            visible: pointer.hovered && parent.truncated
            text: root.path
        }
    }
    SecondaryButton {
        id: browse
        text: "Browse"
        description: root.hint
        // The row is dimmed as a whole.
        opacity: 1
        Accessible.name: "Browse " + root.label
        onClicked: root.action()
    }
}
