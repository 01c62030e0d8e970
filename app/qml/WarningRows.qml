import QtQuick
import QtQuick.Layouts
import Ornivo

// The first warnings of a run, and how many there are beyond.
ColumnLayout {
    id: root

    // `TonedText`s.
    required property var warnings

    objectName: "warnings"
    Layout.fillWidth: true
    visible: warnings.length > 0
    spacing: Theme.tiny

    Repeater {
        model: root.warnings
        delegate: TonedLine {
            required property var modelData
            objectName: "warningLine"
            line: modelData
        }
    }
}
