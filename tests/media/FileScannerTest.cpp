#include "media/FileScanner.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "support/TempFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The files found, relative to the folder.
std::vector<std::string> found(const fs::path& folder) {
    std::vector<std::string> names;
    for (const fs::path& file : FileScanner::collectImages(folder)) {
        names.push_back(file.lexically_relative(folder));
    }
    return names;
}

TEST(FileScanner, ImageExtensionsAreTheseSixteen) {
    EXPECT_THAT(FileScanner::imageExtensions(),
                ElementsAre("arw", "cr2", "cr3", "dng", "heic", "heif", "jpeg", "jpg", "nef", "orf",
                            "png", "raw", "rw2", "tif", "tiff", "webp"));
}

TEST(FileScanner, MediaExtensionsAreThoseOfImagesAndClips) {
    auto expected = FileScanner::imageExtensions();
    expected.insert({"mov", "mp4", "m4v"});
    EXPECT_EQ(FileScanner::mediaExtensions(), expected);
}

TEST(FileScanner, LibraryPackageExtensionsAreTheseSeven) {
    EXPECT_THAT(FileScanner::libraryPackageExtensions(),
                ElementsAre("aplibrary", "cocatalog", "lrdata", "lrlibrary", "migratedaplibrary",
                            "photolibrary", "photoslibrary"));
}

TEST(FileScanner, ASourceFolderThatIsALibraryIsRefused) {
    const TempFolder folder;
    writeFile(folder / "Birds.photoslibrary/IMG_1.jpg", "bird");
    const auto scan = FileScanner::scan(folder / "Birds.photoslibrary");
    EXPECT_EQ(scan.refusedLibrary, "Birds.photoslibrary");
    EXPECT_THAT(scan.images, IsEmpty());
    EXPECT_EQ(scan.totalBytes, 0);
}

TEST(FileScanner, EveryKindOfLibraryIsRefused) {
    for (const auto& extension : FileScanner::libraryPackageExtensions()) {
        EXPECT_EQ(FileScanner::scan("/x/Birds." + extension).refusedLibrary, "Birds." + extension);
    }
}

TEST(FileScanner, AFolderInsideALibraryIsRefusedWithTheLibrarysNameWhateverItsCase) {
    EXPECT_EQ(FileScanner::scan("/x/Old.LRLIBRARY/Previews").refusedLibrary, "Old.LRLIBRARY");
    EXPECT_EQ(FileScanner::scan("/x/Old.lrlibrary/a/b/c/").refusedLibrary, "Old.lrlibrary");
}

TEST(FileScanner, ALinkIntoALibraryIsRefused) {
    const TempFolder folder;
    writeFile(folder / "Birds.photoslibrary/originals/IMG_1.jpg", "bird");
    fs::create_directory_symlink(folder / "Birds.photoslibrary/originals", folder / "link");
    const auto scan = FileScanner::scan(folder / "link");
    EXPECT_EQ(scan.refusedLibrary, "Birds.photoslibrary");
    EXPECT_THAT(scan.images, IsEmpty());
}

TEST(FileScanner, TheNearestLibraryIsNamed) {
    EXPECT_EQ(FileScanner::enclosingLibrary("/a.lrdata/b.cocatalog/c"), "/a.lrdata/b.cocatalog");
    EXPECT_EQ(FileScanner::enclosingLibrary("/a.lrdata/../b"), std::nullopt);
    EXPECT_EQ(FileScanner::enclosingLibrary("/a/b.jpg"), std::nullopt);
}

TEST(FileScanner, TheRootFolderIsNotRefused) {
    EXPECT_EQ(FileScanner::enclosingLibrary("/"), std::nullopt);
}

TEST(FileScanner, ALibraryInsideTheSourceIsPassedOver) {
    const TempFolder folder;
    writeFile(folder / "Catalog.cocatalog/IMG_1.jpg", "bird");
    writeFile(folder / "Catalog.COCATALOG/deep/IMG_2.jpg", "bird");
    writeFile(folder / "ordinary/IMG_3.jpg", "bird");
    EXPECT_THAT(found(folder.path()), ElementsAre("ordinary/IMG_3.jpg"));
    EXPECT_FALSE(FileScanner::scan(folder.path()).refusedLibrary);
}

TEST(FileScanner, TheExtensionDecidesWhateverItsCase) {
    const TempFolder folder;
    for (const char* name : {"IMG_1.JPG", ".IMG_1.jpg", "IMG_1.jpg.tmp", "IMG_1", "notes.txt",
                             "jpg", "IMG_2.Cr2", ".hidden/IMG_3.jpg"}) {
        writeFile(folder / name, "bird");
    }
    EXPECT_THAT(found(folder.path()), ElementsAre("IMG_1.JPG", "IMG_2.Cr2"));
}

TEST(FileScanner, EveryMediaExtensionIsTaken) {
    const TempFolder folder;
    std::vector<std::string> names;
    for (const auto& extension : FileScanner::mediaExtensions()) {
        names.push_back("a." + extension);
        writeFile(folder / names.back(), "");
    }
    EXPECT_EQ(found(folder.path()), names);
}

