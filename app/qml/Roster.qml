import QtQuick
import QtQuick.Layouts
import Ornivo

// The names of those who took the photographs.
FSCard {
    id: root

    required property CreditsPresenter credits
    readonly property RosterModel people: credits.people

    title: credits.photographersTitle

    SymbolText {
        objectName: "rosterPending"
        Layout.fillWidth: true
        visible: !root.credits.rosterIsComplete
        symbol: "warning-triangle"
        symbolColor: Theme.fsWarn
        color: Theme.text
        text: "The per-photographer roster has not been folded into this build yet. Sources and "
              + "licences above are accurate; individual names are pending."
    }
    ColumnLayout {
        objectName: "roster"
        Layout.fillWidth: true
        visible: root.credits.rosterIsComplete
        spacing: Theme.small

        FSTextField {
            objectName: "nameField"
            Layout.fillWidth: true
            placeholderText: "Search names"
            text: root.people.search
            onTextEdited: root.people.search = text
        }
        FSText {
            objectName: "nobody"
            Layout.fillWidth: true
            visible: root.people.count === 0
            text: "No one by that name in the roster."
            color: Theme.fsSubtext
        }
        FSList {
            objectName: "names"
            Layout.fillWidth: true
            Layout.preferredHeight: 260
            visible: root.people.count > 0
            rowHeight: Math.round(Theme.body * 1.8)
            name: root.title
            model: root.people
            delegate: FSText {
                required property string display

                width: ListView.view.width
                height: Math.round(Theme.body * 1.8)
                leftPadding: Theme.medium
                rightPadding: Theme.medium
                text: display
                wrapMode: Text.NoWrap
                elide: Text.ElideRight
                verticalAlignment: Text.AlignVCenter
            }
        }
        FSText {
            objectName: "countShown"
            Layout.fillWidth: true
            visible: root.people.count > 0
            text: root.people.countShown
            color: Theme.fsSubtext
        }
    }
}
