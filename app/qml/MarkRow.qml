import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Ornivo

// A row that is pressed as a whole: a mark, a title, and perhaps a hint. `RadioRow` and `CheckRow`
// are the ones to use.
T.AbstractButton {
    id: root

    property string hint
    property bool on
    required property Component mark

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    verticalPadding: Theme.tiny
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.dimmed

    Accessible.name: root.text
    Accessible.description: root.hint
    Accessible.checkable: true
    Accessible.checked: root.on
    Accessible.focusable: true

    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    contentItem: RowLayout {
        spacing: Theme.small

        Loader {
            sourceComponent: root.mark
            Layout.alignment: Qt.AlignTop
        }
        FSText {
            id: title
            text: root.text
            Layout.maximumWidth: root.availableWidth - Theme.iconSize - Theme.small
            Layout.alignment: Qt.AlignTop
            Accessible.ignored: true
        }
        FSText {
            text: root.hint
            color: Theme.fsSubtext
            Layout.fillWidth: true
            Layout.alignment: Qt.AlignTop
            Accessible.ignored: true
        }
    }
    background: Rectangle {
        color: Theme.text
        opacity: root.down ? 0.08 : root.hovered ? 0.04 : 0
        radius: Theme.radius
    }

    FocusRing { control: root; gap: 0 }
}
