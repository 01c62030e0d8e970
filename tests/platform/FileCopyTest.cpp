#include "platform/FileCopy.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <stop_token>
#include <string>
#include <thread>

#include "platform/Error.h"
#include "support/SmallDisk.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
using ornivo::testing::readFile;
using ornivo::testing::SmallDisk;
using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;

/// More than one read of any copying loop, and no two parts alike.
std::string picture() {
    std::string bytes;
    for (int i = 0; bytes.size() < 3'000'000; ++i) bytes += std::to_string(i) + ' ';
    return bytes;
}

struct stat statusOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
    return status;
}

/// The failure of a copy that must fail.
Error failureOf(const fs::path& from, const fs::path& to,
                Durability durability = Durability::cached) {
    try {
        copyFile(from, to, durability);
    } catch (const Error& error) {
        return error;
    }
    ADD_FAILURE() << from << " was copied";
    return Error::unreadableFile();
}

bool isEmpty(const fs::path& folder) {
    return fs::is_empty(folder);
}

class FileCopyWith : public ::testing::TestWithParam<Durability> {};

TEST_P(FileCopyWith, TheCopyIsTheSameAndTheSourceStays) {
    const TempFolder folder;
    const fs::path source = writeFile(folder / "IMG_1.jpg", picture());
    fs::create_directory(folder / "Wren");
    copyFile(source, folder / "Wren/IMG_1.jpg", GetParam());
    EXPECT_EQ(readFile(folder / "Wren/IMG_1.jpg"), picture());
    EXPECT_EQ(readFile(source), picture());
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "Wren"), {}), 1);
}

TEST_P(FileCopyWith, AnEmptyFileIsCopiedToo) {
    const TempFolder folder;
    copyFile(writeFile(folder / "a", ""), folder / "b", GetParam());
    EXPECT_EQ(readFile(folder / "b"), "");
}

TEST_P(FileCopyWith, AFullDiskIsToldAsSuchAndNothingIsLeft) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "no file system can be mounted here";
    const TempFolder folder;
    const fs::path source = writeFile(folder / "IMG_1.jpg", picture());
    const auto freeBytes = disk->freeBytes();

    const Error error = failureOf(source, *disk / "IMG_1.jpg", GetParam());
    EXPECT_EQ(error.domain(), "NSPOSIXErrorDomain");
    EXPECT_EQ(error.code(), 28);
    EXPECT_EQ(error.localizedDescription(),
              "\"IMG_1.jpg\" couldn't be copied: No space left on device");
    EXPECT_TRUE(isEmpty(disk->path()));
    EXPECT_EQ(disk->freeBytes(), freeBytes);
    EXPECT_EQ(readFile(source), picture());
}

std::string nameOf(const ::testing::TestParamInfo<Durability>& durability) {
    return durability.param == Durability::cached ? "Cached" : "Flushed";
}

INSTANTIATE_TEST_SUITE_P(Durabilities, FileCopyWith,
                         ::testing::Values(Durability::cached, Durability::flushed), nameOf);

