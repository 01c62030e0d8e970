#include "cli/OwnBundle.h"

#include "cli/Program.h"

namespace ornivo::testing {

namespace fs = std::filesystem;

namespace {

constexpr const char* bundleName = "OrnivoCore_OrnivoCore.bundle";

}  // namespace

OwnBundle::OwnBundle() {
    fs::copy_file(builtProgram(), program());
    fs::create_directory(folder_ / bundleName);
    for (const auto& entry :
         fs::directory_iterator(fs::path(builtProgram()).parent_path() / bundleName)) {
        const fs::path name = folder_ / bundleName / entry.path().filename();
        // The model is large, and no test writes into it.
        entry.is_directory() ? fs::create_directory_symlink(entry.path(), name)
                             : fs::copy(entry.path(), name);
    }
}

std::string OwnBundle::program() const {
    return folder_ / "ornivo-cli";
}

fs::path OwnBundle::file(const std::string& name) const {
    return folder_ / bundleName / name;
}

}  // namespace ornivo::testing
