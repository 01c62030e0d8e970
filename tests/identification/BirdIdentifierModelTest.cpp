#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>

#include "identification/BirdClassifierLabels.h"
#include "identification/BirdIdentifier.h"
#include "identification/NoSpeciesPrior.h"
#include "platform/Error.h"
#include "platform/NeuralNetwork.h"
#include "platform/Sha256.h"
#include "support/Pictures.h"
#include "support/TempCaches.h"
#include "support/TinyNetwork.h"
#include "vocabulary/BirdIdentifierError.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TempCaches;
using testing::TempFolder;
using ::testing::UnorderedElementsAreArray;
using testing::writeFile;
using testing::writeModelPackage;

std::vector<std::string> namesIn(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
}

std::string digest(std::string_view bytes) {
    Sha256 hash;
    hash.update(bytes);
    return hash.hexDigest().substr(0, 16);
}

// The fingerprint

TEST(ModelFingerprint, HashesTheNamesAndContentsOfAllFilesInPathOrder) {
    const TempFolder folder;
    writeFile(folder / "m/b.txt", "second");
    writeFile(folder / "m/a/z.txt", "first");
    writeFile(folder / "m/.hidden", "zeroth");
    fs::create_directories(folder / "m/empty");
    EXPECT_EQ(BirdIdentifier::contentFingerprint(folder / "m"),
              digest(".hiddenzerothz.txtfirstb.txtsecond"));
}

TEST(ModelFingerprint, OfASingleFileHashesItsNameAndContent) {
    const TempFolder folder;
    EXPECT_EQ(BirdIdentifier::contentFingerprint(writeFile(folder / "m.mlmodel", "bytes")),
              digest("m.mlmodelbytes"));
}

TEST(ModelFingerprint, IsSixteenHexadecimalDigits) {
    const TempFolder folder;
    const std::string print = BirdIdentifier::contentFingerprint(writeFile(folder / "m", ""));
    EXPECT_EQ(print.size(), 16U);
    EXPECT_EQ(print.find_first_not_of("0123456789abcdef"), std::string::npos);
}

TEST(ModelFingerprint, ChangesWhenAFileIsRenamed) {
    const TempFolder folder;
    writeFile(folder / "m/a", "same");
    const std::string before = BirdIdentifier::contentFingerprint(folder / "m");
    fs::rename(folder / "m/a", folder / "m/b");
    EXPECT_NE(BirdIdentifier::contentFingerprint(folder / "m"), before);
}

TEST(ModelFingerprint, ChangesWhenAFilesContentDoes) {
    const TempFolder folder;
    writeFile(folder / "m/a", "one");
    const std::string before = BirdIdentifier::contentFingerprint(folder / "m");
    writeFile(folder / "m/a", "two");
    EXPECT_NE(BirdIdentifier::contentFingerprint(folder / "m"), before);
}

TEST(ModelFingerprint, ChangesByAMoveBetweenFoldersOnlyWhenTheOrderDoes) {
    const TempFolder folder;
    writeFile(folder / "m/a/1", "one");
    writeFile(folder / "m/b/2", "two");
    const std::string before = BirdIdentifier::contentFingerprint(folder / "m");
    fs::rename(folder / "m/b/2", folder / "m/a/2");
    EXPECT_EQ(BirdIdentifier::contentFingerprint(folder / "m"), before);
    fs::create_directories(folder / "m/0");
    fs::rename(folder / "m/a/2", folder / "m/0/2");
    EXPECT_NE(BirdIdentifier::contentFingerprint(folder / "m"), before);
}

TEST(ModelFingerprint, ReadsAFileOfSeveralChunksWhole) {
    const TempFolder folder;
    const std::string large(3 * 1'048'576 + 5, 'x');
    EXPECT_EQ(BirdIdentifier::contentFingerprint(writeFile(folder / "m/w", large).parent_path()),
              digest("w" + large));
}

