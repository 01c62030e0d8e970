#include "engine/FolderName.h"

#include <gtest/gtest.h>

namespace ornivo {
namespace {

TEST(FolderName, ANameIsTakenByteForByte) {
    for (const char* name : {"Bald Eagle", "Clark's Grebe", "Long-tailed Tit", "..Robin", "Robin.",
                             "Mésange bleue", "a\\b", "...", "", " ", "_Uncertain", "caf\xe9"}) {
        EXPECT_EQ(folderName(name), name);
    }
}

TEST(FolderName, ANameCanNotLeadElsewhere) {
    EXPECT_EQ(folderName("/etc"), "_etc");
    EXPECT_EQ(folderName("../up"), ".._up");
    EXPECT_EQ(folderName("Gulls/Terns"), "Gulls_Terns");
    EXPECT_EQ(folderName("/"), "_");
    EXPECT_EQ(folderName("."), "_");
    EXPECT_EQ(folderName(".."), "__");
}

}  // namespace
}  // namespace ornivo
