#include <gtest/gtest.h>

#include <memory>

#include "support/PrivateTrash.h"
#include "support/RunScene.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;
using Operation = FailingFiles::Operation;
using Names = std::set<std::string>;
using Texts = std::vector<std::string>;

class Filing : public ::testing::Test {
protected:
    fs::path source(const std::string& name) { return scene_.sidecar(name, "contents of " + name); }

    Texts place(const fs::path& file, const std::vector<fs::path>& partners = {},
                const std::string& folder = baldEagle.name) {
        return scene_.engine().place(file, partners, scene_.input.destination, folder, options_,
                                     metadata_);
    }

    /// A file that is in the destination already.
    void alreadyThere(const std::string& path, const std::string& contents = "earlier") {
        writeFile(scene_.input.destination / path, contents);
    }

    RunScene scene_;
    SortOptions options_;
    PhotoMetadata metadata_;
};

TEST_F(Filing, AShotIsCopiedIntoItsFolderUnderItsOwnName) {
    const auto photo = source("IMG_1.jpg");
    EXPECT_EQ(place(photo), Texts());
    EXPECT_EQ(scene_.filed(), Names{"Bald Eagle/IMG_1.jpg"});
    EXPECT_EQ(scene_.contents("Bald Eagle/IMG_1.jpg"), "contents of IMG_1.jpg");
    EXPECT_TRUE(fs::exists(photo));
    EXPECT_EQ(scene_.engine().lastPlacedURL(), scene_.input.destination / "Bald Eagle/IMG_1.jpg");
}

TEST_F(Filing, RenamedShotsAreNumberedAndKeepOneStemWithTheirPartnersAndCompanions) {
    options_.rename = true;
    source("IMG_9.xmp");
    source("IMG_9.jpg.xmp");
    place(source("IMG_1.jpg"));
    EXPECT_EQ(place(source("IMG_9.jpg"), {source("IMG_9.cr2")}), Texts());
    // The companion that is named after the stem belongs to both files of the shot.
    EXPECT_EQ(scene_.filed(),
              (Names{"Bald Eagle/Bald_Eagle_001.jpg", "Bald Eagle/Bald_Eagle_002.jpg",
                     "Bald Eagle/Bald_Eagle_002.cr2", "Bald Eagle/Bald_Eagle_002.xmp",
                     "Bald Eagle/Bald_Eagle_002_1.xmp", "Bald Eagle/Bald_Eagle_002.jpg.xmp"}));
    EXPECT_EQ(scene_.contents("Bald Eagle/Bald_Eagle_002.jpg.xmp"), "contents of IMG_9.jpg.xmp");
}

TEST_F(Filing, AHyphenOrAnApostropheGoesFromTheFileNameAndStaysInTheFolderName) {
    options_.rename = true;
    place(source("a.jpg"), {}, grebe.name);
    place(source("b.jpg"), {}, tit.name);
    place(source("c.jpg"), {}, "Mésange n° 2");
    EXPECT_EQ(scene_.filed(),
              (Names{"Clark's Grebe/Clarks_Grebe_001.jpg", "Long-tailed Tit/Longtailed_Tit_001.jpg",
                     "Mésange n° 2/Mésange_n_2_001.jpg"}));
}

TEST_F(Filing, TheExtensionIsKeptAsItStandsAndItsDotIsWrittenWithoutOne) {
    options_.rename = true;
    place(source("a.JPG"));
    place(source("README"));
    EXPECT_EQ(scene_.filed(),
              (Names{"Bald Eagle/Bald_Eagle_001.JPG", "Bald Eagle/Bald_Eagle_002."}));
}

TEST_F(Filing, ANumberIsSpentEvenIfTheCopyFails) {
    options_.rename = true;
    scene_.files().fail(Operation::copy, nth(1), notPermitted());
    EXPECT_THROW(place(source("a.jpg")), Error);
    place(source("b.jpg"));
    EXPECT_EQ(scene_.filed(), Names{"Bald Eagle/Bald_Eagle_002.jpg"});
}

