import QtQuick
import QtQuick.Layouts
import Ornivo

// Folders chosen before, to be chosen again with one press.
RowLayout {
    id: root

    // What they are for, for those who hear the screen.
    required property string name
    // `RecentFolder`s.
    required property var folders
    property bool disabled
    signal selected(int index)

    Layout.fillWidth: true
    Layout.leftMargin: 60
    visible: folders.length > 0
    spacing: Theme.small
    enabled: !disabled

    Accessible.role: Accessible.Grouping
    Accessible.name: root.name

    component SoftEdge: Rectangle {
        z: 1
        width: Theme.huge
        height: parent.height
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop { position: 0; color: Theme.fsCard }
            GradientStop { position: 1; color: Qt.alpha(Theme.fsCard, 0) }
        }
    }

    CaptionText {
        text: "RECENT"
        wrapMode: Text.NoWrap
    }
    ListView {
        id: list

        // What has been scrolled past goes out softly, so that a cut button is seen to go on.
        readonly property real fade: Theme.huge

        // Brings a button out of the soft edges, whole with its focus ring.
        function show(button) {
            const least = originX - leftMargin
            const most = Math.max(least, originX + contentWidth + rightMargin - width)
            const right = button.x + button.width + fade - width
            const wanted = Math.max(right, Math.min(button.x - fade, contentX))
            contentX = Math.max(least, Math.min(most, wanted))
        }

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
            onClicked: {
                const view = list
                const hadKeyboard = activeFocus
                const wasPointed = wasPointedAt
                root.selected(index)
                if (!hadKeyboard) return
                // The list is made anew, with this folder as the first.
                view.forceLayout()
                const first = view.itemAtIndex(0)
                first.wasPointedAt = wasPointed
                first.forceActiveFocus(Qt.TabFocusReason)
            }
            onActiveFocusChanged: if (activeFocus) list.show(this)
        }
    }
    SoftEdge {
        parent: list
        visible: !list.atXBeginning
        anchors.left: list.left
    }
    SoftEdge {
        parent: list
        visible: !list.atXEnd
        anchors.right: list.right
        rotation: 180
    }
}
