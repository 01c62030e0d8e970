import QtQuick
import QtQuick.Controls.Basic
import Ornivo

// A list that scrolls in a frame of its own. In one to pick from, the keys move the current row and
// Return picks it; in one to read they scroll.
Rectangle {
    id: root

    property alias model: view.model
    property alias delegate: view.delegate
    property alias currentIndex: view.currentIndex
    readonly property alias currentItem: view.currentItem
    readonly property alias count: view.count
    // The height of every row.
    property real rowHeight: Theme.controlHeight
    property bool picks: false
    property string name
    // The height of all rows.
    readonly property real wholeHeight: count * rowHeight + 2
    readonly property bool visualFocus: view.activeFocus

    signal picked(int row)
    // A key that means nothing to the list.
    signal typed(string text)

    function step(rows) {
        if (picks) {
            view.currentIndex = Math.max(0, Math.min(count - 1, view.currentIndex + rows))
        } else {
            const end = Math.max(0, view.contentHeight - view.height)
            view.contentY = view.originY
                + Math.max(0, Math.min(end, view.contentY - view.originY + rows * rowHeight))
        }
    }
    function show(row) { if (row >= 0) view.positionViewAtIndex(row, ListView.Center) }
    function go(row) {
        view.currentIndex = row
        view.positionViewAtIndex(row, ListView.Contain)
    }
    function take(key) {
        const page = Math.max(1, Math.floor(view.height / rowHeight) - 1)
        const rows = {
            [Qt.Key_Up]: -1, [Qt.Key_Down]: 1, [Qt.Key_PageUp]: -page, [Qt.Key_PageDown]: page,
            [Qt.Key_Home]: -count, [Qt.Key_End]: count
        }[key]
        if (rows !== undefined) step(rows)
        return rows !== undefined
    }

    implicitWidth: 200
    color: Theme.fsCard
    border.color: Theme.fsBorder
    radius: Theme.radius

    ListView {
        id: view

        anchors { fill: parent; margins: 1 }
        activeFocusOnTab: true
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        reuseItems: true
        currentIndex: -1
        highlightMoveDuration: 0
        keyNavigationEnabled: false
        onActiveFocusChanged: if (activeFocus && root.picks && currentIndex < 0) currentIndex = 0

        Accessible.role: Accessible.List
        Accessible.name: root.name

        Keys.onPressed: event => {
            event.accepted = true
            if (root.picks && view.currentIndex >= 0 && Access.presses(event)) {
                if (!event.isAutoRepeat) root.picked(view.currentIndex)
            } else if (root.take(event.key)) return
            else if (event.text.trim() !== "" && !(event.modifiers & ~Qt.ShiftModifier))
                root.typed(event.text)
            else event.accepted = false
        }

        ScrollBar.vertical: FSScrollBar {}
    }

    FocusRing { control: root; gap: 0 }
}
