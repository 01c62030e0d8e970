#include "platform/HeicReferences.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace ornivo::testing {
namespace {

std::string bigEndian(std::size_t number) {
    std::string bytes;
    for (const int shift : {24, 16, 8, 0}) bytes.push_back(static_cast<char>(number >> shift));
    return bytes;
}

std::string box(const std::string& type, const std::string& contents) {
    return bigEndian(contents.size() + 8) + type + contents;
}

/// With a version and flags before the contents.
std::string versionedBox(const std::string& type, const std::string& contents) {
    return box(type, std::string(4, '\0') + contents);
}

std::string file(const std::string& references) {
    return box("ftyp", "heic") +
           versionedBox("meta", box("hdlr", "cdsc") + versionedBox("iref", references)) +
           box("mdat", "cdsc");
}

std::string dropped(std::string bytes) {
    dropMetadataReferences({reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    return bytes;
}

TEST(HeicReferences, OnlyMetadataReferencesAreDropped) {
    EXPECT_EQ(dropped(file(box("dimg", "12") + box("cdsc", "34") + box("cdsc", "56"))),
              file(box("dimg", "12") + box("skip", "34") + box("skip", "56")));
}

TEST(HeicReferences, AFileWithoutReferencesStaysAsItIs) {
    const std::string bytes = box("ftyp", "heic") + versionedBox("meta", box("hdlr", "cdsc"));
    EXPECT_EQ(dropped(bytes), bytes);
}

TEST(HeicReferences, BoxesWithLongAndOpenSizesAreWalked) {
    const std::string references = versionedBox("iref", box("cdsc", "34"));
    const std::string meta = std::string(4, '\0') + references;
    const std::string longMeta =
        bigEndian(1) + "meta" + bigEndian(0) + bigEndian(meta.size() + 16) + meta;
    const std::string openMeta = bigEndian(0) + "meta" + meta;
    for (const std::string& bytes : {longMeta, openMeta}) {
        const std::string after = dropped(bytes);
        EXPECT_EQ(after.find("cdsc"), std::string::npos);
        EXPECT_NE(after.find("skip"), std::string::npos);
    }
}

TEST(HeicReferences, EveryTruncationIsBorne) {
    const std::string whole = file(box("dimg", "12") + box("cdsc", "34"));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(dropped(whole.substr(0, length)).size(), length);
    }
}

TEST(HeicReferences, SizesThatLieAreBorne) {
    const std::string whole = file(box("dimg", "12") + box("cdsc", "34"));
    for (std::size_t place = 0; place < whole.size(); ++place) {
        for (const int value : {0, 1, 7, 127, 255}) {
            std::string bytes = whole;
            bytes[place] = static_cast<char>(value);
            EXPECT_EQ(dropped(bytes).size(), whole.size());
        }
    }
}

}  // namespace
}  // namespace ornivo::testing
