#include "platform/ExtendedAttributes.h"

#include <gtest/gtest.h>
#include <sys/xattr.h>

#include <string>

#include "support/TempFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;

bool setAttribute(const fs::path& file, const char* name, const std::string& value) {
    return setxattr(file.c_str(), name, value.data(), value.size(), 0) == 0;
}

std::string attribute(const fs::path& file, const char* name) {
    std::string value(5000, '\0');
    const ssize_t length = getxattr(file.c_str(), name, value.data(), value.size());
    return length < 0 ? "missing" : value.substr(0, static_cast<std::size_t>(length));
}

TEST(ExtendedAttributes, AllOfTheUsersAreCopied) {
    const TempFolder folder;
    const fs::path from = writeFile(folder / "from", "");
    const fs::path to = writeFile(folder / "to", "");
    const std::string binary("\0\xFF", 2);
    const std::string longOne(2000, 'x');
    if (!setAttribute(from, "user.binary", binary)) GTEST_SKIP() << "no attributes on this disk";
    ASSERT_TRUE(setAttribute(from, "user.empty", ""));
    ASSERT_TRUE(setAttribute(from, "user.long", longOne));
    ASSERT_TRUE(setAttribute(to, "user.empty", "replaced"));

    copyExtendedAttributes(from, to);
    EXPECT_EQ(attribute(to, "user.binary"), binary);
    EXPECT_EQ(attribute(to, "user.empty"), "");
    EXPECT_EQ(attribute(to, "user.long"), longOne);
}

TEST(ExtendedAttributes, WhereThereAreNoneNothingHappens) {
    const TempFolder folder;
    const fs::path to = writeFile(folder / "to", "");
    copyExtendedAttributes(folder / "gone", to);
    copyExtendedAttributes(to, folder / "gone");
    copyExtendedAttributes("/proc/self/status", to);
    EXPECT_EQ(listxattr(to.c_str(), nullptr, 0), 0);
}

}  // namespace
}  // namespace ornivo