TEST_F(Filing, TheNumbersRunAcrossDayFolders) {
    options_.rename = options_.dateSubfolders = true;
    metadata_.captureDate = "2024-05-17";
    place(source("a.jpg"));
    metadata_.captureDate = "2024-05-18";
    place(source("b.jpg"));
    EXPECT_EQ(scene_.filed(), (Names{"Bald Eagle/2024-05-17/Bald_Eagle_001.jpg",
                                     "Bald Eagle/2024-05-18/Bald_Eagle_002.jpg"}));
}

TEST_F(Filing, ANewProcessNumbersFromOneAgainAndTakesACollisionSuffix) {
    options_.rename = true;
    place(source("a.jpg"));
    scene_.relaunch();
    place(source("b.jpg"), {source("b.cr2")});
    EXPECT_EQ(scene_.filed(),
              (Names{"Bald Eagle/Bald_Eagle_001.jpg", "Bald Eagle/Bald_Eagle_001_1.jpg",
                     "Bald Eagle/Bald_Eagle_001_1.cr2"}));
    EXPECT_EQ(scene_.contents("Bald Eagle/Bald_Eagle_001.jpg"), "contents of a.jpg");
}

TEST_F(Filing, AnUncertainShotKeepsItsNameAndMayGetADayFolder) {
    options_.rename = options_.dateSubfolders = true;
    metadata_.captureDate = "2024-05-17";
    place(source("a.jpg"), {source("a.cr2")}, SortEngine::uncertainFolderName);
    EXPECT_EQ(scene_.filed(),
              (Names{"_Uncertain/2024-05-17/a.jpg", "_Uncertain/2024-05-17/a.cr2"}));
}

TEST_F(Filing, NothingInTheDestinationIsOverwritten) {
    alreadyThere("Bald Eagle/IMG_1.jpg");
    alreadyThere("Bald Eagle/IMG_1.cr2");
    alreadyThere("Bald Eagle/IMG_1_1.xmp");
    source("IMG_1.xmp");
    place(source("IMG_1.jpg"), {source("IMG_1.cr2")});
    EXPECT_EQ(scene_.contents("Bald Eagle/IMG_1.jpg"), "earlier");
    EXPECT_EQ(scene_.contents("Bald Eagle/IMG_1.cr2"), "earlier");
    EXPECT_EQ(scene_.contents("Bald Eagle/IMG_1_1.xmp"), "earlier");
    EXPECT_EQ(scene_.contents("Bald Eagle/IMG_1_1.jpg"), "contents of IMG_1.jpg");
    EXPECT_EQ(scene_.contents("Bald Eagle/IMG_1_1.cr2"), "contents of IMG_1.cr2");
    EXPECT_EQ(scene_.contents("Bald Eagle/IMG_1_1_1.xmp"), "contents of IMG_1.xmp");
}

TEST_F(Filing, AFolderNameCanNotLeadOutOfTheDestination) {
    place(source("a.jpg"), {}, "../elsewhere");
    place(source("b.jpg"), {}, "..");
    place(source("c.jpg"), {}, "/tmp");
    EXPECT_EQ(scene_.filed(), (Names{".._elsewhere/a.jpg", "__/b.jpg", "_tmp/c.jpg"}));
}

TEST_F(Filing, ADayThatIsNoneCanNotLeadOutOfItsFolder) {
    options_.dateSubfolders = true;
    metadata_.captureDate = "/../-05-17";
    place(source("a.jpg"));
    EXPECT_EQ(scene_.filed(), Names{"Bald Eagle/_.._-05-17/a.jpg"});
}

TEST_F(Filing, AFolderThatCanNotBeMadeIsRaisedAndNothingIsCopied) {
    alreadyThere("Bald Eagle", "a file in the way");
    source("a.xmp");
    options_.mode = CopyMode::trashOriginal;
    EXPECT_THROW(place(source("a.jpg"), {source("a.cr2")}), Error);
    EXPECT_EQ(scene_.filed(), Names{"Bald Eagle"});
    for (const char* name : {"a.jpg", "a.cr2", "a.xmp"}) {
        EXPECT_TRUE(fs::exists(scene_.source() / name)) << name;
    }
    EXPECT_EQ(scene_.engine().lastPlacedURL(), std::nullopt);
}

