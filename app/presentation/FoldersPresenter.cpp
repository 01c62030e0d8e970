#include "app/presentation/FoldersPresenter.h"

#include "app/presentation/RecentFolder.h"
#include "app/presentation/Variants.h"

namespace ornivo::app {

void FoldersPresenter::follow(AppStore& store) {
    connect(&store, &AppStore::sourceChanged, this, &FoldersPresenter::refreshSource);
    connect(&store, &AppStore::sinkChanged, this, &FoldersPresenter::refreshSink);
    connect(&store, &AppStore::jobStateChanged, this, &FoldersPresenter::refreshLock);
    for (const auto changed :
         {&AppStore::scanningChanged, &AppStore::scanRefusalChanged, &AppStore::scanChanged}) {
        connect(&store, changed, this, &FoldersPresenter::refreshStatus);
    }
    connect(&store, &AppStore::spaceEstimateChanged, this, &FoldersPresenter::refreshAdvice);
    connect(store.recentFolders(), &RecentFoldersStore::changed, this,
            &FoldersPresenter::refreshRecent);
    refreshSource();
    refreshSink();
    refreshLock();
    refreshStatus();
    refreshAdvice();
    refreshRecent();
}

void FoldersPresenter::refreshSource() {
    source_ = folderLine(store()->source(), sourceHint());
    Q_EMIT sourceChanged();
}

void FoldersPresenter::refreshSink() {
    sink_ = folderLine(store()->sink(), sinkHint());
    Q_EMIT sinkChanged();
}

void FoldersPresenter::refreshLock() {
    isLocked_ = store()->jobState() != JobState::idle;
    Q_EMIT lockedChanged();
}

void FoldersPresenter::refreshStatus() {
    const auto& scan = store()->scan();
    status_ = sourceStatus({.isScanning = store()->scanning(),
                            .refusal = store()->scanRefusal(),
                            .found = scan ? std::optional(scan->total) : std::nullopt});
    Q_EMIT statusChanged();
}

void FoldersPresenter::refreshAdvice() {
    advice_ = spaceAdvice(store()->spaceEstimate());
    Q_EMIT adviceChanged();
}

void FoldersPresenter::refreshRecent() {
    recentSources_ = variants(app::recentFolders(store()->recentFolders()->sourceFolders()));
    recentSinks_ = variants(app::recentFolders(store()->recentFolders()->destinationFolders()));
    Q_EMIT recentChanged();
}

}  // namespace ornivo::app
