import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Ornivo

// A column that scrolls, in the middle of a window that is wider than it. What the keyboard comes
// to is brought into sight. What has been shown stays in sight while things above it grow, until the
// user scrolls or moves the keyboard.
Flickable {
    id: root

    default property alias content: column.data
    property alias spacing: column.spacing
    property real padding: Theme.large
    property real columnWidth: Theme.columnWidth

    readonly property Item focused: Window.activeFocusItem
    onFocusedChanged: {
        // A card that goes leaves the keyboard at its empty place for a moment.
        if (!holds(focused) || focused instanceof Loader) return
        // The keyboard may come to something that is about to be shown, and its place with it.
        if (gathering.items.some(item => isWithin(focused, item))) return
        // Where the user goes counts for more than what came before.
        gathering.items = []
        followed = null
        show(focused)
    }

    // What is kept in sight.
    property Item followed: null
    readonly property real followedEnd: followed ? followed.y + followed.height : 0
    onFollowedEndChanged: if (holds(followed)) show(followed)
    onContentHeightChanged: if (holds(followed)) show(followed)
    onHeightChanged: if (holds(followed)) show(followed)
    onMovementStarted: followed = null

    // Brings an item in the column into sight, by as little as is needed and without a jump.
    function show(item) {
        gathering.items.push(item)
        gathering.restart()
    }

    // The same for what matters more than all that has come with it.
    function showInstead(item) {
        followed = null
        gathering.items = [item]
        gathering.restart()
    }

    function isWithin(item, whole) {
        while (item && item !== whole) item = item.parent
        return item === whole
    }
    function holds(item) { return isWithin(item, column) }
    function topOf(item) { return column.y + item.mapToItem(column, 0, 0).y - padding }
    function bottomOf(item) { return topOf(item) + item.height + 2 * padding }
    function placeOf(item) {
        const top = topOf(item)
        const bottom = bottomOf(item)
        if (top < contentY) return top
        return bottom > contentY + height ? Math.min(top, bottom - height) : contentY
    }
    function within(y) { return Math.max(0, Math.min(y, contentHeight - height)) }
    function scrollTo(y) {
        gathering.stop()
        gathering.items = []
        followed = null
        glide.stop()
        contentY = within(y)
    }

    Timer {
        id: gathering
        property var items: []
        // By then they have found their places.
        interval: 50
        onTriggered: {
            // Of several that have come at once, what reaches lowest is the latest in time.
            const there = items.filter(item => root.holds(item))
            items = []
            if (there.length === 0) return
            const last = there.reduce((one, other) =>
                root.bottomOf(other) > root.bottomOf(one) ? other : one)
            root.followed = last
            glide.to = root.within(root.placeOf(last))
            if (glide.to !== root.contentY) glide.restart()
        }
    }
    NumberAnimation {
        id: glide
        target: root
        property: "contentY"
        duration: Theme.calm
        easing.type: Easing.InOutCubic
    }

    implicitHeight: contentHeight
    contentWidth: width
    contentHeight: column.height + 2 * padding
    boundsBehavior: Flickable.StopAtBounds
    clip: true

    Keys.onPressed: event => {
        const page = height * 0.9
        const targets = {
            [Qt.Key_PageDown]: contentY + page,
            [Qt.Key_PageUp]: contentY - page,
            [Qt.Key_Home]: 0,
            [Qt.Key_End]: contentHeight
        }
        event.accepted = event.key in targets
        if (event.accepted) scrollTo(targets[event.key])
    }

    ScrollBar.vertical: FSScrollBar { onPressedChanged: root.followed = null }

    ColumnLayout {
        id: column
        x: Math.round((root.width - width) / 2)
        y: root.padding
        width: Math.min(root.width - 2 * root.padding, root.columnWidth)
        spacing: Theme.medium
    }
}