TEST_F(Filing, ACopyThatFailsIsRaisedAndNothingElseOfTheShotIsTouched) {
    options_.mode = CopyMode::trashOriginal;
    source("a.xmp");
    scene_.files().fail(Operation::copy, nth(1), noSpaceLeft());
    try {
        place(source("a.jpg"), {source("a.cr2")});
        ADD_FAILURE() << "nothing was raised";
    } catch (const Error& error) {
        EXPECT_TRUE(SortEngine::isOutOfSpace(error));
    }
    EXPECT_EQ(scene_.filed(), Names());
    for (const char* name : {"a.jpg", "a.cr2", "a.xmp"}) {
        EXPECT_TRUE(fs::exists(scene_.source() / name)) << name;
    }
}

TEST_F(Filing, APartnerThatCanNotBeCopiedIsAWarningAndStaysWithItsCompanions) {
    options_.mode = CopyMode::trashOriginal;
    source("a.cr2.xmp");
    scene_.files().fail(Operation::copy, named("a.cr2"), noSpaceLeft());
    EXPECT_EQ(place(source("a.jpg"), {source("a.cr2"), source("a.mov")}),
              Texts{"Filed a.jpg but not a.cr2: It couldn't be written: No space left on device"});
    EXPECT_EQ(scene_.filed(), (Names{"Bald Eagle/a.jpg", "Bald Eagle/a.mov"}));
    EXPECT_TRUE(fs::exists(scene_.source() / "a.cr2"));
    EXPECT_TRUE(fs::exists(scene_.source() / "a.cr2.xmp"));
    EXPECT_FALSE(fs::exists(scene_.source() / "a.mov"));
}

TEST_F(Filing, ACompanionThatCanNotBeCopiedIsAWarningAndStays) {
    options_.mode = CopyMode::trashOriginal;
    source("a.xmp");
    scene_.files().fail(Operation::copy, named("a.xmp"), notPermitted());
    EXPECT_EQ(place(source("a.jpg")),
              Texts{"Kept a.xmp where it was — couldn't file it with a.jpg: It couldn't be done: "
                    "Permission denied"});
    EXPECT_TRUE(fs::exists(scene_.source() / "a.xmp"));
    EXPECT_FALSE(fs::exists(scene_.source() / "a.jpg"));
}

TEST_F(Filing, ACompanionThatBothFilesOfAShotClaimIsCopiedForEachWhenTheSourcesAreKept) {
    source("IMG_2.xmp");
    EXPECT_EQ(place(source("IMG_2.jpg"), {source("IMG_2.cr2")}), Texts());
    EXPECT_EQ(scene_.filed(), (Names{"Bald Eagle/IMG_2.jpg", "Bald Eagle/IMG_2.cr2",
                                     "Bald Eagle/IMG_2.xmp", "Bald Eagle/IMG_2_1.xmp"}));
}

TEST_F(Filing, ACompanionThatBothClaimGoesWithTheLeadingFileWhenTheSourcesAreDeleted) {
    options_.mode = CopyMode::trashOriginal;
    source("IMG_3.xmp");
    EXPECT_EQ(place(source("IMG_3.jpg"), {source("IMG_3.cr2")}),
              Texts{"Kept IMG_3.xmp where it was — couldn't file it with IMG_3.cr2: \"IMG_3.xmp\" "
                    "couldn't be copied: No such file or directory"});
    EXPECT_EQ(scene_.filed(),
              (Names{"Bald Eagle/IMG_3.jpg", "Bald Eagle/IMG_3.cr2", "Bald Eagle/IMG_3.xmp"}));
    EXPECT_TRUE(fs::is_empty(scene_.source()));
}

TEST_F(Filing, WithDeleteTheSourcesLieInTheTrashAfterwards) {
    options_.mode = CopyMode::trashOriginal;
    source("Filing-IMG_4.xmp");
    EXPECT_EQ(place(source("Filing-IMG_4.jpg")), Texts());
    EXPECT_TRUE(fs::is_empty(scene_.source()));
    EXPECT_EQ(readFile(privateTrash() / "Filing-IMG_4.jpg"), "contents of Filing-IMG_4.jpg");
    EXPECT_EQ(readFile(privateTrash() / "Filing-IMG_4.xmp"), "contents of Filing-IMG_4.xmp");
}

