import QtQuick
import QtQuick.Layouts
import Ornivo

// A symbol beside a text, both in one colour unless the symbol has its own.
RowLayout {
    id: root

    required property string symbol
    property alias text: label.text
    property alias color: label.color
    property color symbolColor: color

    spacing: Theme.small

    Icon {
        symbol: root.symbol
        color: root.symbolColor
        Layout.alignment: Qt.AlignTop
    }
    FSText {
        id: label
        Layout.fillWidth: true
    }
}