TEST(ModelFingerprint, LooksAtNoLinksInTheModel) {
    const TempFolder folder;
    writeFile(folder / "m/a", "one");
    const std::string before = BirdIdentifier::contentFingerprint(folder / "m");
    fs::create_symlink("a", folder / "m/link");
    EXPECT_EQ(BirdIdentifier::contentFingerprint(folder / "m"), before);
}

TEST(ModelFingerprint, AMissingFileIsAFailure) {
    const TempFolder folder;
    try {
        BirdIdentifier::contentFingerprint(folder / "missing");
        FAIL() << "it has a fingerprint";
    } catch (const Error& error) {
        EXPECT_EQ(error.code(), ENOENT);
        EXPECT_EQ(error.localizedDescription(),
                  (folder / "missing").string() + ": No such file or directory");
    }
}

// The compiled form

TEST(CompiledModel, StandsInTheCachesDirectoryUnderItsFingerprint) {
    const TempCaches caches;
    const TempFolder folder;
    const fs::path package = writeModelPackage(folder / "BirdClassifier.mlpackage");
    const std::string name =
        "BirdClassifier-" + BirdIdentifier::contentFingerprint(package) + ".mlmodelc";
    EXPECT_EQ(BirdIdentifier::compiledURL(package), caches / name);
    EXPECT_THAT(namesIn(caches.path()), ElementsAre(name));
    EXPECT_EQ(NeuralNetwork(caches / name).classLabels(), testing::TinyNetwork().labels);
}

TEST(CompiledModel, AnUnchangedPackageIsCompiledOnce) {
    const TempCaches caches;
    const TempFolder folder;
    const fs::path package = writeModelPackage(folder / "BirdClassifier.mlpackage");
    const fs::path compiled = BirdIdentifier::compiledURL(package);
    writeFile(compiled / "witness", "");
    EXPECT_EQ(BirdIdentifier::compiledURL(package), compiled);
    EXPECT_TRUE(fs::exists(compiled / "witness"));
}

TEST(CompiledModel, WhatStandsUnderItsNameIsAnsweredUnchecked) {
    const TempCaches caches;
    const TempFolder folder;
    const fs::path package = writeModelPackage(folder / "BirdClassifier.mlpackage");
    const fs::path standing =
        caches / ("BirdClassifier-" + BirdIdentifier::contentFingerprint(package) + ".mlmodelc");
    fs::create_directories(standing);
    EXPECT_EQ(BirdIdentifier::compiledURL(package), standing);
    EXPECT_THAT(namesIn(standing), IsEmpty());
}

TEST(CompiledModel, OfAChangedPackageReplacesTheOldOneAndLeavesOtherItemsAlone) {
    const TempCaches caches;
    const TempFolder folder;
    const fs::path package = writeModelPackage(folder / "BirdClassifier.mlpackage");
    const fs::path old = BirdIdentifier::compiledURL(package);
    writeFile(caches / "BirdClassifier-older.mlmodelc/weights", "");
    writeFile(caches / "BirdClassifier.mlmodelc", "a file");
    const std::vector<std::string> others{
        "BirdClassifier",          "BirdClassifier-notes.txt",  "BirdClassifier.mlmodelc.bak",
        "BirdClassifier.MLMODELC", "MyBirdClassifier.mlmodelc", "birdclassifier.mlmodelc"};
    for (const std::string& other : others) writeFile(caches / other, "keep");

    writeFile(package / "note", "changed");
    const fs::path compiled = BirdIdentifier::compiledURL(package);

    EXPECT_NE(compiled, old);
    std::vector<std::string> expected = others;
    expected.push_back(compiled.filename());
    EXPECT_THAT(namesIn(caches.path()), UnorderedElementsAreArray(expected));
}

TEST(CompiledModel, SweepsAwayALinkAndNotWhatItPointsTo) {
    const TempCaches caches;
    const TempFolder folder;
    const fs::path mine = writeFile(folder / "mine/file", "keep");
    fs::create_directory_symlink(mine.parent_path(), caches / "BirdClassifier-x.mlmodelc");
    BirdIdentifier::compiledURL(writeModelPackage(folder / "BirdClassifier.mlpackage"));
    EXPECT_EQ(namesIn(caches.path()).size(), 1U);
    EXPECT_TRUE(fs::exists(mine));
}

