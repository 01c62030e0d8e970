import QtQuick
import QtQuick.Layouts
import Ornivo

// A thin line across a card.
Rectangle {
    Layout.fillWidth: true
    implicitHeight: 1
    color: Theme.fsBorder
    Accessible.ignored: true
}
