import QtQuick
import QtQuick.Layouts
import Ornivo

// Names the region where the photographs were taken.
FSCard {
    id: root

    required property AppStore store
    required property string explanation

    readonly property int chosenRow: regions.rowOf(store.assumedRegionID)

    // There may be something new to read.
    signal answered

    function choose(row) { store.assumedRegionID = regions.idAt(row) }
    onChosenRowChanged: if (chosenRow >= 0) list.go(chosenRow)

    title: "Where you photograph"

    RegionModel { id: regions }
    RegionTyping { id: typing; regions: regions; onFound: row => list.go(row) }

    PlaceField {
        Layout.fillWidth: true
        store: root.store
        onAnswered: root.answered()
    }
    FSList {
        id: list

        objectName: "regions"
        Layout.fillWidth: true
        Layout.preferredHeight: 132
        name: root.title
        picks: true
        model: regions
        delegate: RegionRow {
            width: ListView.view.width
            height: list.rowHeight
            chosen: index === root.chosenRow
            isCurrent: ListView.isCurrentItem && ListView.view.activeFocus
            onClicked: {
                list.currentIndex = index
                root.choose(index)
            }
        }
        onPicked: row => root.choose(row)
        onTyped: text => typing.take(text, currentIndex)
        // The list opens at the region that was named.
        currentIndex: root.chosenRow
        Component.onCompleted: Qt.callLater(show, currentIndex)
    }
    FSText {
        objectName: "regionExplanation"
        Layout.fillWidth: true
        text: root.explanation
        color: Theme.fsSubtext
    }
}
