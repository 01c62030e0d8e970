#pragma once

#include <QObject>
#include <QString>

#include "app/presentation/TonedText.h"

namespace ornivo::app {

/// A symbol that says how something stands, by the name of its drawing.
struct Mark {
    Q_GADGET
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(ornivo::app::TonedText::Tone tone MEMBER tone)

public:
    QString symbol;
    TonedText::Tone tone = TonedText::Tone::Plain;

    bool operator==(const Mark&) const = default;
};

}  // namespace ornivo::app
