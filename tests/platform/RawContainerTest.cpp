#include "platform/RawContainer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "support/Pictures.h"
#include "support/RawFiles.h"
#include "support/TempFolder.h"
#include "support/TiffBytes.h"

namespace ornivo::testing {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

Bytes bytesIn(const std::string& text) {
    return {text.begin(), text.end()};
}

std::optional<RawContainer> containerIn(const std::string& file) {
    const Bytes bytes = bytesIn(file);
    return readRawContainer(MemoryBytes(bytes));
}

std::string jpegOfSize(int width, int height) {
    return jpegOf(filled(width, height));
}

/// Counts what is read of a file.
class CountedBytes : public ByteSource {
public:
    explicit CountedBytes(const fs::path& file) : file_(file) {}
    std::uint64_t size() const override { return file_.size(); }
    bool read(std::uint64_t offset, std::span<std::uint8_t> into) const override {
        taken_ += into.size();
        return file_.read(offset, into);
    }
    std::uint64_t taken() const { return taken_; }

private:
    FileBytes file_;
    mutable std::uint64_t taken_ = 0;
};

class RawContainerOf : public ::testing::TestWithParam<RawKind> {};

INSTANTIATE_TEST_SUITE_P(Makers, RawContainerOf, ::testing::ValuesIn(allRawKinds),
                         [](const auto& kind) { return std::string(extensionOf(kind.param)); });

TEST_P(RawContainerOf, TurnShapeAndPicturesAreTold) {
    const std::string first = jpegOfSize(300, 200);
    const std::string second = jpegOfSize(600, 400);
    const std::string file = rawFile(GetParam(), {{first}, {second}},
                                     {.orientation = 8, .picture = PixelSize{5000, 2812}});
    const auto container = containerIn(file);
    ASSERT_TRUE(container);
    EXPECT_EQ(container->orientation, 8U);
    EXPECT_EQ(container->picture, (PixelSize{5000, 2812}));
    if (GetParam() != RawKind::cr2 && GetParam() != RawKind::rw2) {
        EXPECT_EQ(container->frame, (PixelSize{6000, 4000}));
    }
    std::vector<int> widths;
    for (const EmbeddedJpeg& picture : container->pictures) {
        widths.push_back(picture.size.width);
        const std::string found = file.substr(picture.range.offset, picture.range.length);
        EXPECT_EQ(found, picture.size.width == 300 ? first : second);
    }
    std::ranges::sort(widths);
    EXPECT_EQ(widths, (std::vector{300, 600}));
}

TEST_P(RawContainerOf, TheHeadAloneIsRead) {
    const TempFolder folder;
    const auto file =
        writeRaw(folder.path(), GetParam(), {{jpegOfSize(300, 200)}}, {.sensorBytes = 20'000'000});
    const CountedBytes bytes(file);
    ASSERT_EQ(readRawContainer(bytes)->pictures.size(), 1U);
    EXPECT_LT(bytes.taken(), 16'384U);
}

TEST_P(RawContainerOf, AFileCutOffAnywhereGivesWhatIsThere) {
    const std::string file =
        rawFile(GetParam(), {{jpegOfSize(64, 48)}, {jpegOfSize(32, 24)}}, {.sensorBytes = 16});
    for (std::size_t length = 0; length < file.size(); ++length) {
        const auto container = containerIn(file.substr(0, length));
        if (!container) continue;
        for (const EmbeddedJpeg& picture : container->pictures) {
            ASSERT_LE(picture.range.offset + picture.range.length, length);
        }
    }
}

TEST(RawContainer, OtherFilesAreNone) {
    const TempFolder folder;
    EXPECT_FALSE(containerIn(""));
    EXPECT_FALSE(containerIn("These are words, and no picture at all.\n"));
    EXPECT_FALSE(containerIn(jpegOfSize(900, 600)));
    EXPECT_FALSE(containerIn(readFile(writeTiff(folder / "a.tif", quarters(90, 60)))));
    if (!canWriteHeic()) return;
    EXPECT_FALSE(containerIn(readFile(writeHeic(folder / "a.heic", filled(64, 64)))));
}

TEST(RawContainer, ATiffWithAJpegInItIsNoRawFile) {
    TiffBytes file(std::string("II\x2A\0\0\0\0\0", 8), false);
    const std::string jpeg = jpegOfSize(900, 600);
    const auto at = file.append(jpeg);
    file.setFirst(
        file.directory({TiffBytes::shorts(0x0103, {7}), TiffBytes::shorts(0x0106, {6}),
                        TiffBytes::longs(0x0111, {at}),
                        TiffBytes::longs(0x0117, {static_cast<std::uint32_t>(jpeg.size())})}));
    EXPECT_FALSE(containerIn(file.bytes()));
}

TEST(RawContainer, DirectoriesThatFollowOneAnotherInACircleEnd) {
    TiffBytes file(std::string("II\x2A\0\0\0\0\0", 8), false);
    const auto first = file.directory({TiffBytes::longs(0x014A, {8}), TiffBytes::longs(0x8769, {8}),
                                       TiffBytes::undefined(0xC612, std::string("\1\4\0\0", 4))});
    file.setFirst(first);
    file.setNext(first, first);
    EXPECT_EQ(first, 8U);
    EXPECT_TRUE(containerIn(file.bytes()));
}

TEST(RawContainer, TheDataOfASensorAreNoPicture) {
    // A DNG whose sensor's data are a JPEG of eight bits.
    TiffBytes file(std::string("II\x2A\0\0\0\0\0", 8), false);
    const std::string jpeg = jpegOfSize(900, 600);
    const auto at = file.append(jpeg);
    file.setFirst(
        file.directory({TiffBytes::shorts(0x0103, {7}), TiffBytes::shorts(0x0106, {34892}),
                        TiffBytes::longs(0x0111, {at}),
                        TiffBytes::longs(0x0117, {static_cast<std::uint32_t>(jpeg.size())})}));
    const auto container = containerIn(file.bytes());
    ASSERT_TRUE(container);
    EXPECT_TRUE(container->pictures.empty());
}

TEST(RawContainer, MasksAndDepthsBesideThePictureAreNoPictures) {
    // Of a transparent picture, of its depth, of its parts: the kinds that DNG knows.
    for (const std::uint32_t photometric : {6U, 4U, 51177U, 52527U}) {
        TiffBytes file(std::string("II\x2A\0\0\0\0\0", 8), false);
        const std::string jpeg = jpegOf(filled(900, 600), {.kind = JpegKind::grey});
        const auto at = file.append(jpeg);
        file.setFirst(file.directory(
            {TiffBytes::shorts(0x0103, {7}), TiffBytes::shorts(0x0106, {photometric}),
             TiffBytes::longs(0x0111, {at}),
             TiffBytes::longs(0x0117, {static_cast<std::uint32_t>(jpeg.size())}),
             TiffBytes::undefined(0xC612, std::string("\1\4\0\0", 4))}));
        const auto container = containerIn(file.bytes());
        ASSERT_TRUE(container);
        EXPECT_EQ(container->pictures.empty(), photometric != 6) << photometric;
    }
}

/// Makes a file larger without taking room on a disk, and puts bytes behind its new end.
void appendBehind(const fs::path& file, std::uint64_t end, const std::string& bytes) {
    fs::resize_file(file, end);
    std::ofstream(file, std::ios::binary | std::ios::app) << bytes;
}

TEST(RawContainer, ACr3LargerThanFourGigabytesIsRead) {
    const TempFolder folder;
    const std::string whole = rawFile(RawKind::cr3, {{jpegOfSize(300, 200)}});
    const auto dataAt = whole.rfind("mdat") - 4;
    constexpr std::size_t beforePreview = 36;
    const auto previewAt = whole.rfind("PRVW") - beforePreview;
    ASSERT_EQ(whole.substr(previewAt + 4, 4), "uuid");
    // The sensor's data now come first, and the preview stands behind them.
    constexpr std::uint64_t fiveGigabytes = 5'000'000'000;
    const std::string head = whole.substr(0, previewAt);
    const auto file = writeFile(
        folder / "a.cr3", head + whole.substr(dataAt, 8) + numberBytes(fiveGigabytes, 8, true));
    appendBehind(file, head.size() + fiveGigabytes, whole.substr(previewAt, dataAt - previewAt));
    const CountedBytes bytes(file);
    const auto container = readRawContainer(bytes);
    ASSERT_TRUE(container);
    EXPECT_EQ(container->pictures.size(), 1U);
    EXPECT_LT(bytes.taken(), 16'384U);
}

TEST(RawContainer, APictureBeyondFourGigabytesIsFound) {
    const TempFolder folder;
    const std::string jpeg = jpegOfSize(300, 200);
    constexpr std::uint32_t lowOffset = 0xF0000000;
    const auto file =
        writeRaw(folder.path(), RawKind::cr3, {{}, {jpeg, lowOffset}}, {.sensorBytes = 16});
    std::string whole = readFile(file);
    // The same offset with its upper half set.
    const auto table = whole.find("co64");
    whole.replace(table + 12, 8, numberBytes(0x100000000 | lowOffset, 8, true));
    writeFile(file, whole);
    appendBehind(file, 0x100000000 | lowOffset, jpeg);
    const auto container = readRawContainer(FileBytes(file));
    ASSERT_TRUE(container);
    ASSERT_EQ(container->pictures.size(), 1U);
    EXPECT_EQ(container->pictures.front().range.offset, 0x100000000 | lowOffset);
}

TEST(RawContainer, AJpegLargerThanAnyCameraMakesIsNone) {
    const TempFolder folder;
    for (const std::uint32_t length : {200'000'000U, 200'000'001U}) {
        const auto file =
            writeRaw(folder.path(), RawKind::arw, {{jpegOfSize(300, 200), {}, length}});
        fs::resize_file(file, 400'000'000);
        const auto container = readRawContainer(FileBytes(file));
        ASSERT_TRUE(container);
        EXPECT_EQ(container->pictures.empty(), length > 200'000'000) << length;
    }
}

TEST(RawContainer, ASizeOfSixteenExabytesIsNotBelieved) {
    const std::string whole = rawFile(RawKind::cr3, {{jpegOfSize(300, 200)}});
    const auto dataAt = whole.rfind("mdat") - 4;
    constexpr std::size_t beforePreview = 36;
    const auto previewAt = whole.rfind("PRVW") - beforePreview;
    ASSERT_EQ(whole.substr(previewAt + 4, 4), "uuid");
    // The box with the preview comes last, as if more followed than there can be.
    const std::string file = whole.substr(0, previewAt) + numberBytes(1, 4, true) + "uuid" +
                             std::string(8, '\xFF') +
                             whole.substr(previewAt + 8, dataAt - previewAt - 8);
    const auto container = containerIn(file);
    ASSERT_TRUE(container);
    ASSERT_EQ(container->pictures.size(), 1U);
    const ByteRange range = container->pictures.front().range;
    EXPECT_EQ(range.offset + range.length, file.size());
}

}  // namespace
}  // namespace ornivo::testing
