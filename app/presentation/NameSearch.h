#pragma once

#include <QString>
#include <string>
#include <vector>

namespace ornivo::app {

/// Finds names in a long list by a part of them, without regard to case, by the rules of the user's
/// locale. Every name is prepared once, so that a search is one pass over all of them.
class NameSearch {
public:
    explicit NameSearch(const std::vector<std::string>& names);

    /// The places of the names that contain `part`, in order; all of them for blanks.
    std::vector<int> search(const QString& part) const;

private:
    /// The names one after another, each with a line end behind it.
    QString folded_;
    /// Where each begins, and at last where the next one would.
    std::vector<qsizetype> starts_{0};
};

}  // namespace ornivo::app
