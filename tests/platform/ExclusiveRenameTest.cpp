#include "platform/ExclusiveRename.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include "support/TempFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
using ornivo::testing::readFile;
using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;

using Way = int (*)(const fs::path&, const fs::path&);

/// Whatever way a file system knows, the promise is the same.
class ExclusiveRenameBy : public ::testing::TestWithParam<Way> {
protected:
    TempFolder folder_;
};

TEST_P(ExclusiveRenameBy, TheFileGetsTheFreeName) {
    writeFile(folder_ / "old", "bird");
    EXPECT_EQ(GetParam()(folder_ / "old", folder_ / "new"), 0);
    EXPECT_EQ(readFile(folder_ / "new"), "bird");
    EXPECT_FALSE(fs::exists(folder_ / "old"));
}

TEST_P(ExclusiveRenameBy, ATakenNameStaysAsItIs) {
    writeFile(folder_ / "old", "bird");
    writeFile(folder_ / "new", "other");
    EXPECT_EQ(GetParam()(folder_ / "old", folder_ / "new"), EEXIST);
    EXPECT_EQ(readFile(folder_ / "new"), "other");
    EXPECT_EQ(readFile(folder_ / "old"), "bird");
}

TEST_P(ExclusiveRenameBy, ADanglingLinkHoldsItsName) {
    writeFile(folder_ / "old", "bird");
    fs::create_symlink("nowhere", folder_ / "new");
    EXPECT_EQ(GetParam()(folder_ / "old", folder_ / "new"), EEXIST);
    EXPECT_TRUE(fs::is_symlink(folder_ / "new"));
    EXPECT_FALSE(fs::exists(folder_ / "nowhere"));
    EXPECT_EQ(readFile(folder_ / "old"), "bird");
}

TEST_P(ExclusiveRenameBy, AFolderHoldsItsName) {
    writeFile(folder_ / "old", "bird");
    fs::create_directory(folder_ / "new");
    EXPECT_EQ(GetParam()(folder_ / "old", folder_ / "new"), EEXIST);
    EXPECT_EQ(readFile(folder_ / "old"), "bird");
}

TEST_P(ExclusiveRenameBy, AMissingFileLeavesNothingUnderTheNewName) {
    EXPECT_EQ(GetParam()(folder_ / "old", folder_ / "new"), ENOENT);
    EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_P(ExclusiveRenameBy, AMissingTargetFolderIsAFailure) {
    writeFile(folder_ / "old", "bird");
    EXPECT_EQ(GetParam()(folder_ / "old", folder_ / "missing/new"), ENOENT);
    EXPECT_EQ(readFile(folder_ / "old"), "bird");
}

std::string nameOf(const ::testing::TestParamInfo<Way>& way) {
    if (way.param == &ExclusiveRename::byFlag) return "Flag";
    if (way.param == &ExclusiveRename::byLink) return "Link";
    if (way.param == &ExclusiveRename::byClaim) return "Claim";
    return "TheFirstThatIsKnown";
}

INSTANTIATE_TEST_SUITE_P(Ways, ExclusiveRenameBy,
                         ::testing::Values(&ExclusiveRename::rename, &ExclusiveRename::byFlag,
                                           &ExclusiveRename::byLink, &ExclusiveRename::byClaim),
                         nameOf);

}  // namespace
}  // namespace ornivo