TEST(FileScanner, ClipsAreListedAndCounted) {
    const TempFolder folder;
    for (const char* name : {"a.m4v", "b.mov", "c.mp4"}) {
        writeFile(folder / name, std::string(10'000, 'x'));
    }
    EXPECT_THAT(found(folder.path()), ElementsAre("a.m4v", "b.mov", "c.mp4"));
    EXPECT_GE(FileScanner::scan(folder.path()).totalBytes, 30'000);
}

TEST(FileScanner, AFolderNamedLikeAFileIsNotListedAndItsPhotographsAreNotLost) {
    const TempFolder folder;
    writeFile(folder / "clip.mov/IMG_1.jpg", "bird");
    writeFile(folder / "x.jpg/notes.txt", "");
    EXPECT_THAT(found(folder.path()), ElementsAre("clip.mov/IMG_1.jpg"));
}

TEST(FileScanner, LinksArePassedOver) {
    const TempFolder folder;
    const TempFolder elsewhere;
    writeFile(elsewhere / "IMG_1.jpg", "bird");
    fs::create_symlink(elsewhere / "IMG_1.jpg", folder / "file.jpg");
    fs::create_symlink("nowhere.jpg", folder / "dangling.jpg");
    fs::create_directory_symlink(elsewhere.path(), folder / "folder");
    EXPECT_THAT(found(folder.path()), IsEmpty());
}

TEST(FileScanner, ASourceFolderThatIsALinkOrHiddenIsScanned) {
    const TempFolder folder;
    writeFile(folder / ".birds/IMG_1.jpg", "bird");
    fs::create_directory_symlink(folder / ".birds", folder / "link");
    EXPECT_THAT(found(folder / ".birds"), ElementsAre("IMG_1.jpg"));
    EXPECT_THAT(found(folder / "link"), ElementsAre("IMG_1.jpg"));
}

TEST(FileScanner, FilesComeDepthFirstInPlainTextOrder) {
    const TempFolder folder;
    for (const char* name : {"b/2.jpg", "b/1.jpg", "a.jpg", "c.jpg", "IMG_10.jpg", "IMG_9.jpg"}) {
        writeFile(folder / name, "");
    }
    EXPECT_THAT(found(folder.path()),
                ElementsAre("IMG_10.jpg", "IMG_9.jpg", "a.jpg", "b/1.jpg", "b/2.jpg", "c.jpg"));
}

TEST(FileScanner, NamesThatAreNoUTF8AreFound) {
    const TempFolder folder;
    const fs::path file = writeFile(folder / "Gr\xFCn/M\xF6we.JPG", "bird");
    EXPECT_THAT(FileScanner::collectImages(folder.path()), ElementsAre(file));
}

TEST(FileScanner, ASparseFileCountsByWhatItTakesUp) {
    const TempFolder folder;
    writeFile(folder / "a.jpg", "");
    fs::resize_file(folder / "a.jpg", 50'000'000);
    const auto scan = FileScanner::scan(folder.path());
    EXPECT_EQ(scan.images.size(), 1u);
    EXPECT_LT(scan.totalBytes, 50'000);
}

TEST(FileScanner, AFileThatTakesUpNothingIsListedAndAddsNothing) {
    const TempFolder folder;
    writeFile(folder / "a.jpg", "");
    const auto scan = FileScanner::scan(folder.path());
    EXPECT_EQ(scan.images.size(), 1u);
    EXPECT_EQ(scan.totalBytes, 0);
}

TEST(FileScanner, AMissingSourceIsAnEmptyScanWithoutARefusal) {
    const auto scan = FileScanner::scan("/no/such/folder");
    EXPECT_THAT(scan.images, IsEmpty());
    EXPECT_EQ(scan.totalBytes, 0);
    EXPECT_FALSE(scan.refusedLibrary);
    EXPECT_FALSE(scan.refusalMessage());
}

TEST(FileScanner, AnUnreadableSubfolderIsPassedOver) {
    if (geteuid() == 0) GTEST_SKIP() << "root may read every folder";
    const TempFolder folder;
    writeFile(folder / "a/IMG_1.jpg", "");
    writeFile(folder / "b/IMG_2.jpg", "");
    fs::permissions(folder / "a", fs::perms::none);
    EXPECT_THAT(found(folder.path()), ElementsAre("b/IMG_2.jpg"));
    fs::permissions(folder / "a", fs::perms::owner_all);
}

TEST(FileScanner, TheRefusalNamesTheLibrary) {
    FileScanner::Scan scan;
    scan.refusedLibrary = "Birds.photoslibrary";
    EXPECT_EQ(
        scan.refusalMessage(),
        "Birds.photoslibrary is a managed photo library. Ornivo won't sort inside one — those "
        "photographs belong to another app, which tracks them by name and location. Export "
        "the ones you want into an ordinary folder first, then sort that.");
}

}  // namespace
}  // namespace ornivo
