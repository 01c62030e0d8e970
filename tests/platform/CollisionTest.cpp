#include "platform/Collision.h"

#include <gtest/gtest.h>

#include "platform/ForwardingFiles.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
using testing::TempFolder;
using testing::writeFile;

class Collision : public ::testing::Test {
protected:
    std::string resolved(const std::string& name) {
        return resolveCollision(folder_ / name, *Files::system()).filename();
    }

    void take(const std::string& name) { writeFile(folder_ / name, "taken"); }

    TempFolder folder_;
};

TEST_F(Collision, AFreeNameIsTaken) {
    EXPECT_EQ(resolved("IMG_1.jpg"), "IMG_1.jpg");
}

TEST_F(Collision, ATakenNameGetsTheFirstFreeNumber) {
    take("IMG_1.jpg");
    EXPECT_EQ(resolved("IMG_1.jpg"), "IMG_1_1.jpg");
    take("IMG_1_1.jpg");
    EXPECT_EQ(resolved("IMG_1.jpg"), "IMG_1_2.jpg");
    take("IMG_1_3.jpg");
    EXPECT_EQ(resolved("IMG_1.jpg"), "IMG_1_2.jpg");
}

TEST_F(Collision, TheDotIsWrittenWithoutAnExtensionToo) {
    take("README");
    EXPECT_EQ(resolved("README"), "README_1.");
}

TEST_F(Collision, OnlyTheLastExtensionCountsAsOne) {
    take("IMG_1.jpg.xmp");
    EXPECT_EQ(resolved("IMG_1.jpg.xmp"), "IMG_1.jpg_1.xmp");
}

TEST_F(Collision, FoldersAndDanglingLinksTakeANameToo) {
    fs::create_directory(folder_ / "a.jpg");
    fs::create_symlink("nowhere", folder_ / "b.jpg");
    EXPECT_EQ(resolved("a.jpg"), "a_1.jpg");
    EXPECT_EQ(resolved("b.jpg"), "b_1.jpg");
}

/// Files in whose folders every name but a few is taken.
class CrowdedFiles : public ForwardingFiles {
public:
    explicit CrowdedFiles(std::string freeName)
        : ForwardingFiles(Files::system()), freeName_(std::move(freeName)) {}

    bool exists(const fs::path& path) const override { return path.filename() != freeName_; }

private:
    std::string freeName_;
};

TEST_F(Collision, TheLastNumberIs9999AndThenTheNameItselfIsAnswered) {
    EXPECT_EQ(resolveCollision("/x/a.jpg", CrowdedFiles("a_9999.jpg")), "/x/a_9999.jpg");
    EXPECT_EQ(resolveCollision("/x/a.jpg", CrowdedFiles("a_10000.jpg")), "/x/a.jpg");
}

}  // namespace
}  // namespace ornivo
