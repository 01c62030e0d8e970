import QtQuick
import QtQuick.Layouts
import Ornivo

// From which level on a bird is filed under its name: one of the named levels, or any between them.
ColumnLayout {
    id: root

    required property AppStore store
    required property OptionsPresenter options

    spacing: Theme.small

    FSText {
        Layout.fillWidth: true
        text: "File a bird when the call is"
        Accessible.role: Accessible.Heading
    }
    Repeater {
        model: root.options.levels

        RadioRow {
            required property var modelData
            required property int index

            Layout.fillWidth: true
            text: modelData.title
            hint: modelData.hint
            on: index === root.options.call.level
            onClicked: root.options.chooseLevel(index)
        }
    }
    FSText {
        objectName: "caution"
        Layout.fillWidth: true
        visible: text !== ""
        text: root.options.call.caution
        color: root.options.call.cautionIsWarning ? Theme.fsWarn : Theme.fsSubtext
    }

    Rule {}
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.medium

        FSText {
            objectName: "tuning"
            Layout.fillWidth: true
            text: root.options.call.tuning
        }
        FSText {
            objectName: "match"
            text: root.options.call.match
            color: Theme.fsAccent
        }
    }
    FSSlider {
        Layout.fillWidth: true
        from: 0
        to: 100
        shown: root.store.confidence
        onAsked: value => root.options.fineTune(value)
        Accessible.name: "Fine tune the call threshold"
        Accessible.description: root.options.call.spokenMatch
    }
    CaptionText {
        Layout.fillWidth: true
        text: root.options.explanation
    }
}
