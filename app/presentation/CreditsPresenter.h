#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QVariantList>
#include <optional>

#include "app/presentation/CreditsText.h"
#include "app/presentation/RosterModel.h"
#include "credits/Credits.h"

namespace ornivo::app {

/// What the credits show.
class CreditsPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT

    /// `CreditRow`s.
    Q_PROPERTY(QVariantList sources READ sources CONSTANT)
    Q_PROPERTY(QString trainingNote READ trainingNote CONSTANT)
    Q_PROPERTY(QString photographersTitle READ photographersTitle CONSTANT)
    Q_PROPERTY(bool rosterIsComplete READ rosterIsComplete CONSTANT)
    Q_PROPERTY(ornivo::app::RosterModel* people READ people CONSTANT)
    /// `CreditRow`s.
    Q_PROPERTY(QVariantList components READ components CONSTANT)
    Q_PROPERTY(QString citation READ citation CONSTANT)
    /// Empty when there is none.
    Q_PROPERTY(QString doi READ doi CONSTANT)
    Q_PROPERTY(QUrl doiAddress READ doiAddress CONSTANT)

public:
    /// The credits that ship with the program.
    explicit CreditsPresenter(QObject* parent = nullptr);
    /// The credits outlive this object.
    explicit CreditsPresenter(const std::optional<Credits::Payload>& credits,
                              QObject* parent = nullptr);

    QVariantList sources() const;
    QString trainingNote() const;
    QString photographersTitle() const { return app::photographersTitle(credits_); }
    bool rosterIsComplete() const { return Credits::rosterIsComplete(credits_); }
    RosterModel* people() { return &people_; }
    QVariantList components() const;
    QString citation() const;
    QString doi() const;
    QUrl doiAddress() const;

    /// Opens an address in the program that the desktop has for it; nothing happens for none.
    Q_INVOKABLE void open(const QUrl& address) const;

private:
    const std::optional<Credits::Payload>& credits_;
    RosterModel people_;
};

}  // namespace ornivo::app
