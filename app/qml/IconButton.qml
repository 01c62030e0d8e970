import QtQuick
import QtQuick.Layouts
import Ornivo

// A button at the end of a row that is only a symbol; its description is its name.
FSButton {
    id: root

    required property string symbol

    ink: Theme.fsSubtext
    implicitWidth: implicitHeight
    // The symbol, not the room around it, ends where the row does.
    Layout.rightMargin: -Math.round((implicitWidth - glyph.width) / 2)

    Icon {
        id: glyph
        anchors.centerIn: parent
        symbol: root.symbol
        color: root.ink
    }
}
