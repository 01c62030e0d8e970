#pragma once

#include <QtQml/qqmlregistration.h>

#include <QString>
#include <optional>

#include "app/presentation/StorePresenter.h"
#include "review/ReviewDecisions.h"

namespace ornivo::app {

/// Files what was decided on the review page and copied there, and says what became of it.
class DecisionFiler : public StorePresenter {
    Q_OBJECT
    QML_ELEMENT

    /// What became of the last paste; empty before the first.
    Q_PROPERTY(QString note READ note NOTIFY changed)
    /// Whether it filed a photograph at least.
    Q_PROPERTY(bool isSuccess READ isSuccess NOTIFY changed)

public:
    using StorePresenter::StorePresenter;

    QString note() const { return note_; }
    bool isSuccess() const { return isSuccess_; }

    /// Files the decisions on the clipboard into the sink, in the background. Nothing happens
    /// without a sink, or while others are being filed.
    Q_INVOKABLE void fileClipboard();

Q_SIGNALS:
    void changed();

protected:
    void follow(AppStore&) override {}

private:
    void take(const std::optional<ReviewDecisions::Outcome>& outcome);

    QString note_;
    bool isSuccess_ = false;
};

}  // namespace ornivo::app
