#pragma once

#include <QtQml/qqmlregistration.h>

#include <QAbstractListModel>

#include "app/presentation/ProgressText.h"
#include "app/presentation/StorePresenter.h"
#include "app/presentation/TonedLines.h"

namespace ornivo::app {

/// The card of a run under way.
class ProgressPresenter : public StorePresenter {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ornivo::app::ProgressText text READ text NOTIFY changed)
    /// Lines with the roles `text` and `tone`.
    Q_PROPERTY(QAbstractListModel* species READ species CONSTANT)
    Q_PROPERTY(bool hasSpecies READ hasSpecies NOTIFY hasSpeciesChanged)

public:
    using StorePresenter::StorePresenter;

    const ProgressText& text() const { return text_; }
    QAbstractListModel* species() { return &species_; }
    bool hasSpecies() const { return species_.count() > 0; }

    /// Pauses the run, or has it go on, by what it does at this moment.
    Q_INVOKABLE void pauseOrResume();

Q_SIGNALS:
    void changed();
    void hasSpeciesChanged();

protected:
    void follow(AppStore& store) override;

private:
    void refresh();

    ProgressText text_;
    TonedLines species_;
};

}  // namespace ornivo::app
