#include "platform/LibraryPreviews.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/RawContainer.h"
#include "support/Pictures.h"
#include "support/RawFiles.h"
#include "support/TempFolder.h"

namespace ornivo::testing {
namespace {

TEST(LibraryPreviews, Exiv2FindsWhatStandsInRarerNotes) {
    const TempFolder folder;
    const std::string jpeg = jpegOf(filled(900, 600));
    const auto file = writeFile(folder / "a.dng", pentaxDngFile(jpeg));
    const auto own = readRawContainer(FileBytes(file));
    ASSERT_TRUE(own);
    EXPECT_TRUE(own->pictures.empty());
    const auto found = previewsFoundByExiv2(file);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(std::string(found[0].begin(), found[0].end()), jpeg);
}

TEST(LibraryPreviews, FilesWithoutAnyGiveNone) {
    const TempFolder folder;
    for (const auto& file :
         {writeDng(folder / "a.dng", quarters(64, 48)), writeFile(folder / "b.dng", "words"),
          writeRaw(folder.path(), RawKind::nef, {}), folder / "missing.dng", folder.path()}) {
        EXPECT_TRUE(previewsFoundByExiv2(file).empty()) << file;
        EXPECT_TRUE(previewsFoundByLibRaw(file).empty()) << file;
    }
}

TEST(LibraryPreviewsSamples, LibRawFindsTheOneItKnows) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    const auto found = previewsFoundByLibRaw(sampleMedia() / "raw" / "sample.arw");
    ASSERT_EQ(found.size(), 1U);
    const auto jpeg = readEmbeddedJpeg(MemoryBytes(found[0]), {0, found[0].size()});
    ASSERT_TRUE(jpeg);
    EXPECT_EQ(jpeg->size, (PixelSize{160, 120}));
}

TEST(LibraryPreviewsSamples, NoBrokenFileCrashesOrSpeaks) {
    if (sampleMedia().empty()) GTEST_SKIP() << "no sample media beside the checkout";
    ::testing::internal::CaptureStderr();
    for (const char* name : {"broken", "raw"}) {
        for (const auto& entry : std::filesystem::directory_iterator(sampleMedia() / name)) {
            previewsFoundByExiv2(entry.path());
            previewsFoundByLibRaw(entry.path());
        }
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace ornivo::testing
