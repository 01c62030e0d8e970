import QtQuick
import QtQuick.Layouts
import Ornivo

// Where the photographs are and where they go.
FSCard {
    id: root

    required property AppStore store

    title: "Folders"

    FoldersPresenter {
        id: words
        store: root.store
    }

    FolderRow {
        objectName: "sourceRow"
        label: "SOURCE"
        folder: words.source
        hint: words.sourceHint
        disabled: words.isLocked
        keys: "Ctrl+O"
        onAction: root.store.pickingSource = true
    }
    RecentFoldersRow {
        objectName: "recentSources"
        name: "Recent sources"
        folders: words.recentSources
        disabled: words.isLocked
        onSelected: index => root.store.chooseRecentSource(index)
    }
    TonedLine {
        objectName: "sourceStatus"
        line: words.status
        Layout.leftMargin: 60
    }
    RegionOffer {
        visible: root.store.shouldOfferRegion
        Layout.leftMargin: 60
        onAccepted: root.store.showingSettings = true
    }
    Rule {
        Layout.topMargin: Theme.tiny
        Layout.bottomMargin: Theme.tiny
    }
    FolderRow {
        objectName: "sinkRow"
        label: "SINK"
        folder: words.sink
        hint: words.sinkHint
        disabled: words.isLocked
        keys: "Ctrl+Shift+O"
        onAction: root.store.pickingSink = true
    }
    RecentFoldersRow {
        objectName: "recentSinks"
        name: "Recent sinks"
        folders: words.recentSinks
        disabled: words.isLocked
        onSelected: index => root.store.chooseRecentSink(index)
    }
    TonedLine {
        objectName: "spaceAdvice"
        line: words.advice
        Layout.leftMargin: 60
    }
}
