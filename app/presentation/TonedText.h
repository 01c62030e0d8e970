#pragma once

#include <QObject>
#include <QString>

namespace ornivo::app {

/// A text on the screen with what it means to the reader, from which its colour follows.
struct TonedText {
    Q_GADGET
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(Tone tone MEMBER tone)

public:
    /// In the order of the colours in `Theme.colourOf`.
    enum class Tone { Plain, Subtext, Accent, SoftAccent, Warn, Error };
    Q_ENUM(Tone)

    /// Empty where there is nothing to be said.
    QString text;
    Tone tone = Tone::Plain;

    bool operator==(const TonedText&) const = default;
};

}  // namespace ornivo::app
