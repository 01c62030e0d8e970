import QtQuick
import QtQuick.Layouts
import Ornivo

// How far the frames of a burst may lend each other confidence.
FSCard {
    id: root

    required property SettingsPresenter settings

    title: "Bursts"

    Repeater {
        model: root.settings.bursts

        RadioRow {
            required property var modelData
            required property int index

            Layout.fillWidth: true
            text: modelData.title
            hint: modelData.hint
            on: index === root.settings.burst
            onClicked: root.settings.chooseBurst(index)
        }
    }
    FSText {
        objectName: "burstExplanation"
        Layout.fillWidth: true
        text: root.settings.burstExplanation
        color: root.settings.burstIsExperimental ? Theme.fsWarn : Theme.fsSubtext
    }
}
