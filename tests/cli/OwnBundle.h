#pragma once

#include <filesystem>
#include <string>

#include "support/TempFolder.h"

namespace ornivo::testing {

/// The program with data of its own beside it, to be broken at will: at first those that ship.
class OwnBundle {
public:
    OwnBundle();

    /// The program to run.
    std::string program() const;

    /// A file of the data.
    std::filesystem::path file(const std::string& name) const;

private:
    TempFolder folder_;
};

}  // namespace ornivo::testing
