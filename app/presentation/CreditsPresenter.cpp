#include "app/presentation/CreditsPresenter.h"

#include <QDesktopServices>

#include "app/presentation/Variants.h"

namespace ornivo::app {
namespace {

/// None unless the roster is complete, whatever the file holds.
const std::vector<std::string>& roster(const std::optional<Credits::Payload>& credits) {
    static const std::vector<std::string> none;
    return Credits::rosterIsComplete(credits) ? credits->photographers : none;
}

}  // namespace

CreditsPresenter::CreditsPresenter(QObject* parent)
    : CreditsPresenter(Credits::payload(), parent) {}

CreditsPresenter::CreditsPresenter(const std::optional<Credits::Payload>& credits, QObject* parent)
    : QObject(parent), credits_(credits), people_(roster(credits)) {}

QVariantList CreditsPresenter::sources() const {
    return variants(sourceRows(credits_));
}

QString CreditsPresenter::trainingNote() const {
    return credits_ ? QString::fromStdString(credits_->training.note) : QString();
}

QVariantList CreditsPresenter::components() const {
    return variants(componentRows(credits_));
}

QString CreditsPresenter::citation() const {
    return credits_ ? QString::fromStdString(credits_->gbifCitation.text) : QString();
}

QString CreditsPresenter::doi() const {
    return credits_ ? QString::fromStdString(credits_->gbifCitation.doi).trimmed() : QString();
}

QUrl CreditsPresenter::doiAddress() const {
    return credits_ ? app::doiAddress(credits_->gbifCitation) : QUrl();
}

void CreditsPresenter::open(const QUrl& address) const {
    if (address.isValid()) QDesktopServices::openUrl(address);
}

}  // namespace ornivo::app
