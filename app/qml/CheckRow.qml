import QtQuick
import Ornivo

// A choice of its own, on or off. A press asks for the other by `flipped`.
MarkRow {
    id: root

    signal flipped(bool on)

    mark: FSCheckboxStyle { on: root.on }
    onClicked: flipped(!on)
    Accessible.role: Accessible.CheckBox
}
