#pragma once

#include <stdexcept>

namespace ornivo::cli {

/// The user asked for something that can't be done as asked. The words are a whole sentence.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace ornivo::cli
