import QtQuick
import QtQuick.Layouts
import Ornivo

// Whose photographs, software and data the program rests on.
Sheet {
    id: root

    property CreditsPresenter credits: CreditsPresenter {}

    title: "Credits"

    FSCard {
        title: "The photographs"
        spacing: Theme.medium
        Layout.fillWidth: true

        FSText {
            Layout.fillWidth: true
            text: "Ornivo learned to recognise birds from photographs shared under open licences "
                  + "by naturalists around the world. It could not exist without them."
        }
        Repeater {
            model: root.credits.sources

            SourceRow {
                required property var modelData

                Layout.fillWidth: true
                row: modelData
                onClicked: root.credits.open(modelData.url)
            }
        }
        FSText {
            objectName: "trainingNote"
            Layout.fillWidth: true
            visible: text !== ""
            text: root.credits.trainingNote
            color: Theme.fsSubtext
        }
    }
    Roster {
        Layout.fillWidth: true
        credits: root.credits
    }
    FSCard {
        title: "Built with"
        spacing: Theme.medium
        Layout.fillWidth: true

        Repeater {
            model: root.credits.components

            ComponentRow {
                required property var modelData

                Layout.fillWidth: true
                row: modelData
                onClicked: root.credits.open(modelData.url)
            }
        }
    }
    FSCard {
        title: "Citation"
        Layout.fillWidth: true

        FSText {
            objectName: "citation"
            Layout.fillWidth: true
            visible: text !== ""
            text: root.credits.citation
            color: Theme.fsSubtext
        }
        FSButton {
            objectName: "doi"
            visible: text !== ""
            text: root.credits.doi
            description: "Open what the DOI stands for"
            ink: Theme.fsAccent
            onClicked: root.credits.open(root.credits.doiAddress)
        }
    }
}
