import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Ornivo

// A region to choose, with the countries it lies in.
T.AbstractButton {
    id: root

    required property string label
    required property string hint
    required property int index
    required property bool chosen
    required property bool isCurrent

    implicitHeight: Theme.controlHeight
    horizontalPadding: Theme.small
    focusPolicy: Qt.NoFocus
    activeFocusOnTab: false
    hoverEnabled: true

    Accessible.role: Accessible.RadioButton
    Accessible.name: root.label
    Accessible.description: root.hint
    Accessible.checkable: true
    Accessible.checked: root.chosen
    Accessible.selected: root.isCurrent

    FSToolTip {
        visible: root.hovered && hintText.truncated
        text: root.hint
    }

    contentItem: RowLayout {
        spacing: Theme.small

        Icon {
            symbol: root.chosen ? "circle-fill" : "circle"
            color: root.chosen ? Theme.fsAccent : Theme.fsSubtext
        }
        FSText {
            text: root.label
            wrapMode: Text.NoWrap
            elide: Text.ElideRight
            Layout.maximumWidth: root.availableWidth - Theme.iconSize - Theme.small
            Accessible.ignored: true
        }
        FSText {
            id: hintText
            text: root.hint
            color: Theme.fsSubtext
            wrapMode: Text.NoWrap
            elide: Text.ElideRight
            Layout.fillWidth: true
            Accessible.ignored: true
        }
    }
    background: Rectangle {
        color: root.isCurrent ? Theme.fsAccent : Theme.text
        opacity: root.isCurrent ? 0.16 : root.down ? 0.1 : root.hovered ? 0.05 : 0
        radius: Theme.radius
    }
}
