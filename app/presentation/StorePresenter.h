#pragma once

#include <QObject>

#include "app/AppStore.h"

namespace ornivo::app {

/// Words what the store holds for one element of the screen, which names the store once. Such an
/// element may be made as often as one likes: it holds nothing that the store holds.
class StorePresenter : public QObject {
    Q_OBJECT
    Q_PROPERTY(ornivo::app::AppStore* store READ store WRITE setStore NOTIFY storeChanged REQUIRED)

public:
    using QObject::QObject;

    AppStore* store() const { return store_; }
    /// Given once, before anything else is asked for.
    void setStore(AppStore* store) {
        store_ = store;
        follow(*store);
        Q_EMIT storeChanged();
    }

Q_SIGNALS:
    void storeChanged();

protected:
    /// Connects what the element shows with what it depends on.
    virtual void follow(AppStore& store) = 0;

private:
    AppStore* store_ = nullptr;
};

}  // namespace ornivo::app
