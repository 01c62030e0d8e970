#include "platform/NeuralNetwork.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/Error.h"
#include "support/Pictures.h"
#include "support/TempFolder.h"
#include "support/TinyNetwork.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::TempFolder;
using testing::TinyNetwork;
using testing::writeFile;
using testing::writeModelPackage;
using testing::writeNetwork;

/// The colours of a 2×2 picture by class label, as the tiny network answers them.
using Shares = std::map<std::string, float>;

NeuralNetwork loaded(const TempFolder& folder, const TinyNetwork& network = {}) {
    NeuralNetwork::compile(writeModelPackage(folder / "tiny.mlpackage", network),
                           folder / "tiny.mlmodelc");
    return NeuralNetwork(folder / "tiny.mlmodelc");
}

Shares shares(ImageClassifier& classifier, const Bitmap& image, std::uint32_t orientation = 1) {
    Shares result;
    for (const Observation& observation : classifier.classify(image, orientation).observations) {
        result[observation.identifier] = observation.confidence;
    }
    return result;
}

std::string failureOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const Error& error) {
        return error.localizedDescription();
    }
    return "no failure";
}

const Bitmap fourPixels(2, 2, {1, 2, 3, 11, 12, 13, 21, 22, 23, 255, 254, 0});

TEST(NeuralNetwork, SeesPlanesOfRedGreenAndBlueWithValuesFrom0To255) {
    const TempFolder folder;
    NeuralNetwork network = loaded(folder);
    const Shares expected{{"r0", 1},  {"r1", 11},  {"r2", 21}, {"r3", 255}, {"g0", 2},  {"g1", 12},
                          {"g2", 22}, {"g3", 254}, {"b0", 3},  {"b1", 13},  {"b2", 23}, {"b3", 0}};
    EXPECT_EQ(shares(network, fourPixels), expected);
}

TEST(NeuralNetwork, AnswersEveryClassTheLikeliestFirstAndEqualsInTheModelsOrder) {
    const TempFolder folder;
    NeuralNetwork network = loaded(folder);
    const Bitmap image(2, 2, {7, 9, 7, 7, 9, 7, 8, 7, 7, 7, 7, 7});
    std::vector<std::string> order;
    for (const Observation& observation : network.classify(image, 1).observations) {
        order.push_back(observation.identifier);
    }
    EXPECT_THAT(
        order, ElementsAre("g0", "g1", "r2", "r0", "r1", "r3", "g2", "g3", "b0", "b1", "b2", "b3"));
}

TEST(NeuralNetwork, SeesTheCentreSquareOfTheShorterSide) {
    const TempFolder folder;
    NeuralNetwork network = loaded(folder);
    const Bitmap wide(
        4, 2, {0, 0, 0, 1, 2, 3, 11, 12, 13, 0, 0, 0, 0, 0, 0, 21, 22, 23, 255, 254, 0, 0, 0, 0});
    EXPECT_EQ(shares(network, wide), shares(network, fourPixels));
    const Bitmap tall(
        2, 4, {0, 0, 0, 0, 0, 0, 1, 2, 3, 11, 12, 13, 21, 22, 23, 255, 254, 0, 0, 0, 0, 0, 0, 0});
    EXPECT_EQ(shares(network, tall), shares(network, fourPixels));
}

TEST(NeuralNetwork, SeesThePictureUprightInAllEightOrientations) {
    const TempFolder folder;
    NeuralNetwork network = loaded(folder);
    // Where the pixels top left, top right, bottom left, bottom right of the picture as it is
    // stored stand once it is upright.
    const std::map<std::uint32_t, std::vector<std::string>> places{
        {1, {"r0", "r1", "r2", "r3"}}, {2, {"r1", "r0", "r3", "r2"}}, {3, {"r3", "r2", "r1", "r0"}},
        {4, {"r2", "r3", "r0", "r1"}}, {5, {"r0", "r2", "r1", "r3"}}, {6, {"r1", "r3", "r0", "r2"}},
        {7, {"r3", "r1", "r2", "r0"}}, {8, {"r2", "r0", "r3", "r1"}}};
    for (const auto& [orientation, place] : places) {
        Shares seen = shares(network, fourPixels, orientation);
        EXPECT_THAT((std::vector{seen[place[0]], seen[place[1]], seen[place[2]], seen[place[3]]}),
                    ElementsAre(1, 11, 21, 255))
            << orientation;
    }
}

TEST(NeuralNetwork, ScalesAPictureOfAnySizeToItsOwn) {
    const TempFolder folder;
    NeuralNetwork network = loaded(folder);
    for (const int side : {1, 3, 40}) {
        const Bitmap grey = testing::filled(side + 1, side, {90, 90, 90});
        for (const auto& [label, share] : shares(network, grey)) EXPECT_EQ(share, 90) << label;
    }
}

