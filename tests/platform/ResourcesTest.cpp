#include "platform/Resources.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <cstdlib>
#include <string>

#include "support/TempCaches.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
using ornivo::testing::readFile;
using ornivo::testing::TempCaches;
using ornivo::testing::TempFolder;

TEST(Resources, TheBundleOfTheBuildTreeLiesBesideTheProgram) {
    const fs::path program = fs::read_symlink("/proc/self/exe");
    EXPECT_EQ(Resources::bundle(), program.parent_path() / "OrnivoCore_OrnivoCore.bundle");
}

TEST(Resources, AResourceIsFoundByNameAndExtension) {
    const auto table = Resources::find("bird_common_names", "json");
    ASSERT_TRUE(table);
    EXPECT_EQ(table->filename(), "bird_common_names.json");
    EXPECT_TRUE(fs::is_regular_file(*table));
    EXPECT_TRUE(fs::is_directory(Resources::find("BirdClassifier", "mlpackage").value()));
}

TEST(Resources, AMissingResourceIsAbsent) {
    EXPECT_FALSE(Resources::find("bird_common_names", "xml"));
    EXPECT_FALSE(Resources::find("bird_common_names", ""));
}

/// Has a copy of this very program, somewhere else, look for its resources. Its words go to the
/// file `words` in `folder`. Answers the status that `system` answers.
int lookFrom(const fs::path& program, const TempFolder& folder) {
    fs::copy_file("/proc/self/exe", program);
    const std::string command =
        "TMPDIR=" + folder.path().string() + " exec " + program.string() +
        " --gtest_filter=Resources.AResourceIsFoundByNameAndExtension >/dev/null 2>" +
        (folder / "words").string();
    return std::system(command.c_str());
}

TEST(Resources, AProgramWithoutItsBundleSaysSoAndEnds) {
    const TempFolder folder;
    EXPECT_NE(lookFrom(folder / "program", folder), 0);
    EXPECT_EQ(readFile(folder / "words"),
              "OrnivoCore/resource_bundle_accessor: Fatal error: unable to find bundle named "
              "OrnivoCore_OrnivoCore\n");
}

TEST(Resources, AnInstalledProgramFindsTheBundleUnderShare) {
    const TempFolder prefix;
    fs::create_directories(prefix / "bin");
    fs::create_directories(prefix / "share/ornivo");
    fs::create_directory_symlink(Resources::bundle(),
                                 prefix / "share/ornivo/OrnivoCore_OrnivoCore.bundle");
    EXPECT_EQ(lookFrom(prefix / "bin/program", prefix), 0);
}

TEST(Resources, TheCachesDirectoryIsTheUsersAndIsMade) {
    const TempCaches caches;
    fs::remove(caches.path());
    EXPECT_EQ(Resources::cachesDirectory(), caches.path());
    EXPECT_TRUE(fs::is_directory(caches.path()));
    EXPECT_EQ(Resources::cachesDirectory(), caches.path()) << "also when it is there";
}

TEST(Resources, ARelativeCachesDirectoryDoesNotCount) {
    const TempCaches caches;
    setenv("XDG_CACHE_HOME", "caches", 1);
    const fs::path found = Resources::cachesDirectory();
    EXPECT_TRUE(found.is_absolute());
    EXPECT_EQ(found.filename(), ".cache");
}

}  // namespace
}  // namespace ornivo
