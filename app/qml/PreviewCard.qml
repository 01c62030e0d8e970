import QtQuick
import QtQuick.Layouts
import Ornivo

// The folders that a run will make, as a small tree.
FSCard {
    id: root

    required property AppStore store

    title: "What Will Happen"
    spacing: 0

    PreviewPresenter {
        id: words
        store: root.store
    }

    component TreeText: FSText {
        font.family: Theme.monospaced
        // Branches of neighbouring lines meet.
        lineHeight: 1
        wrapMode: Text.NoWrap
    }

    TreeText {
        objectName: "previewHeading"
        text: words.heading
        maximumLineCount: 1
        elide: Text.ElideMiddle
        Layout.fillWidth: true
    }
    Repeater {
        model: words.lines
        delegate: RowLayout {
            required property var modelData

            objectName: "previewLine"
            spacing: 0

            TreeText {
                text: modelData.branch
                color: Theme.branch
                // Drawn for the eye only.
                Accessible.ignored: true
            }
            TreeText {
                text: modelData.name
                color: Theme.fsAccent
                elide: Text.ElideMiddle
                Layout.fillWidth: true
            }
        }
    }
}