TEST(CompiledModel, APackageThatDoesNotCompileLeavesTheCachesAsTheyWere) {
    const TempCaches caches;
    const TempFolder folder;
    writeFile(caches / "BirdClassifier-old.mlmodelc/model.onnx", "old");
    const fs::path broken = writeFile(folder / "BirdClassifier.mlpackage/model.onnx", "broken");
    EXPECT_THROW(BirdIdentifier::compiledURL(broken.parent_path()), Error);
    EXPECT_THAT(namesIn(caches.path()), ElementsAre("BirdClassifier-old.mlmodelc"));
}

TEST(CompiledModel, WhatADyingProcessLeftBehindDoesNotCount) {
    const TempCaches caches;
    const TempFolder folder;
    writeFile(caches / ".ornivo-0000000000000000/model.onnx", "half a mod");
    const fs::path package = writeModelPackage(folder / "BirdClassifier.mlpackage");
    EXPECT_EQ(NeuralNetwork(BirdIdentifier::compiledURL(package)).classLabels(),
              testing::TinyNetwork().labels);
}

TEST(CompiledModel, CachesThatCannotBeWrittenAreAFailure) {
    const TempCaches caches;
    fs::remove(caches.path());
    writeFile(caches.path(), "a file where the folder should be");
    const TempFolder folder;
    EXPECT_THROW(
        BirdIdentifier::compiledURL(writeModelPackage(folder / "BirdClassifier.mlpackage")), Error);
}

// Loading

TEST(BirdIdentifierLoading, TheBundledModelIsThePackageAndItLoads) {
    const TempCaches caches;
    const auto bundled = BirdIdentifier::bundledModelURL();
    ASSERT_TRUE(bundled);
    EXPECT_EQ(bundled->filename(), "BirdClassifier.mlpackage");

    BirdIdentifier identifier(ConfidencePolicy(), std::make_shared<NoSpeciesPrior>(), std::nullopt);
    const IdentifiedSpecies species = identifier.identify(testing::quarters(640, 427));
    EXPECT_EQ(species.topK.size(), 3U);
    EXPECT_GT(species.confidence(), 0);
    EXPECT_LE(species.confidence(), 1);
    EXPECT_EQ(namesIn(caches.path()).size(), 1U);
}

TEST(BirdIdentifierLoading, ACompiledModelIsLoadedAsItStands) {
    const TempCaches caches;
    const fs::path compiled =
        BirdIdentifier::compiledURL(BirdIdentifier::bundledModelURL().value());
    const TempFolder folder;
    fs::rename(compiled, folder / "mine.mlmodelc");

    BirdIdentifier identifier(ConfidencePolicy(), std::make_shared<NoSpeciesPrior>(),
                              folder / "mine.mlmodelc");
    EXPECT_EQ(identifier.identify(testing::quarters(300, 300)).topK.size(), 3U);
    EXPECT_THAT(namesIn(caches.path()), IsEmpty());
}

TEST(BirdIdentifierLoading, AModelWithOtherLabelsIsRefused) {
    const TempCaches caches;
    const TempFolder folder;
    const fs::path package = writeModelPackage(folder / "BirdClassifier.mlpackage");
    try {
        const BirdIdentifier identifier(ConfidencePolicy(), std::make_shared<NoSpeciesPrior>(),
                                        package);
        FAIL() << "it loaded";
    } catch (const BirdIdentifierError& error) {
        EXPECT_EQ(error.kind(), BirdIdentifierError::Case::labelSetMismatch);
        EXPECT_THAT(error.localizedDescription(),
                    ::testing::HasSubstr(
                        "Model has 12 labels, lookup has " +
                        std::to_string(BirdClassifierLabels::speciesCount()) +
                        ". In model only: [\"b0\", \"b1\", \"b2\", \"b3\", \"g0\"]. In lookup "
                        "only: [\""));
    }
}

}  // namespace
}  // namespace ornivo
