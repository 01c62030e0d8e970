#include "platform/FileErrors.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace ornivo {
namespace {

TEST(FileErrors, NameTheFileWithoutItsFolders) {
    const Error error = fileError("/Volumes/Card/IMG_1.jpg", "copied", ENOSPC);
    EXPECT_EQ(error.localizedDescription(),
              "\"IMG_1.jpg\" couldn't be copied: No space left on device");
    EXPECT_EQ(error.domain(), "NSPOSIXErrorDomain");
    EXPECT_EQ(error.code(), 28);
}

TEST(FileErrors, NameTheFolderWithoutThoseAboveIt) {
    const Error error = folderError("/Sorted/Bald Eagle", "made", EACCES);
    EXPECT_EQ(error.localizedDescription(),
              "The folder \"Bald Eagle\" couldn't be made: Permission denied");
    EXPECT_EQ(error.domain(), "NSPOSIXErrorDomain");
    EXPECT_EQ(error.code(), EACCES);
}

TEST(FileErrors, AReasonInWordsHasNoErrno) {
    const Error error = fileError("/a/b", "copied", "It is not an ordinary file");
    EXPECT_EQ(error.localizedDescription(), "\"b\" couldn't be copied: It is not an ordinary file");
    EXPECT_EQ(error.domain(), "NSCocoaErrorDomain");
    EXPECT_EQ(error.code(), 256);
}

TEST(FileErrors, ANameThatIsNoUTF8IsShownAsWellAsItCanBe) {
    EXPECT_EQ(fileError("/a/M\xF6we.jpg", "read", ENOENT).localizedDescription(),
              "\"M\uFFFDwe.jpg\" couldn't be read: No such file or directory");
}

}  // namespace
}  // namespace ornivo
