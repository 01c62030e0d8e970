#pragma once

#include <QtQml/qqmlregistration.h>

#include "app/AppStore.h"
#include "app/presentation/HeaderText.h"

namespace ornivo::app {

/// The header.
class HeaderPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString tagline READ tagline CONSTANT)

public:
    using QObject::QObject;

    QString tagline() const { return app::tagline(AppStore::version()); }
};

}  // namespace ornivo::app
