#pragma once

#include <QObject>
#include <QString>
#include <QUrl>
#include <optional>
#include <string>
#include <vector>

#include "credits/Credits.h"

namespace ornivo::app {

/// One of those whose work the program rests on, as its row says it.
struct CreditRow {
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(QString role MEMBER role)
    Q_PROPERTY(QUrl url MEMBER url)

public:
    QString name;
    /// The pictures and their licences, or who holds them; of a component, its licence.
    QString detail;
    /// What a component does here.
    QString role;
    /// Empty when there is no address to open.
    QUrl url;

    bool operator==(const CreditRow&) const = default;
};

/// Numbers are grouped as the locale does it; without one, as the user's locale does.
std::vector<CreditRow> sourceRows(const std::optional<Credits::Payload>& credits,
                                  const std::string& locale = {});
std::vector<CreditRow> componentRows(const std::optional<Credits::Payload>& credits);

/// The title over the roster of names.
QString photographersTitle(const std::optional<Credits::Payload>& credits);

/// What stands below the names that are shown.
QString countShown(int people, const std::string& locale = {});

/// Where a DOI leads to; empty for one that is none.
QUrl doiAddress(const Credits::Citation& citation);

}  // namespace ornivo::app
