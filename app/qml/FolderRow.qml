import QtQuick
import QtQuick.Layouts
import Ornivo

// One folder: what it is for, where it is, and a button to choose it.
RowLayout {
    id: root

    required property string label
    // A `TonedText`: the whole path, or the hint while no folder is chosen.
    required property var folder
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
        font.pixelSize: Theme.caption
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 8
        wrapMode: Text.NoWrap
        Layout.preferredWidth: 50
        Layout.maximumWidth: 50
    }
    TonedLine {
        objectName: "path"
        line: root.folder
        wrapMode: Text.NoWrap
        maximumLineCount: 1
        elide: Text.ElideMiddle

        WholeTextTip {}
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
