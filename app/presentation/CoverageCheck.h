#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>

#include "app/presentation/CoverageText.h"
#include "app/presentation/SpeciesMatches.h"

namespace ornivo::app {

/// The look-up that answers whether the classifier knows a bird. Depends on nothing else.
class CoverageCheck : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)
    Q_PROPERTY(QString extent READ extent CONSTANT)
    /// Empty until enough has been typed.
    Q_PROPERTY(QString line READ line NOTIFY queryChanged)
    Q_PROPERTY(ornivo::app::Mark mark READ mark NOTIFY queryChanged)
    Q_PROPERTY(ornivo::app::SpeciesMatches* matches READ matches CONSTANT)

public:
    using QObject::QObject;

    QString query() const { return query_; }
    void setQuery(const QString& query);
    QString extent() const;
    QString line() const;
    Mark mark() const { return coverageMark(matches_.matches().size()); }
    SpeciesMatches* matches() { return &matches_; }

Q_SIGNALS:
    void queryChanged();

private:
    QString query_;
    SpeciesMatches matches_;
};

}  // namespace ornivo::app
