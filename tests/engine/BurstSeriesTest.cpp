// A series as a camera would record it, from real photographs, through the real classifier: the
// frames that burst promotion files are those that its rules name, and no others.

#include <gtest/gtest.h>

#include <cmath>

#include "identification/BirdIdentifier.h"
#include "identification/NoSpeciesPrior.h"
#include "support/Pictures.h"
#include "support/RunReport.h"
#include "support/SamplePhotographs.h"
#include "support/TempCaches.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;

/// A picture through fog: each colour moved towards grey by a share of 0 to 1.
Bitmap inFog(const Bitmap& picture, double share) {
    const auto faded = [&](std::uint8_t value) {
        return static_cast<std::uint8_t>(std::lround(value * (1 - share) + 128 * share));
    };
    return painted(picture.width(), picture.height(), [&](int x, int y) {
        const Colour colour = at(picture, x, y);
        return Colour{faded(colour.red), faded(colour.green), faded(colour.blue)};
    });
}

struct Frame {
    std::string name;
    /// The sample photograph it shows.
    std::string sample;
    double fog;
    /// After the first frame.
    int seconds;
    /// What the classifier has to say for the series to be the one that is told here.
    std::string bestGuess;
    bool isCalled;
    /// The folder it ends up in, with corroborated guesses promoted and with corrections too.
    std::string folderConfirmedOnly;
    std::string folderCorrected;
};

const std::string uncertain = "_Uncertain";
const std::vector<Frame> series{
    // A hoopoe, and a mourning dove that it is taken for when the fog comes in.
    {"IMG_0101.jpg", "IMG_4139.jpg", 0, 0, "Upupa_epops", true, "Common Hoopoe", "Common Hoopoe"},
    {"IMG_0102.jpg", "IMG_4139.jpg", 0.85, 4, "Zenaida_macroura", false, uncertain,
     "Common Hoopoe"},
    // The same, one second further from the sure frame than is near enough.
    {"IMG_0103.jpg", "IMG_4139.jpg", 0.85, 5, "Zenaida_macroura", false, uncertain, uncertain},
    // A raven, which the fog makes doubtful but not another bird.
    {"IMG_0104.jpg", "IMG_4116.jpg", 0.92, 100, "Corvus_corax", false, "Common Raven",
     "Common Raven"},
    {"IMG_0105.jpg", "IMG_4116.jpg", 0, 102, "Corvus_corax", true, "Common Raven", "Common Raven"},
    // A swallow among ravens, taken for a swift in the fog: no raven in its own short list.
    {"IMG_0106.jpg", "IMG_4133.jpg", 0.92, 103, "Apus_apus", false, uncertain, uncertain},
    // A doubtful frame beside one that was itself only promoted is evidence of nothing.
    {"IMG_0107.jpg", "IMG_4116.jpg", 0.92, 96, "Corvus_corax", false, uncertain, uncertain},
};

std::string timeOf(const Frame& frame) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "2024:05:17 06:%02d:%02d", frame.seconds / 60,
                  frame.seconds % 60);
    return text.data();
}

std::map<std::string, Bitmap> samplePictures() {
    std::map<std::string, Bitmap> pictures;
    eachSamplePhotograph([&](const SamplePhotograph& photograph) {
        pictures.emplace(photograph.name, photograph.picture);
    });
    return pictures;
}

const std::string& wantedFolder(const Frame& frame, BurstInheritance inheritance) {
    if (inheritance == BurstInheritance::off && !frame.isCalled) return uncertain;
    return inheritance == BurstInheritance::confirmedAndCorrected ? frame.folderCorrected
                                                                  : frame.folderConfirmedOnly;
}

void expectWhatWasTold(const Frame& frame, const std::string& prediction) {
    EXPECT_TRUE(prediction.starts_with("prediction " + frame.bestGuess)) << prediction;
    const bool isCalled = prediction.find("Low confidence") == std::string::npos;
    EXPECT_EQ(isCalled, frame.isCalled) << prediction;
}

TEST(BurstSeries, PromotesTheFramesThatTheRulesNameAndNoOthers) {
    const auto pictures = samplePictures();
    if (pictures.empty()) GTEST_SKIP() << "the sample photographs are not here";
    const TempCaches caches;
    const TempFolder folder;
    SortEngine::RunInput input;
    input.options.confidence = ConfidencePolicy::defaultSlider;
    for (const Frame& frame : series) {
        input.paths.push_back(writeJpeg(folder / "source" / frame.name,
                                        inFog(pictures.at(frame.sample), frame.fog),
                                        {.exif = {.dateTimeOriginal = timeOf(frame)}}));
    }
    SortEngine engine(std::make_shared<BirdIdentifier>(
                          ConfidencePolicy(), std::make_shared<NoSpeciesPrior>(), std::nullopt),
                      std::make_shared<JobController>());
    for (const BurstInheritance inheritance : allCases<BurstInheritance>()) {
        input.destination = folder / rawValue(inheritance);
        input.options.burstInheritance = inheritance;
        const RunReport report = readToEnd(engine.run(input));
        const auto predictions = report.lines("prediction");
        ASSERT_EQ(predictions.size(), series.size());
        int promoted = 0;
        for (std::size_t i = 0; i < series.size(); ++i) {
            expectWhatWasTold(series[i], predictions[i]);
            const std::string& wanted = wantedFolder(series[i], inheritance);
            promoted += !series[i].isCalled && wanted != uncertain;
            EXPECT_TRUE(fs::exists(input.destination / wanted / series[i].name))
                << series[i].name << " is not in " << input.destination / wanted;
        }
        EXPECT_EQ(report.sort().burstPromoted, promoted);
    }
}

}  // namespace
}  // namespace ornivo
