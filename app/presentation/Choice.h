#pragma once

#include <QObject>
#include <QString>

namespace ornivo::app {

/// One of several things to choose from, as its row says it.
struct Choice {
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString hint MEMBER hint)

public:
    QString title;
    QString hint;

    bool operator==(const Choice&) const = default;
};

}  // namespace ornivo::app
