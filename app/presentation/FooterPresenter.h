#pragma once

#include <QtQml/qqmlregistration.h>

#include "app/presentation/FooterText.h"
#include "app/presentation/StorePresenter.h"

namespace ornivo::app {

/// The footer.
class FooterPresenter : public StorePresenter {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString status READ status NOTIFY changed)
    Q_PROPERTY(QString label READ label NOTIFY changed)

public:
    using StorePresenter::StorePresenter;

    const QString& status() const { return status_; }
    const QString& label() const { return label_; }

Q_SIGNALS:
    void changed();

protected:
    void follow(AppStore& store) override;

private:
    FooterState state() const;
    void refresh();

    QString status_;
    QString label_;
};

}  // namespace ornivo::app
