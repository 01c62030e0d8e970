#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace ornivo {

/// The text forms of an enumeration's cases, in their order: specialise with a static
/// `constexpr std::array` named `table` of `RawValue` entries.
template <typename E>
struct RawValues;

template <typename E>
struct RawValue {
    E value;
    std::string_view text;
};

/// The text under which a case is stored.
template <typename E>
constexpr std::string_view rawValue(E value) {
    for (const auto& entry : RawValues<E>::table) {
        if (entry.value == value) return entry.text;
    }
    return {};
}

/// The case stored under a text; absent for a text that is none of them.
template <typename E>
constexpr std::optional<E> fromRawValue(std::string_view text) {
    for (const auto& entry : RawValues<E>::table) {
        if (entry.text == text) return entry.value;
    }
    return std::nullopt;
}

/// Every case, in the enumeration's order.
template <typename E>
constexpr auto allCases() {
    std::array<E, RawValues<E>::table.size()> cases{};
    for (std::size_t i = 0; i < cases.size(); ++i) cases[i] = RawValues<E>::table[i].value;
    return cases;
}

}  // namespace ornivo
