import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Ornivo

// How far the run is, what it has found, and the means to hold or end it.
FSCard {
    id: root

    required property AppStore store
    // How high the card may be while that leaves room for three species. The rest of them scroll, so
    // that its buttons stay in sight.
    property real room: Infinity
    readonly property alias pauseButton: pause

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
            id: pause
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
        maximumLineCount: 1
        elide: Text.ElideMiddle
        Layout.fillWidth: true
    }
    ColumnLayout {
        id: found
        objectName: "speciesList"
        Layout.fillWidth: true
        visible: words.hasSpecies
        spacing: Theme.tiny

        Rule {
            Layout.topMargin: Theme.tiny
            Layout.bottomMargin: Theme.tiny
        }
        FSList {
            id: lines
            objectName: "speciesLines"

            // What of the card lies above and below.
            readonly property real others: found.parent.y + found.y + y + 2 * Theme.large

            Layout.fillWidth: true
            Layout.preferredHeight:
                Math.min(wholeHeight, Math.max(3 * rowHeight + 2, root.room - others))
            border.width: 0
            rowHeight: Math.round(Theme.body * 1.6)
            name: "Species found"
            model: words.species
            delegate: FSText {
                required property var model

                width: ListView.view.width
                height: lines.rowHeight
                text: model.text
                color: Theme.colourOf(model.tone)
                wrapMode: Text.NoWrap
                elide: Text.ElideMiddle
                verticalAlignment: Text.AlignVCenter
            }
        }
    }
}
