import QtQuick
import QtQuick.Layouts
import Ornivo

// Lies over the window until it is dismissed: a heading, a plain button that closes it, and below
// them what stands inside the braces, scrolling. Made open; `closed` tells that it can go.
SheetFrame {
    id: root

    default property alias content: body.content

    // What the window leaves it; nothing while it isn't in one yet.
    readonly property size room:
        Qt.size((parent?.width ?? 0) - 2 * Theme.huge, (parent?.height ?? 0) - 2 * Theme.huge)

    // Scrolls to a part of the content.
    function show(part) { body.show(part) }

    width: Math.max(440, Math.min(Math.max(480, 37 * Theme.body), room.width))
    height: Math.max(360, Math.min(820, room.height))
    padding: 1
    visible: true

    contentItem: ColumnLayout {
        spacing: 0
        focus: true
        Keys.forwardTo: [body]
        Accessible.role: Accessible.Dialog
        Accessible.name: root.title

        RowLayout {
            Layout.fillWidth: true
            Layout.margins: Theme.large
            Layout.rightMargin: Theme.medium

            FSText {
                objectName: "sheetTitle"
                Layout.fillWidth: true
                text: root.title
                font { pixelSize: Theme.title; weight: Font.DemiBold }
                Accessible.role: Accessible.Heading
            }
            FSButton {
                text: "Done"
                description: "Close " + root.title
                onClicked: root.close()
            }
        }
        Rule {}
        ScrollColumn {
            id: body
            objectName: "sheetBody"
            Layout.fillWidth: true
            Layout.fillHeight: true
        }
    }
}
