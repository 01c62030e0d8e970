import QtQuick
import QtQuick.Controls.Basic
import Ornivo

// A button that is only a symbol; its description is its name.
FSButton {
    id: root

    required property string symbol

    display: AbstractButton.IconOnly
    icon.source: Qt.resolvedUrl("icons/" + symbol + ".svg")
    ink: Theme.fsSubtext
    horizontalPadding: Theme.tiny
    implicitWidth: implicitHeight
}
