#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <string>

#include "platform/Error.h"
#include "platform/Files.h"
#include "support/PrivateTrash.h"
#include "support/SmallDisk.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
using ornivo::testing::privateTrash;
using ornivo::testing::readFile;
using ornivo::testing::SmallDisk;
using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;
using ::testing::ElementsAre;

class SystemFiles : public ::testing::Test {
protected:
    const std::shared_ptr<Files> files_ = Files::system();
    const TempFolder folder_;
};

Error failureOf(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const Error& error) {
        return error;
    }
    ADD_FAILURE() << "no failure";
    return Error::unreadableFile();
}

TEST_F(SystemFiles, WhateverHasANameExists) {
    writeFile(folder_ / "file", "");
    fs::create_directory(folder_ / "folder");
    fs::create_symlink("nowhere", folder_ / "dangling");
    EXPECT_TRUE(files_->exists(folder_ / "file"));
    EXPECT_TRUE(files_->exists(folder_ / "folder"));
    EXPECT_TRUE(files_->exists(folder_ / "dangling"));
    EXPECT_FALSE(files_->exists(folder_ / "gone"));
    EXPECT_FALSE(files_->exists(folder_ / "file/below"));
}

TEST_F(SystemFiles, AFolderIsToldFromAFileAndFromALink) {
    writeFile(folder_ / "file", "");
    fs::create_directory(folder_ / "folder");
    fs::create_directory_symlink("folder", folder_ / "link");
    EXPECT_TRUE(files_->isFolder(folder_ / "folder"));
    for (const char* other : {"file", "link", "gone", "file/below"}) {
        EXPECT_FALSE(files_->isFolder(folder_ / other)) << other;
    }
}

TEST_F(SystemFiles, NamesAreListedInPlainTextOrder) {
    for (const char* name : {"b", "B", ".h", "M\xF6we"}) writeFile(folder_ / name, "");
    EXPECT_THAT(files_->namesIn(folder_.path()), ElementsAre(".h", "B", "M\xF6we", "b"));
    EXPECT_EQ(failureOf([&] { files_->namesIn(folder_ / "gone"); }).localizedDescription(),
              "The folder \"gone\" couldn't be listed: No such file or directory");
}

