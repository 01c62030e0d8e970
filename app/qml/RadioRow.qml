import QtQuick
import Ornivo

// One choice of several, of which one holds.
MarkRow {
    id: root

    mark: Icon {
        symbol: root.on ? "circle-fill" : "circle"
        color: root.on ? Theme.fsAccent : Theme.fsSubtext
    }
    Accessible.role: Accessible.RadioButton
}
