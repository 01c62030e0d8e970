import QtQuick
import QtQuick.Layouts
import Ornivo

// What the classifier made of the latest photograph.
FSCard {
    id: root

    required property AppStore store

    title: "Latest Identification"

    PredictionPresenter {
        id: words
        store: root.store
    }

    RowLayout {
        Layout.fillWidth: true
        OnDeviceBadge {}
        Item { Layout.fillWidth: true }
        ConfidenceBadge {
            objectName: "confidenceBadge"
            grade: words.text.badge
        }
    }
    FSText {
        objectName: "predictionName"
        visible: text !== ""
        text: words.text.name
        font { pixelSize: Theme.display; weight: Font.DemiBold }
        Layout.fillWidth: true
    }
    FSText {
        objectName: "predictionConfidence"
        visible: text !== ""
        text: words.text.confidence
        color: Theme.fsSubtext
        Layout.fillWidth: true
    }
    FSText {
        objectName: "predictionNotice"
        visible: text !== ""
        text: words.text.notice
        color: Theme.fsWarn
        Layout.fillWidth: true
    }
}
