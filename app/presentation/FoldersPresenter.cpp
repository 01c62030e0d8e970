#include "app/presentation/FoldersPresenter.h"

#include "app/presentation/RecentFolder.h"
#include "app/presentation/Variants.h"

namespace ornivo::app {

void FoldersPresenter::follow(AppStore& store) {
    connect(&store, &AppStore::sourceChanged, this, &FoldersPresenter::refreshSource);
    connect(&store, &AppStore::sinkChanged, this, &FoldersPresenter::refreshSink);
    for (const auto changed :
         {&AppStore::scanningChanged, &AppStore::scanRefusalChanged, &AppStore::scanChanged}) {
        connect(&store, changed, this, &FoldersPresenter::refreshStatus);
    }
    connect(&store, &AppStore::spaceEstimateChanged, this, &FoldersPresenter::refreshAdvice);
    connect(store.recentFolders(), &RecentFoldersStore::changed, this,
            &FoldersPresenter::refreshRecent);
    refreshSource();
    refreshSink();
    refreshStatus();
    refreshAdvice();
    refreshRecent();
}

void FoldersPresenter::refreshSource() {
    source_ = shownPath(store()->source());
    Q_EMIT sourceChanged();
}

void FoldersPresenter::refreshSink() {
    sink_ = shownPath(store()->sink());
    Q_EMIT sinkChanged();
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