TEST_F(SystemFiles, TheModificationTimeIsTheFilesOwn) {
    const fs::path file = writeFile(folder_ / "a", "");
    const timespec times[2] = {{0, UTIME_OMIT}, {1'234'567'890, 999'999'999}};
    ASSERT_EQ(utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
    EXPECT_EQ(files_->modificationTime(file), 1'234'567'890);
    EXPECT_FALSE(files_->modificationTime(folder_ / "gone"));
}

TEST_F(SystemFiles, AFileIsReadWhole) {
    const std::string contents = std::string("a\0b", 3) + std::string(200'000, 'x');
    EXPECT_EQ(files_->read(writeFile(folder_ / "a", contents)), contents);
    EXPECT_EQ(files_->read(writeFile(folder_ / "b", "")), "");
    EXPECT_FALSE(files_->read("/proc/self/status").empty()) << "whatever length it tells";
}

TEST_F(SystemFiles, WhatIsNoOrdinaryFileIsNotReadAndAPipeDoesNotBlock) {
    writeFile(folder_ / "real", "bird");
    fs::create_symlink("real", folder_ / "link");
    fs::create_directory(folder_ / "folder");
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(failureOf([&] { files_->read(folder_ / "pipe"); }).localizedDescription(),
              "\"pipe\" couldn't be read: It is not an ordinary file");
    EXPECT_EQ(failureOf([&] { files_->read(folder_ / "folder"); }).localizedDescription(),
              "\"folder\" couldn't be read: It is not an ordinary file");
    EXPECT_EQ(failureOf([&] { files_->read(folder_ / "link"); }).code(), ELOOP);
    EXPECT_EQ(failureOf([&] { files_->read(folder_ / "gone"); }).localizedDescription(),
              "\"gone\" couldn't be read: No such file or directory");
}

TEST_F(SystemFiles, FoldersAreMadeWithThoseAboveThem) {
    files_->createDirectories(folder_ / "a/b/c");
    EXPECT_TRUE(fs::is_directory(folder_ / "a/b/c"));
    files_->createDirectories(folder_ / "a/d/");
    EXPECT_TRUE(fs::is_directory(folder_ / "a/d"));
}

TEST_F(SystemFiles, AFolderThatIsThereAlreadyIsNoFailure) {
    files_->createDirectories(folder_.path());
    fs::create_directory(folder_ / "real");
    fs::create_directory_symlink("real", folder_ / "link");
    files_->createDirectories(folder_ / "link");
    files_->createDirectories(folder_ / "link/below");
    EXPECT_TRUE(fs::is_directory(folder_ / "real/below"));
}

TEST_F(SystemFiles, AFileInTheWayOfAFolderIsAFailure) {
    writeFile(folder_ / "Bald Eagle", "");
    const Error inPlace = failureOf([&] { files_->createDirectories(folder_ / "Bald Eagle"); });
    EXPECT_EQ(inPlace.localizedDescription(),
              "The folder \"Bald Eagle\" couldn't be made: File exists");
    EXPECT_EQ(inPlace.code(), EEXIST);
    const Error above = failureOf([&] { files_->createDirectories(folder_ / "Bald Eagle/day"); });
    EXPECT_EQ(above.localizedDescription(), "The folder \"day\" couldn't be made: Not a directory");
}

TEST_F(SystemFiles, ADanglingLinkInTheWayOfAFolderIsAFailure) {
    fs::create_symlink("nowhere", folder_ / "link");
    EXPECT_EQ(failureOf([&] { files_->createDirectories(folder_ / "link/a"); }).code(), EEXIST);
    EXPECT_FALSE(fs::exists(folder_ / "nowhere"));
}

TEST_F(SystemFiles, AFileIsMovedToAFreeNameAlone) {
    writeFile(folder_ / "a", "bird");
    files_->move(folder_ / "a", folder_ / "b");
    EXPECT_EQ(readFile(folder_ / "b"), "bird");
    EXPECT_FALSE(fs::exists(folder_ / "a"));

    writeFile(folder_ / "c", "other");
    const Error error = failureOf([&] { files_->move(folder_ / "b", folder_ / "c"); });
    EXPECT_EQ(error.localizedDescription(), "\"b\" couldn't be moved: File exists");
    EXPECT_EQ(error.code(), EEXIST);
    EXPECT_EQ(readFile(folder_ / "b"), "bird");
    EXPECT_EQ(readFile(folder_ / "c"), "other");
}

TEST_F(SystemFiles, AMissingFileCannotBeMoved) {
    EXPECT_EQ(
        failureOf([&] { files_->move(folder_ / "gone", folder_ / "b"); }).localizedDescription(),
        "\"gone\" couldn't be moved: No such file or directory");
}

TEST_F(SystemFiles, AFileIsMovedAcrossVolumes) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "no file system can be mounted here";
    writeFile(folder_ / "a", "bird");
    writeFile(*disk / "taken", "other");
    EXPECT_EQ(failureOf([&] { files_->move(folder_ / "a", *disk / "taken"); }).code(), EEXIST);
    EXPECT_EQ(readFile(folder_ / "a"), "bird");

    files_->move(folder_ / "a", *disk / "a");
    EXPECT_EQ(readFile(*disk / "a"), "bird");
    EXPECT_FALSE(fs::exists(folder_ / "a"));
    EXPECT_EQ(readFile(*disk / "taken"), "other");
}

TEST_F(SystemFiles, AMoveToAFullVolumeLeavesTheFileWhereItWas) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "no file system can be mounted here";
    const std::string contents(3'000'000, 'x');
    writeFile(folder_ / "a", contents);
    EXPECT_EQ(failureOf([&] { files_->move(folder_ / "a", *disk / "a"); }).code(), ENOSPC);
    EXPECT_EQ(readFile(folder_ / "a"), contents);
    EXPECT_TRUE(fs::is_empty(disk->path()));
}

TEST_F(SystemFiles, AMoveFromAVolumeThatCannotChangeLeavesNoSecondFile) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "no file system can be mounted here";
    writeFile(*disk / "a", "bird");
    ASSERT_TRUE(disk->makeReadOnly());
    EXPECT_EQ(failureOf([&] { files_->move(*disk / "a", folder_ / "a"); }).localizedDescription(),
              "\"a\" couldn't be moved: Read-only file system");
    EXPECT_EQ(readFile(*disk / "a"), "bird");
    EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_F(SystemFiles, OneFileIsRemovedAndNeverAFolder) {
    writeFile(folder_ / "a", "");
    fs::create_directory(folder_ / "folder");
    files_->remove(folder_ / "a");
    EXPECT_FALSE(fs::exists(folder_ / "a"));
    EXPECT_EQ(failureOf([&] { files_->remove(folder_ / "a"); }).localizedDescription(),
              "\"a\" couldn't be removed: No such file or directory");
    failureOf([&] { files_->remove(folder_ / "folder"); });
    EXPECT_TRUE(fs::exists(folder_ / "folder"));
}

TEST_F(SystemFiles, ALinkIsRemovedAndWhatItLeadsToStays) {
    writeFile(folder_ / "real", "bird");
    fs::create_symlink("real", folder_ / "link");
    files_->remove(folder_ / "link");
    EXPECT_EQ(readFile(folder_ / "real"), "bird");
}

TEST_F(SystemFiles, WhatIsTrashedCanBeHadBack) {
    writeFile(folder_ / "IMG_trash.jpg", "bird");
    EXPECT_FALSE(files_->trash(folder_ / "IMG_trash.jpg")) << "the system does not tell where";
    EXPECT_FALSE(fs::exists(folder_ / "IMG_trash.jpg"));
    EXPECT_EQ(readFile(privateTrash() / "IMG_trash.jpg"), "bird");
}

TEST_F(SystemFiles, TrashedFilesOfOneNameAreAllKept) {
    for (int i = 0; i < 3; ++i) {
        files_->trash(writeFile(folder_ / "same.jpg", std::to_string(i)));
    }
    std::set<std::string> contents;
    for (const auto& entry : fs::directory_iterator(privateTrash())) {
        if (entry.path().filename().string().starts_with("same")) {
            contents.insert(readFile(entry.path()));
        }
    }
    EXPECT_THAT(contents, ElementsAre("0", "1", "2"));
}

TEST_F(SystemFiles, ALinkIsTrashedAndWhatItLeadsToStays) {
    writeFile(folder_ / "real", "bird");
    fs::create_symlink(folder_ / "real", folder_ / "link");
    files_->trash(folder_ / "link");
    EXPECT_FALSE(fs::is_symlink(folder_ / "link"));
    EXPECT_EQ(readFile(folder_ / "real"), "bird");
}

TEST_F(SystemFiles, AFileWithoutATrashStays) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "no file system can be mounted here";
    writeFile(*disk / "a", "bird");
    EXPECT_EQ(failureOf([&] { files_->trash(*disk / "a"); }).localizedDescription(),
              "There is no trash for its volume");
    EXPECT_EQ(readFile(*disk / "a"), "bird");
}

TEST_F(SystemFiles, AMissingFileCannotBeTrashed) {
    const Error error = failureOf([&] { files_->trash(folder_ / "gone"); });
    EXPECT_EQ(error.localizedDescription(), "No such file or directory");
    EXPECT_EQ(error.code(), ENOENT);
}

TEST_F(SystemFiles, ANewFileTakesAFreeNameOnly) {
    files_->create(folder_ / "a.jpg", "picture");
    EXPECT_EQ(readFile(folder_ / "a.jpg"), "picture");
    const Error error = failureOf([&] { files_->create(folder_ / "a.jpg", "another"); });
    EXPECT_EQ(error.localizedDescription(), "\"a.jpg\" couldn't be written: File exists");
    EXPECT_EQ(error.code(), EEXIST);
    EXPECT_EQ(readFile(folder_ / "a.jpg"), "picture");
    fs::create_symlink("nowhere", folder_ / "link");
    EXPECT_EQ(failureOf([&] { files_->create(folder_ / "link", "x"); }).code(), EEXIST);
    EXPECT_THAT(files_->namesIn(folder_.path()), ElementsAre("a.jpg", "link"));
}

TEST_F(SystemFiles, ANewFileThatDoesNotFitLeavesNothing) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "no file system can be mounted here";
    const Error error =
        failureOf([&] { files_->create(*disk / "a", std::string(3'000'000, 'x')); });
    EXPECT_EQ(error.code(), ENOSPC);
    EXPECT_THAT(files_->namesIn(disk->path()), ElementsAre());
}

TEST_F(SystemFiles, ContentsAreReplacedWhole) {
    files_->replaceContents(folder_ / "resume.json", "first");
    EXPECT_EQ(readFile(folder_ / "resume.json"), "first");
    files_->replaceContents(folder_ / "resume.json", "2");
    EXPECT_EQ(readFile(folder_ / "resume.json"), "2");
    EXPECT_THAT(files_->namesIn(folder_.path()), ElementsAre("resume.json"));
}

TEST_F(SystemFiles, ReplacedContentsKeepThePermissions) {
    const fs::path file = writeFile(folder_ / "a", "");
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    files_->replaceContents(file, "new");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(SystemFiles, ReplacingThroughALinkLeavesItsTargetAlone) {
    writeFile(folder_ / "real", "bird");
    fs::create_symlink("real", folder_ / "link");
    files_->replaceContents(folder_ / "link", "new");
    EXPECT_EQ(readFile(folder_ / "real"), "bird");
    EXPECT_EQ(readFile(folder_ / "link"), "new");
}

TEST_F(SystemFiles, AFullDiskLeavesTheOldContents) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "no file system can be mounted here";
    writeFile(*disk / "a", "old");
    const Error error =
        failureOf([&] { files_->replaceContents(*disk / "a", std::string(3'000'000, 'x')); });
    EXPECT_EQ(error.localizedDescription(), "\"a\" couldn't be written: No space left on device");
    EXPECT_EQ(error.code(), ENOSPC);
    EXPECT_EQ(readFile(*disk / "a"), "old");
    EXPECT_THAT(files_->namesIn(disk->path()), ElementsAre("a"));
}

TEST_F(SystemFiles, AFolderIsNeverReplaced) {
    fs::create_directory(folder_ / "a");
    failureOf([&] { files_->replaceContents(folder_ / "a", "new"); });
    EXPECT_TRUE(fs::is_directory(folder_ / "a"));
    EXPECT_THAT(files_->namesIn(folder_.path()), ElementsAre("a"));
}

TEST_F(SystemFiles, AppendingAddsToTheEnd) {
    files_->openForAppending(folder_ / "review.csv")->write("a\n");
    const auto file = files_->openForAppending(folder_ / "review.csv");
    file->write("b\n");
    EXPECT_EQ(readFile(folder_ / "review.csv"), "a\nb\n") << "at once";
    file->write("c\n");
    EXPECT_EQ(readFile(folder_ / "review.csv"), "a\nb\nc\n");
}

TEST_F(SystemFiles, WhatDoesNotFitIsNotAppendedInPart) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "no file system can be mounted here";
    const auto file = files_->openForAppending(*disk / "review.csv");
    file->write("a row\n");
    const Error error = failureOf([&] { file->write(std::string(3'000'000, 'x')); });
    EXPECT_EQ(error.localizedDescription(),
              "\"review.csv\" couldn't be written: No space left on device");
    EXPECT_EQ(error.code(), ENOSPC);
    file->write("another\n");
    EXPECT_EQ(readFile(*disk / "review.csv"), "a row\nanother\n");
}

TEST_F(SystemFiles, OnlyAnOrdinaryFileIsAppendedToAndAPipeDoesNotBlock) {
    writeFile(folder_ / "real", "bird");
    fs::create_symlink("real", folder_ / "link");
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    failureOf([&] { files_->openForAppending(folder_ / "link"); });
    failureOf([&] { files_->openForAppending(folder_ / "pipe"); });
    EXPECT_EQ(
        failureOf([&] { files_->openForAppending(folder_ / "gone/a"); }).localizedDescription(),
        "\"a\" couldn't be written: No such file or directory");
    EXPECT_EQ(readFile(folder_ / "real"), "bird");
}

}  // namespace
}  // namespace ornivo