TEST(FileCopy, KeepsTheModificationTimeToTheNanosecond) {
    const TempFolder folder;
    const fs::path source = writeFile(folder / "a", "bird");
    const timespec times[2] = {{0, UTIME_OMIT}, {1'234'567'890, 123'456'789}};
    ASSERT_EQ(utimensat(AT_FDCWD, source.c_str(), times, 0), 0);
    copyFile(source, folder / "b", Durability::flushed);
    const struct stat copy = statusOf(folder / "b");
    EXPECT_EQ(copy.st_mtim.tv_sec, 1'234'567'890);
    EXPECT_EQ(copy.st_mtim.tv_nsec, 123'456'789);
}

TEST(FileCopy, KeepsThePermissions) {
    const TempFolder folder;
    for (const mode_t mode : {0644U, 0600U, 0444U, 0755U}) {
        const std::string name = std::to_string(mode);
        const fs::path source = writeFile(folder / name, "bird");
        ASSERT_EQ(chmod(source.c_str(), mode), 0);
        copyFile(source, folder / (name + " copy"), Durability::flushed);
        EXPECT_EQ(statusOf(folder / (name + " copy")).st_mode & 07777, mode);
    }
}

/// A write-protected file too, as cameras make of protected shots; on that the system lets only
/// root set attributes.
TEST(FileCopy, KeepsExtendedAttributes) {
    const TempFolder folder;
    const std::string value("\x00\xFF\x01 rated", 9);
    for (const mode_t mode : {0644U, 0444U}) {
        const std::string name = std::to_string(mode);
        const fs::path source = writeFile(folder / name, "bird");
        if (setxattr(source.c_str(), "user.rating", value.data(), value.size(), 0) != 0) {
            GTEST_SKIP() << "no extended attributes on the temporary folder's disk";
        }
        setxattr(source.c_str(), "user.empty", "", 0, 0);
        ASSERT_EQ(chmod(source.c_str(), mode), 0);
        const fs::path copy = folder / (name + " copy");
        copyFile(source, copy, Durability::cached);

        std::string copied(100, ' ');
        const auto length = getxattr(copy.c_str(), "user.rating", copied.data(), copied.size());
        ASSERT_EQ(length, static_cast<ssize_t>(value.size()));
        EXPECT_EQ(copied.substr(0, value.size()), value);
        EXPECT_EQ(getxattr(copy.c_str(), "user.empty", nullptr, 0), 0);
        EXPECT_EQ(statusOf(copy).st_mode & 07777, mode);
    }
}

TEST(FileCopy, RefusesATakenName) {
    const TempFolder folder;
    writeFile(folder / "b", "other");
    const Error error = failureOf(writeFile(folder / "a", "bird"), folder / "b");
    EXPECT_EQ(error.localizedDescription(), "\"a\" couldn't be copied: File exists");
    EXPECT_EQ(error.code(), EEXIST);
    EXPECT_EQ(readFile(folder / "b"), "other");
}

TEST(FileCopy, RefusesTheNameOfADanglingLink) {
    const TempFolder folder;
    fs::create_symlink("nowhere", folder / "b");
    EXPECT_EQ(failureOf(writeFile(folder / "a", "bird"), folder / "b").code(), EEXIST);
    EXPECT_TRUE(fs::is_symlink(folder / "b"));
    EXPECT_FALSE(fs::exists(folder / "nowhere"));
}

TEST(FileCopy, OfTwoThreadsThatWantOneNameOneGetsIt) {
    const TempFolder folder;
    const std::string contents[2] = {std::string(200'000, 'a'), std::string(200'000, 'b')};
    const fs::path sources[2] = {writeFile(folder / "a", contents[0]),
                                 writeFile(folder / "b", contents[1])};
    for (int round = 0; round < 20; ++round) {
        const fs::path target = folder / ("target" + std::to_string(round));
        std::atomic<int> winner{-1};
        std::atomic<int> wins{0};
        std::atomic<bool> go{false};
        const auto copyOne = [&](int which) {
            while (!go) std::this_thread::yield();
            try {
                copyFile(sources[which], target, Durability::cached);
                winner = which;
                ++wins;
            } catch (const Error& error) {
                EXPECT_EQ(error.code(), EEXIST);
            }
        };
        std::jthread first(copyOne, 0);
        std::jthread second(copyOne, 1);
        go = true;
        first.join();
        second.join();
        ASSERT_EQ(wins, 1);
        EXPECT_EQ(readFile(target), contents[winner]);
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 22) << "nothing is left";
}

TEST(FileCopy, NamesMayHaveAllTheBytesThatADiskAllows) {
    const TempFolder folder;
    const std::string name = std::string(251, 'x') + ".jpg";
    copyFile(writeFile(folder / "a", "bird"), folder / name, Durability::flushed);
    EXPECT_EQ(readFile(folder / name), "bird");
}

TEST(FileCopy, ANameThatIsTooLongLeavesNothing) {
    const TempFolder folder;
    fs::create_directory(folder / "Wren");
    const Error error =
        failureOf(writeFile(folder / "a", "bird"), folder / "Wren" / std::string(256, 'x'));
    EXPECT_EQ(error.code(), ENAMETOOLONG);
    EXPECT_TRUE(isEmpty(folder / "Wren"));
}

TEST(FileCopy, NamesThatAreNoUTF8AreCopiedByteForByte) {
    const TempFolder folder;
    fs::create_directory(folder / "Gr\xFCn");
    copyFile(writeFile(folder / "M\xF6we.jpg", "bird"), folder / "Gr\xFCn/M\xF6we.jpg",
             Durability::flushed);
    EXPECT_EQ(readFile(folder / "Gr\xFCn/M\xF6we.jpg"), "bird");
}

TEST(FileCopy, AMissingSourceAndAMissingFolderAreFailures) {
    const TempFolder folder;
    const Error noSource = failureOf(folder / "gone.jpg", folder / "b");
    EXPECT_EQ(noSource.localizedDescription(),
              "\"gone.jpg\" couldn't be copied: No such file or directory");
    EXPECT_EQ(noSource.code(), ENOENT);
    EXPECT_EQ(failureOf(writeFile(folder / "a", "bird"), folder / "gone/b").code(), ENOENT);
}

TEST(FileCopy, OnlyOrdinaryFilesAreCopiedAndAPipeDoesNotBlock) {
    const TempFolder folder;
    writeFile(folder / "real", "bird");
    fs::create_directory(folder / "folder");
    fs::create_symlink("real", folder / "link");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    for (const std::string name : {"folder", "link", "pipe"}) {
        EXPECT_EQ(failureOf(folder / name, folder / "copy").localizedDescription(),
                  '"' + name + "\" couldn't be copied: It is not an ordinary file");
        EXPECT_FALSE(fs::exists(folder / "copy"));
    }
}

TEST(FileCopy, AFileThatCannotBeReadLeavesNothing) {
    const TempFolder folder;
    // Ordinary by its looks, and unreadable even for root.
    const Error error = failureOf("/proc/self/mem", folder / "copy");
    EXPECT_EQ(error.localizedDescription(), "\"mem\" couldn't be copied: Input/output error");
    EXPECT_EQ(error.code(), EIO);
    EXPECT_TRUE(isEmpty(folder.path()));
}

TEST(FileCopy, AFileWithoutPermissionToReadIsAFailure) {
    if (geteuid() == 0) GTEST_SKIP() << "root may read every file";
    const TempFolder folder;
    const fs::path source = writeFile(folder / "a", "bird");
    fs::permissions(source, fs::perms::none);
    EXPECT_EQ(failureOf(source, folder / "b").localizedDescription(),
              "\"a\" couldn't be copied: Permission denied");
    EXPECT_FALSE(fs::exists(folder / "b"));
}

TEST(FileCopy, ACopyThatIsNotAsLongAsItsSourceDoesNotStand) {
    // Says that it is empty, and is not.
    const fs::path source = "/proc/version";
    if (!fs::exists(source)) GTEST_SKIP() << "no file at hand that tells a false length";
    const TempFolder folder;
    failureOf(source, folder / "copy");
    EXPECT_TRUE(isEmpty(folder.path()));
}

TEST(FileCopy, AFolderThatCannotBeWrittenIsAFailure) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "no file system can be mounted here";
    ASSERT_TRUE(disk->makeReadOnly());
    const TempFolder folder;
    const Error error = failureOf(writeFile(folder / "a", "bird"), *disk / "a");
    EXPECT_EQ(error.localizedDescription(), "\"a\" couldn't be copied: Read-only file system");
    EXPECT_EQ(error.code(), EROFS);
}

TEST(FileCopy, AFileThatChangesMeanwhileIsNotCopied) {
    const TempFolder folder;
    const fs::path source = writeFile(folder / "a", std::string(8'000'000, 'x'));
    const std::jthread writer([&](const std::stop_token& stop) {
        while (!stop.stop_requested()) fs::resize_file(source, fs::file_size(source) + 1);
    });
    // The first copy that the writer gets between must fail; that is nearly always the first.
    std::string words;
    for (int round = 0; round < 200 && words.empty(); ++round) {
        const fs::path copy = folder / ("copy" + std::to_string(round));
        try {
            copyFile(source, copy, Durability::cached);
        } catch (const Error& error) {
            words = error.localizedDescription();
            EXPECT_FALSE(fs::exists(copy));
        }
    }
    EXPECT_EQ(words, "\"a\" couldn't be copied: It changed meanwhile");
}

}  // namespace
}  // namespace ornivo
