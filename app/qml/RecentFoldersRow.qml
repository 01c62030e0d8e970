import QtQuick
import QtQuick.Layouts
import Ornivo

// Folders chosen before, to be chosen again with one press.
RowLayout {
    id: root

    // `RecentFolder`s.
    required property var folders
    property bool disabled
    signal selected(int index)

    Layout.fillWidth: true
    Layout.leftMargin: 60
    visible: folders.length > 0
    spacing: Theme.small
    enabled: !disabled

    CaptionText {
        text: "RECENT"
        wrapMode: Text.NoWrap
    }
    ListView {
        id: list

        Layout.fillWidth: true
        // Room for the focus ring, which stands outside of a button.
        implicitHeight: Math.round(Theme.caption * 2.1) + 2 * Theme.tiny
        orientation: ListView.Horizontal
        spacing: Theme.small
        leftMargin: Theme.tiny
        rightMargin: Theme.tiny
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        interactive: contentWidth > width
        // At most ten: all of them can be come to with the keyboard.
        cacheBuffer: 10000
        model: root.folders

        delegate: FSButton {
            required property int index
            required property var modelData

            y: Theme.tiny
            height: list.height - 2 * Theme.tiny
            width: Math.min(implicitWidth, 220)
            horizontalPadding: Theme.small
            text: modelData.name
            description: modelData.path
            ink: root.disabled ? Theme.fsSubtext : Theme.fsAccent
            outline: Theme.fsBorder
            // The colour of its text says that it can't be used.
            opacity: 1
            font.pixelSize: Theme.caption
            onClicked: root.selected(index)
            onActiveFocusChanged: if (activeFocus) list.positionViewAtIndex(index, ListView.Contain)
        }
    }
}
