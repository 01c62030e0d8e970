// Compares the program's answers for real photographs with those of the network's makers, and with
// the truth.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "identification/BirdIdentifier.h"
#include "identification/NoSpeciesPrior.h"
#include "media/ImageDecoder.h"
#include "support/TempCaches.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

std::string scientificName(std::string label) {
    std::ranges::replace(label, '_', ' ');
    return label;
}

/// The fields of each line but the first; no field holds a comma.
std::vector<std::vector<std::string>> readTable(const fs::path& file) {
    std::ifstream in(file);
    std::vector<std::vector<std::string>> rows;
    std::string line;
    std::getline(in, line);
    while (std::getline(in, line)) {
        std::istringstream fields(line);
        std::vector<std::string>& row = rows.emplace_back();
        for (std::string field; std::getline(fields, field, ',');) row.push_back(field);
    }
    return rows;
}

TEST(BirdIdentifierAccuracy, AgreesWithTheReferenceAnswersForTheSamplePhotographs) {
    const fs::path media = testing::sampleMedia();
    const fs::path referenceFile = media / "../models/reference.csv";
    if (media.empty() || !fs::exists(referenceFile)) {
        GTEST_SKIP() << "the sample photographs or their reference answers are missing";
    }
    std::map<std::string, std::string> truth;
    for (const auto& row : readTable(media / "answers.csv")) truth[row.at(0)] = row.at(1);
    const auto reference = readTable(referenceFile);
    ASSERT_EQ(reference.size(), 96U);

    const testing::TempCaches caches;
    BirdIdentifier identifier(ConfidencePolicy(), std::make_shared<NoSpeciesPrior>(), std::nullopt);
    int agreeing = 0;
    int right = 0;
    int referenceRight = 0;
    double difference = 0;
    for (const auto& row : reference) {
        const std::string& file = row.at(0);
        const auto decoded = ImageDecoder::decodeCGImage(media / "photos" / file, 640);
        ASSERT_TRUE(decoded) << file;
        const IdentifiedSpecies species = identifier.identify(decoded->image, decoded->orientation);
        agreeing += species.topLabel() == row.at(1);
        right += scientificName(species.topLabel()) == truth.at(file);
        referenceRight += scientificName(row.at(1)) == truth.at(file);
        difference += std::abs(species.confidence() - std::stod(row.at(2)));
    }
    const auto count = static_cast<double>(reference.size());
    RecordProperty("agreeing", agreeing);
    RecordProperty("right", right);
    RecordProperty("meanDifference", std::to_string(difference / count));
    EXPECT_GE(agreeing, 0.97 * count);
    EXPECT_GE(right, referenceRight - 1);
    EXPECT_LE(difference / count, 0.03);
}

}  // namespace
}  // namespace ornivo
