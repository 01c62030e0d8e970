import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Ornivo

// How far the run is, what it has found, and the means to hold or end it.
FSCard {
    id: root

    required property AppStore store

    title: words.text.title

    ProgressPresenter {
        id: words
        store: root.store
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.small

        Item { Layout.fillWidth: true }
        SecondaryButton {
            objectName: "pauseButton"
            text: words.text.pauseLabel
            keys: "Ctrl+P"
            onClicked: words.pauseOrResume()
        }
        SecondaryButton {
            objectName: "stopButton"
            text: "Stop"
            description: "Ends the run at the next photo; what is sorted stays"
            ink: Theme.fsErr
            keys: "Ctrl+."
            onClicked: root.store.stop()
        }
    }
    T.ProgressBar {
        id: bar
        objectName: "progressBar"

        Layout.fillWidth: true
        implicitHeight: 8
        value: words.text.fraction
        Accessible.role: Accessible.ProgressBar
        Accessible.name: words.text.count + ", " + words.text.percent

        background: Rectangle {
            color: Theme.fsBorder
            radius: height / 2
        }
        contentItem: Item {
            Rectangle {
                objectName: "progressFill"
                width: parent.width * bar.visualPosition
                height: parent.height
                radius: height / 2
                color: Theme.fsAccent
                Behavior on width { SmoothedAnimation { duration: Theme.calm; velocity: -1 } }
            }
        }
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.medium

        FSText {
            objectName: "progressCount"
            text: words.text.count
            color: Theme.fsSubtext
            Layout.fillWidth: true
        }
        FSText {
            objectName: "progressPercent"
            text: words.text.percent
            color: Theme.fsAccent
            font.weight: Font.DemiBold
        }
    }
    FSText {
        objectName: "progressFile"
        visible: text !== ""
        text: words.text.fileName
        font { family: Theme.monospaced; pixelSize: Theme.caption }
        wrapMode: Text.NoWrap
        elide: Text.ElideMiddle
        Layout.fillWidth: true
    }
    ColumnLayout {
        objectName: "speciesList"
        Layout.fillWidth: true
        visible: words.hasSpecies
        spacing: Theme.tiny

        Rule {
            Layout.topMargin: Theme.tiny
            Layout.bottomMargin: Theme.tiny
        }
        Repeater {
            model: words.species
            delegate: FSText {
                required property var model

                text: model.text
                color: Theme.colourOf(model.tone)
                Layout.fillWidth: true
            }
        }
    }
}