TEST_F(Filing, ASourceThatCanNotBeTrashedIsAWarningAndStaysWithItsCompanions) {
    options_.mode = CopyMode::trashOriginal;
    source("a.xmp");
    scene_.files().fail(Operation::trash, named("a.jpg"), notPermitted());
    EXPECT_EQ(place(source("a.jpg")),
              Texts{"Kept a.jpg — couldn't move it to the Trash: It couldn't be done: Permission "
                    "denied"});
    EXPECT_EQ(scene_.filed(), (Names{"Bald Eagle/a.jpg", "Bald Eagle/a.xmp"}));
    EXPECT_TRUE(fs::exists(scene_.source() / "a.jpg"));
    EXPECT_TRUE(fs::exists(scene_.source() / "a.xmp"));
}

TEST_F(Filing, ACompanionThatCanNotBeTrashedIsAWarning) {
    options_.mode = CopyMode::trashOriginal;
    source("a.pp3");
    source("a.xmp");
    scene_.files().fail(Operation::trash, named("a.pp3"), notPermitted());
    EXPECT_EQ(place(source("a.jpg")),
              Texts{"Kept a.pp3 — couldn't move it to the Trash: It couldn't be done: Permission "
                    "denied"});
    EXPECT_TRUE(fs::exists(scene_.source() / "a.pp3"));
    EXPECT_FALSE(fs::exists(scene_.source() / "a.xmp"));
}

TEST_F(Filing, DisposalPassesOverACompanionThatIsGoneAlready) {
    options_.mode = CopyMode::trashOriginal;
    EXPECT_EQ(
        scene_.engine().disposeOriginal(source("a.jpg"), {scene_.source() / "a.xmp"}, options_),
        Texts());
}

/// Remembers how safe each copy was asked to be.
class DurabilityFiles : public ForwardingFiles {
public:
    DurabilityFiles() : ForwardingFiles(Files::system()) {}

    void copy(const fs::path& from, const fs::path& to, Durability durability) override {
        asked.push_back(durability);
        ForwardingFiles::copy(from, to, durability);
    }

    std::vector<Durability> asked;
};

TEST_F(Filing, EveryCopyWhoseSourceWillGoIsFlushedAndNoOther) {
    const auto placeWith = [&](CopyMode mode, const std::string& stem) {
        const auto files = std::make_shared<DurabilityFiles>();
        SortEngine engine(std::make_shared<ScriptedIdentifier>(), std::make_shared<JobController>(),
                          files);
        options_.mode = mode;
        source(stem + ".jpg.xmp");
        source(stem + ".cr2.xmp");
        engine.place(source(stem + ".jpg"), {source(stem + ".cr2")}, scene_.input.destination,
                     "Bald Eagle", options_, metadata_);
        return files->asked;
    };
    EXPECT_EQ(placeWith(CopyMode::trashOriginal, "a"), std::vector(4, Durability::flushed));
    EXPECT_EQ(placeWith(CopyMode::keep, "b"), std::vector(4, Durability::cached));
}

TEST_F(Filing, NamesThatAreNotUTF8ArriveAsTheyAreAndReadWellInWarnings) {
    scene_.files().fail(Operation::copy, named("caf\xe9.cr2"), notPermitted());
    EXPECT_EQ(place(source("caf\xe9.jpg"), {source("caf\xe9.cr2")}),
              Texts{"Filed caf\uFFFD.jpg but not caf\uFFFD.cr2: It couldn't be done: Permission "
                    "denied"});
    EXPECT_EQ(scene_.filed(), Names{"Bald Eagle/caf\xe9.jpg"});
}

TEST_F(Filing, ACollisionIsResolvedByTheFirstFreeNumber) {
    const fs::path wanted = scene_.input.destination / "IMG_1.jpg";
    auto& engine = scene_.engine();
    EXPECT_EQ(engine.resolveCollision(wanted), wanted);
    alreadyThere("IMG_1.jpg");
    EXPECT_EQ(engine.resolveCollision(wanted), scene_.input.destination / "IMG_1_1.jpg");
    alreadyThere("IMG_1_1.jpg");
    EXPECT_EQ(engine.resolveCollision(wanted), scene_.input.destination / "IMG_1_2.jpg");
}

}  // namespace
}  // namespace ornivo
