#include "support/PrivateTrash.h"

#include <stdlib.h>

#include "support/TempFolder.h"

namespace ornivo::testing {
namespace {

/// A home folder whose trash serves the device of the temporary folders.
class PrivateHome {
public:
    PrivateHome() : trash_(folder_ / "data/Trash/files") {
        setenv("HOME", folder_.path().c_str(), 1);
        setenv("XDG_DATA_HOME", (folder_ / "data").c_str(), 1);
    }

    const std::filesystem::path& trash() const { return trash_; }

private:
    TempFolder folder_;
    std::filesystem::path trash_;
};

/// Made before `main`, since the trash is looked for once a process.
const PrivateHome home;

}  // namespace

const std::filesystem::path& privateTrash() {
    return home.trash();
}

}  // namespace ornivo::testing
