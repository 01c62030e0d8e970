import QtQuick
import QtQuick.Templates as T
import Ornivo

// A menu of actions.
T.Menu {
    id: root

    implicitWidth: implicitBackgroundWidth
    implicitHeight: contentHeight + topPadding + bottomPadding
    padding: Theme.tiny
    overlap: 1

    delegate: FSMenuItem {}

    contentItem: ListView {
        objectName: "menu"
        implicitHeight: contentHeight
        interactive: false
        model: root.contentModel
        currentIndex: root.currentIndex
    }
    background: Rectangle {
        implicitWidth: 18 * Theme.body
        color: Theme.fsCard
        border.color: Theme.fsBorder
        radius: Theme.cardRadius
    }
}
