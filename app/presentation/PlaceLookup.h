#pragma once

#include <QtQml/qqmlregistration.h>

#include <QString>

#include "app/presentation/StorePresenter.h"

namespace ornivo::app {

/// The field in which a place is named, and what became of the last one.
class PlaceLookup : public StorePresenter {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)
    /// Empty when there is nothing to say.
    Q_PROPERTY(QString note READ note NOTIFY resolved)
    Q_PROPERTY(bool isResolved READ isResolved NOTIFY resolved)

public:
    using StorePresenter::StorePresenter;

    QString query() const { return query_; }
    void setQuery(const QString& query);
    QString note() const { return note_; }
    bool isResolved() const { return isResolved_; }

    /// Names the region of the place in the field.
    Q_INVOKABLE void resolve();

Q_SIGNALS:
    void queryChanged();
    void resolved();

protected:
    void follow(AppStore&) override {}

private:
    QString query_;
    QString note_;
    bool isResolved_ = false;
};

}  // namespace ornivo::app
