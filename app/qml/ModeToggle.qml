import QtQuick
import QtQuick.Layouts
import Ornivo

// Whether everything is sorted or chosen species are looked for.
Rectangle {
    id: root

    required property AppStore store

    implicitHeight: row.implicitHeight + 2 * row.anchors.margins
    color: Theme.fsCard
    border.color: Theme.fsBorder
    radius: Theme.cardRadius
    enabled: store.jobState === AppStore.Idle

    Accessible.role: Accessible.Grouping
    Accessible.name: "Mode"

    component ModeButton: FSButton {
        required property int mode
        readonly property bool isSelected: root.store.appMode === mode

        Layout.fillWidth: true
        // Halves of the same width, whatever their words.
        Layout.preferredWidth: 1
        fill: isSelected ? Theme.fsAccent : "transparent"
        ink: isSelected ? Theme.fsBlack : Theme.text
        font.weight: isSelected ? Font.DemiBold : Font.Normal
        Accessible.role: Accessible.RadioButton
        Accessible.checkable: true
        Accessible.checked: isSelected
        Accessible.onToggleAction: press()
        onClicked: root.store.appMode = mode
    }

    RowLayout {
        id: row
        anchors { fill: parent; margins: Theme.tiny }
        spacing: Theme.tiny

        ModeButton {
            text: "Sort All"
            mode: AppStore.Sort
            keys: "Ctrl+1"
        }
        ModeButton {
            text: "Find Species"
            mode: AppStore.Find
            keys: "Ctrl+2"
        }
    }
}
