import QtQuick
import QtQuick.Layouts
import Ornivo

// The frame of every card: its title in capitals, and below it what stands inside the braces, from
// the top down.
Rectangle {
    id: root

    property string title
    default property alias content: column.data
    property alias spacing: column.spacing

    implicitWidth: column.implicitWidth + 2 * Theme.large
    implicitHeight: frame.implicitHeight + 2 * Theme.large
    color: Theme.fsCard
    border.color: Theme.fsBorder
    radius: Theme.cardRadius

    Accessible.role: Accessible.Grouping
    Accessible.name: root.title

    ColumnLayout {
        id: frame
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.large }
        spacing: Theme.medium

        FSText {
            objectName: "cardTitle"
            Layout.fillWidth: true
            visible: root.title !== ""
            text: root.title
            color: Theme.fsSubtext
            font {
                pixelSize: Theme.caption
                weight: Font.DemiBold
                letterSpacing: 0.8
                capitalization: Font.AllUppercase
            }
            Accessible.role: Accessible.Heading
        }
        ColumnLayout {
            id: column
            Layout.fillWidth: true
            spacing: Theme.small
        }
    }
}
