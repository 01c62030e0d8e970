#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ornivo {

/// The named places with which a user says, by typing, where photographs were taken.
class PlaceGazetteer {
public:
    struct Place {
        std::string name;
        /// Other spellings.
        std::vector<std::string> aliases;
        /// Degrees, as the table has them.
        double latitude = 0;
        double longitude = 0;
        /// The region of the range table in which the place lies.
        std::string regionID;

        bool operator==(const Place&) const = default;
    };

    /// Earlier places win ties.
    explicit PlaceGazetteer(std::vector<Place> places) : places_(std::move(places)) {}

    /// Reads a table from JSON: an object whose member `places` is a list of objects. An object
    /// without a name, a position or a region is passed over; absent if none is left.
    static std::optional<PlaceGazetteer> fromJson(std::string_view json);

    /// The table that ships with the program, read anew on each call; absent if it cannot be read.
    static std::optional<PlaceGazetteer> bundled();

    const std::vector<Place>& places() const { return places_; }

    /// The one place that a finished text means: by its name, by an alias, as the only one that
    /// begins so, or by a slip of the fingers. Absent when there is none, or more than one begins
    /// so, since a guess would be a wrong guess.
    std::optional<Place> match(std::string_view typed) const;

    /// Up to `limit` places that hold what has been typed so far, those that begin with it first.
    std::vector<Place> suggestions(std::string_view typed, std::size_t limit) const;

private:
    std::vector<Place> places_;
};

}  // namespace ornivo
