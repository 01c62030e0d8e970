import QtQuick
import QtQuick.Layouts
import Ornivo

// Where the photographs are and where they go.
FSCard {
    id: root

    required property AppStore store
    readonly property bool isLocked: store.jobState !== AppStore.Idle

    title: "Folders"

    FoldersPresenter {
        id: words
        store: root.store
    }

    FolderRow {
        objectName: "sourceRow"
        label: "SOURCE"
        path: words.source
        hint: "Where your unsorted photos live"
        disabled: root.isLocked
        keys: "Ctrl+O"
        onAction: root.store.pickingSource = true
    }
    RecentFoldersRow {
        objectName: "recentSources"
        folders: words.recentSources
        disabled: root.isLocked
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
        path: words.sink
        hint: "Where sorted bird folders will be created"
        disabled: root.isLocked
        keys: "Ctrl+Shift+O"
        onAction: root.store.pickingSink = true
    }
    RecentFoldersRow {
        objectName: "recentSinks"
        folders: words.recentSinks
        disabled: root.isLocked
        onSelected: index => root.store.chooseRecentSink(index)
    }
    TonedLine {
        objectName: "spaceAdvice"
        line: words.advice
        Layout.leftMargin: 60
    }
}
