#include "app/presentation/CreditsText.h"

#include <algorithm>
#include <iterator>

#include "platform/GroupedNumber.h"
#include "platform/Text.h"

namespace ornivo::app {
namespace {

QUrl address(const std::string& text) {
    const QUrl url(QString::fromStdString(text), QUrl::StrictMode);
    return url.isValid() ? url : QUrl();
}

}  // namespace

std::vector<CreditRow> sourceRows(const std::optional<Credits::Payload>& credits,
                                  const std::string& locale) {
    std::vector<CreditRow> rows;
    if (!credits) return rows;
    std::ranges::transform(
        credits->training.sources, std::back_inserter(rows), [&](const Credits::Source& source) {
            return CreditRow{
                .name = QString::fromStdString(source.name),
                .detail = QString::fromStdString(source.summary(locale).value_or(source.holder)),
                .role = {},
                .url = address(source.url)};
        });
    return rows;
}

std::vector<CreditRow> componentRows(const std::optional<Credits::Payload>& credits) {
    std::vector<CreditRow> rows;
    if (!credits) return rows;
    std::ranges::transform(
        credits->components, std::back_inserter(rows), [](const Credits::Component& component) {
            return CreditRow{
                .name = QString::fromStdString(component.name),
                .detail = QStringLiteral("· ") + QString::fromStdString(component.license),
                .role = QString::fromStdString(component.role),
                .url = address(component.url)};
        });
    return rows;
}

QString photographersTitle(const std::optional<Credits::Payload>& credits) {
    if (!Credits::rosterIsComplete(credits)) return QStringLiteral("Photographers");
    return QStringLiteral("Photographers (%1)").arg(credits->photographers.size());
}

QString countShown(int people, const std::string& locale) {
    return QStringLiteral("%1 shown — scroll, or search to find someone.")
        .arg(QString::fromStdString(groupedNumber(people, locale)));
}

QUrl doiAddress(const Credits::Citation& citation) {
    if (!citation.hasDOI()) return {};
    return QUrl(QStringLiteral("https://doi.org/") + QString::fromStdString(trimmed(citation.doi)));
}

}  // namespace ornivo::app
