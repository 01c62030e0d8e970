#pragma once

#include <QtQml/qqmlregistration.h>

#include <QVariantList>

#include "app/presentation/PreviewText.h"
#include "app/presentation/StorePresenter.h"

namespace ornivo::app {

/// The card of what will happen.
class PreviewPresenter : public StorePresenter {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString heading READ heading NOTIFY changed)
    /// `PreviewLine`s; none for a search without a species.
    Q_PROPERTY(QVariantList lines READ lines NOTIFY changed)

public:
    using StorePresenter::StorePresenter;

    const QString& heading() const { return heading_; }
    const QVariantList& lines() const { return lines_; }

Q_SIGNALS:
    void changed();

protected:
    void follow(AppStore& store) override;

private:
    std::vector<PreviewLine> preview() const;
    void refresh();

    QString heading_;
    QVariantList lines_;
};

}  // namespace ornivo::app
