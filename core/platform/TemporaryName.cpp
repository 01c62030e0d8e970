#include "platform/TemporaryName.h"

#include <unistd.h>

#include <array>
#include <cstdio>
#include <random>

namespace ornivo {
namespace {

/// Short, so that it fits wherever the final name does.
std::string randomName() {
    std::random_device random;
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), ".ornivo-%08x%08x", random(), random());
    return name.data();
}

}  // namespace

TemporaryName::TemporaryName(const std::filesystem::path& folder) : path_(folder / randomName()) {}

TemporaryName::~TemporaryName() {
    ::unlink(path_.c_str());
}

}  // namespace ornivo
