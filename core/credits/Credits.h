#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ornivo::Credits {

/// A source of training pictures.
struct Source {
    std::string id;
    std::string name;
    /// Who holds the material.
    std::string holder;
    std::string url;
    /// Pictures taken from it.
    int images = 0;
    /// Licence to the number of pictures under it.
    std::map<std::string, int> licenses;

    /// The pictures and their licences in words, the number grouped as the locale does, without
    /// one as the user's does; absent when there are no pictures.
    std::optional<std::string> summary(const std::string& locale = {}) const;

    bool operator==(const Source&) const = default;
};

/// Something the program is built with.
struct Component {
    std::string name;
    /// What it does here.
    std::string role;
    std::string holder;
    std::string license;
    /// How to cite it.
    std::string citation;
    std::string url;

    bool operator==(const Component&) const = default;
};

/// The citation of the derived data set.
struct Citation {
    std::string doi;
    std::string text;

    bool hasDOI() const;

    bool operator==(const Citation&) const = default;
};

/// Where the training pictures came from.
struct Training {
    int imagesTotal = 0;
    std::vector<Source> sources;
    /// A free remark.
    std::string note;

    bool operator==(const Training&) const = default;
};

/// The whole of credits.json.
struct Payload {
    /// Version of the file's form.
    int version = 0;
    /// When the file was made.
    std::string generated;
    /// "complete" when the full roster of photographers is in the file.
    std::string rosterStatus;
    Training training;
    Citation gbifCitation;
    std::vector<Component> components;
    std::vector<std::string> photographers;

    bool operator==(const Payload&) const = default;
};

/// Reads credits from JSON; absent when anything is missing or of another type.
std::optional<Payload> fromJson(std::string_view json);

/// Whether the full roster is there.
bool rosterIsComplete(const std::optional<Payload>& payload);

/// What is still owed to those whose work this is, in sentences; none when nothing is.
std::vector<std::string> outstandingObligations(const std::optional<Payload>& payload);

/// The credits that ship with the program, read on first use; absent if they cannot be read.
const std::optional<Payload>& payload();

/// The answers for the credits that ship, worked out on first use.
bool rosterIsComplete();
const std::vector<std::string>& outstandingObligations();

/// What the payload holds; none without one.
const std::vector<Source>& sources();
const std::vector<Component>& components();
const std::vector<std::string>& photographers();

}  // namespace ornivo::Credits
