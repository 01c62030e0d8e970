#pragma once

#include <QVariantList>
#include <vector>

namespace ornivo::app {

/// Values in a form that QML can repeat an element for.
template <typename Value>
QVariantList variants(const std::vector<Value>& values) {
    QVariantList list;
    list.reserve(static_cast<qsizetype>(values.size()));
    for (const Value& value : values) list.append(QVariant::fromValue(value));
    return list;
}

}  // namespace ornivo::app
