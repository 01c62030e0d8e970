#include "identification/SeasonTable.h"

#include <algorithm>
#include <charconv>
#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "identification/CompositePrior.h"
#include "identification/NoSpeciesPrior.h"
#include "platform/Resources.h"

namespace ornivo {
namespace {

using nlohmann::json;

constexpr std::size_t monthsOfTheYear = 12;

/// The month that a key names in decimal, as in "7", "07" and "+7".
std::optional<int> month(std::string_view key) {
    const bool hasPlus = key.starts_with('+') && !key.starts_with("+-");
    if (hasPlus) key.remove_prefix(1);
    int number = 0;
    const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), number);
    if (error != std::errc() || end != key.data() + key.size()) return std::nullopt;
    return number >= 1 && number <= 12 ? std::optional(number) : std::nullopt;
}

bool isListOfTexts(const json& value) {
    return value.is_array() &&
           std::ranges::all_of(value, [](const json& element) { return element.is_string(); });
}

/// The member under a key if it has the right type, otherwise the fallback.
template <typename Value>
Value memberOr(const json& object, const char* key, bool (json::*hasType)() const noexcept,
               Value fallback) {
    const auto found = object.find(key);
    return found != object.end() && ((*found).*hasType)() ? found->get<Value>() : fallback;
}

}  // namespace

std::optional<SeasonTable> SeasonTable::fromJson(std::string_view bytes) {
    const json top = json::parse(bytes, nullptr, /*allow_exceptions=*/false);
    if (!top.is_object()) return std::nullopt;
    const auto months = top.find("months");
    if (months == top.end() || !months->is_object()) return std::nullopt;
    if (!std::ranges::all_of(*months, isListOfTexts)) return std::nullopt;

    SeasonTable table;
    table.version_ = memberOr(top, "version", &json::is_number_integer, 1);
    table.source_ = memberOr(top, "source", &json::is_string, std::string());
    for (const auto& [key, labels] : months->items()) {
        if (const auto number = month(key)) table.labelsByMonth_[*number] = labels.get<Labels>();
    }
    if (table.labelsByMonth_.size() != monthsOfTheYear) return std::nullopt;
    return table;
}

std::optional<SeasonTable> SeasonTable::bundled() {
    const auto bytes = Resources::read("season_months", "json");
    return bytes ? fromJson(*bytes) : std::nullopt;
}

std::shared_ptr<const SpeciesPrior> SeasonTable::combinedPrior(
    std::optional<RangeTable> ranges, std::optional<SeasonTable> seasons,
    const std::optional<std::string>& restrictedTo) {
    std::vector<std::shared_ptr<const SpeciesPrior>> priors;
    if (ranges) priors.push_back(std::move(*ranges).prior(offRangeWeight, restrictedTo));
    if (seasons) priors.push_back(std::move(*seasons).prior(offSeasonWeight));

    if (priors.empty()) return std::make_shared<NoSpeciesPrior>();
    if (priors.size() == 1) return priors.front();
    return std::make_shared<CompositePrior>(std::move(priors));
}

std::shared_ptr<const SpeciesPrior> SeasonTable::bundledCombinedPrior(
    const std::optional<std::string>& restrictedTo) {
    return combinedPrior(RangeTable::bundled(), bundled(), restrictedTo);
}

const SeasonTable::Labels& SeasonTable::labels(int month) const {
    static const Labels none;
    const auto found = labelsByMonth_.find(month);
    return found != labelsByMonth_.end() ? found->second : none;
}

std::shared_ptr<const SeasonPrior> SeasonTable::prior(double weight) const& {
    return SeasonTable(*this).prior(weight);
}

std::shared_ptr<const SeasonPrior> SeasonTable::prior(double weight) && {
    return std::make_shared<SeasonPrior>(std::move(labelsByMonth_), weight);
}

}  // namespace ornivo