TEST(NeuralNetwork, KeepsTheLabelsInTheirOrderThroughCompiling) {
    const TempFolder folder;
    EXPECT_EQ(loaded(folder).classLabels(), TinyNetwork().labels);
}

TEST(NeuralNetwork, HasNoLabelsWhenTheModelNamesNone) {
    const TempFolder folder;
    EXPECT_THAT(loaded(folder, {.labels = {}}).classLabels(), IsEmpty());
}

TEST(NeuralNetwork, KeepsABlankLabelBetweenOthersAndDropsAClosingLineEnd) {
    const TempFolder folder;
    EXPECT_THAT(loaded(folder, {.labels = {"one", "", "three", ""}}).classLabels(),
                ElementsAre("one", "", "three"));
}

TEST(NeuralNetwork, CompilesASingleFileAsWell) {
    const TempFolder folder;
    NeuralNetwork::compile(writeNetwork(folder / "tiny.mlmodel"), folder / "tiny.mlmodelc");
    NeuralNetwork network(folder / "tiny.mlmodelc");
    EXPECT_EQ(shares(network, fourPixels).at("r3"), 255);
}

TEST(NeuralNetwork, ACompiledModelMayBeMoved) {
    const TempFolder folder;
    loaded(folder);
    fs::rename(folder / "tiny.mlmodelc", folder / "elsewhere");
    EXPECT_EQ(NeuralNetwork(folder / "elsewhere").classLabels(), TinyNetwork().labels);
}

TEST(NeuralNetwork, CompilesIntoNoFolderThatIsThereAlready) {
    const TempFolder folder;
    const fs::path standing = writeFile(folder / "standing/file", "mine").parent_path();
    const fs::path package = writeModelPackage(folder / "tiny.mlpackage");
    try {
        NeuralNetwork::compile(package, standing);
        FAIL() << "it compiled";
    } catch (const Error& error) {
        EXPECT_EQ(error.domain(), Error::posixDomain);
        EXPECT_EQ(error.code(), EEXIST);
    }
    EXPECT_EQ(testing::readFile(standing / "file"), "mine");
}

TEST(NeuralNetwork, AModelThatDoesNotCompileFailsAndLeavesNothing) {
    const TempFolder folder;
    const fs::path broken = writeFile(folder / "broken.mlpackage/model.onnx", "not a network");
    EXPECT_THROW(NeuralNetwork::compile(broken.parent_path(), folder / "out"), Error);
    EXPECT_THROW(NeuralNetwork::compile(folder / "missing.mlpackage", folder / "out"), Error);
    EXPECT_FALSE(fs::exists(folder / "out"));
}

TEST(NeuralNetwork, AModelThatDoesNotLoadFailsAndTellsWhichFile) {
    const TempFolder folder;
    const fs::path broken = writeFile(folder / "broken.mlmodelc/model.onnx", "not a network");
    EXPECT_THAT(failureOf([&] { NeuralNetwork network(broken.parent_path()); }),
                HasSubstr(broken.string()));
    EXPECT_THAT(failureOf([&] { NeuralNetwork network(folder / "missing"); }),
                HasSubstr((folder / "missing/model.onnx").string()));
}

TEST(NeuralNetwork, RefusesANetworkThatTakesNoSquarePicture) {
    const TempFolder folder;
    EXPECT_EQ(failureOf([&] { loaded(folder, {.width = 3, .height = 2}); }),
              "The classifier can't be used: its input is no square picture of a fixed size.");
}

TEST(NeuralNetwork, RefusesAnAnswerWithMoreSharesThanLabels) {
    const TempFolder folder;
    NeuralNetwork network = loaded(folder, {.labels = {"one", "two"}});
    EXPECT_EQ(failureOf([&] { network.classify(fourPixels, 1); }),
              "The classifier can't be used: it answers 12 shares for 2 labels.");
}

TEST(NeuralNetwork, TellsWhereTheBirdIsIfTheModelDoes) {
    const TempFolder folder;
    NeuralNetwork silent = loaded(folder);
    EXPECT_EQ(silent.classify(fourPixels, 1).subject, std::nullopt);
    const TempFolder other;
    NeuralNetwork telling = loaded(other, {.box = {0.25F, 0.5F, 0.125F, 0.75F}});
    const ImageClassification seen = telling.classify(fourPixels, 1);
    EXPECT_EQ(seen.subject, (SubjectBox{0.25F, 0.5F, 0.125F, 0.75F}));
    EXPECT_EQ(seen.observations.size(), 12U);
}

TEST(NeuralNetwork, RefusesABoxThatIsNotFourNumbers) {
    const TempFolder folder;
    NeuralNetwork network = loaded(folder, {.box = {0.5F, 0.5F, 0.5F}});
    EXPECT_EQ(failureOf([&] { network.classify(fourPixels, 1); }),
              "The classifier can't be used: it tells where the bird is by 3 numbers.");
}

}  // namespace
}  // namespace ornivo
