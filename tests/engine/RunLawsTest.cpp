#include "engine/RunLaws.h"

#include <gtest/gtest.h>

#include <fstream>

#include "review/PosterFolder.h"
#include "support/PrivateTrash.h"
#include "support/RunScene.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

/// Files that do to a copy whatever they are told.
class BadFiles : public ForwardingFiles {
public:
    BadFiles() : ForwardingFiles(Files::system()) {}

    void copy(const fs::path& from, const fs::path& to, Durability durability) override {
        if (badCopy) {
            badCopy(from, to);
        } else {
            ForwardingFiles::copy(from, to, durability);
        }
    }

    std::function<void(const fs::path&, const fs::path&)> badCopy;
};

/// A run of two files, done by hand: what the laws say of it in the end.
class RunLawsTest : public ::testing::Test {
protected:
    RunLawsTest() {
        input_.paths = {writeFile(folder_ / "source/RunLaws-a.jpg", "aaaa"),
                        writeFile(folder_ / "source/RunLaws-b.jpg", "bbbb")};
        input_.destination = folder_ / "sorted";
        earlier_ = writeFile(input_.destination / "Robin/earlier.jpg", "earlier");
        writeFile(input_.destination / "_Uncertain/review.csv", "rows");
    }

    void begin() { laws_.emplace(*files_, input_, grouping_, SortResult(), FindResult()); }

    fs::path placeOf(std::size_t index) const {
        return input_.destination / "Robin" / input_.paths[index].filename();
    }

    void copy(std::size_t index, Durability durability = Durability::cached) {
        files_->copy(input_.paths[index], placeOf(index), durability);
    }

    /// The totals after both files, of which so many were filed and the others errors.
    Texts violations(int sorted, int errors, int lastProcessed = 1) {
        SortResult sort;
        sort.sorted = sorted;
        sort.errors = errors;
        sort.processed = lastProcessed + 1;
        sort.warnings = warnings_;
        return laws_->violations(lastProcessed, sort, FindResult());
    }

    TempFolder folder_;
    SortEngine::RunInput input_;
    fs::path earlier_;
    Shots::Grouping grouping_;
    Texts warnings_;
    std::shared_ptr<BadFiles> bad_ = std::make_shared<BadFiles>();
    std::shared_ptr<AuditedFiles> files_ = std::make_shared<AuditedFiles>(bad_);
    std::optional<RunLaws> laws_;
};

TEST_F(RunLawsTest, ARunThatFiledOneAndFailedOneKeptThem) {
    begin();
    copy(0);
    files_->replaceContents(input_.destination / "_Uncertain/review.csv", "rows and more");
    EXPECT_EQ(violations(1, 1), Texts());
}

TEST_F(RunLawsTest, FilesThatAStopLeftOutNeedNoAccount) {
    begin();
    copy(0);
    EXPECT_EQ(violations(1, 0, 0), Texts());
}

TEST_F(RunLawsTest, PostersOfTheReviewPageMayComeAndGo) {
    const fs::path posters = input_.destination / "_Uncertain/.review-pictures";
    writeFile(posters / "old.dng.jpg", PosterFolder::marked("\xFF\xD8 old"));
    writeFile(posters / "replaced.dng.jpg", PosterFolder::marked("\xFF\xD8 one"));
    begin();
    copy(0);
    fs::remove(posters / "old.dng.jpg");
    writeFile(posters / "replaced.dng.jpg", PosterFolder::marked("\xFF\xD8 another"));
    writeFile(posters / "new.dng.jpg", PosterFolder::marked("\xFF\xD8 new"));
    EXPECT_EQ(violations(1, 1), Texts());
}

TEST_F(RunLawsTest, APosterThatIsNotWholeIsFound) {
    const fs::path poster = input_.destination / "_Uncertain/.review-pictures/a.dng.jpg";
    begin();
    copy(0);
    const std::string whole = PosterFolder::marked("\xFF\xD8 picture");
    writeFile(poster, whole.substr(0, whole.size() - 1));
    EXPECT_EQ(violations(1, 1), Texts{poster.string() + " was left behind"});
}

TEST_F(RunLawsTest, SomebodyElsesFileAmongThePostersMayNotGo) {
    const fs::path foreign =
        writeFile(input_.destination / "_Uncertain/.review-pictures/a.dng.jpg", "\xFF\xD8 mine");
    begin();
    copy(0);
    writeFile(foreign, PosterFolder::marked("\xFF\xD8 ours"));
    EXPECT_EQ(violations(1, 1),
              Texts{foreign.string() + " was there before, and has changed or gone"});
    fs::remove(foreign);
    EXPECT_EQ(violations(1, 1),
              Texts{foreign.string() + " was there before, and has changed or gone"});
}

TEST_F(RunLawsTest, APosterOutsideItsFolderIsOneMoreFile) {
    begin();
    copy(0);
    const fs::path poster =
        writeFile(input_.destination / "_Uncertain/a.jpg", PosterFolder::marked("\xFF\xD8 new"));
    EXPECT_EQ(violations(1, 1), Texts{poster.string() + " was left behind"});
}

// The first law.

TEST_F(RunLawsTest, AFileThatIsNeitherFiledNorAnErrorIsFound) {
    begin();
    copy(0);
    EXPECT_EQ(violations(1, 0), Texts{"shots not filed: 0 instead of 1"});
}

TEST_F(RunLawsTest, AFileThatWasOnlySaidToBeFiledIsFound) {
    begin();
    copy(0);
    EXPECT_EQ(violations(2, 0),
              (Texts{"shots filed: 2 instead of 1", "shots not filed: 0 instead of 1"}));
}

TEST_F(RunLawsTest, AFileThatWasNotCountedAsProcessedIsFound) {
    begin();
    copy(0);
    SortResult sort;
    sort.sorted = 1;
    sort.errors = 1;
    sort.processed = 1;
    EXPECT_EQ(laws_->violations(1, sort, FindResult()), Texts{"files processed: 1 instead of 2"});
}

TEST_F(RunLawsTest, APartnerLeftBehindWithoutAWordIsFound) {
    grouping_.partners[0] = {1};
    grouping_.followers = {1};
    begin();
    copy(0);
    EXPECT_EQ(violations(1, 0),
              Texts{input_.paths[1].string() + " was not filed with its shot, without a word"});
    warnings_ = {"Filed RunLaws-a.jpg but not RunLaws-b.jpg: Permission denied"};
    EXPECT_EQ(violations(1, 0), Texts());
}

TEST_F(RunLawsTest, AMatchOfAFindRunMustHaveBeenCopied) {
    input_.mode = AppMode::find;
    begin();
    copy(0);
    SortResult sort;
    sort.processed = 2;
    FindResult find;
    find.scanned = 2;
    find.matched = 1;
    EXPECT_EQ(laws_->violations(1, sort, find), Texts());
    find.matched = 2;
    EXPECT_EQ(laws_->violations(1, sort, find), Texts{"shots matched: 2 instead of 1"});
    find.matched = 1;
    find.scanned = 1;
    EXPECT_EQ(laws_->violations(1, sort, find), Texts{"shots not classified: 0 instead of 1"});
    find.errors = 1;
    EXPECT_EQ(laws_->violations(1, sort, find), Texts());
}

// The second law.

TEST_F(RunLawsTest, AnEarlierFileThatChangedOrWentIsFound) {
    const std::string sentence = earlier_.string() + " was there before, and has changed or gone";
    begin();
    bad_->badCopy = [&](const fs::path& from, const fs::path& to) {
        fs::copy_file(from, to);
        std::ofstream(earlier_, std::ios::app) << "!";
    };
    copy(0);
    EXPECT_EQ(violations(1, 1), Texts{sentence});
    fs::remove(earlier_);
    EXPECT_EQ(violations(1, 1), Texts{sentence});
}

TEST_F(RunLawsTest, AnEarlierFileThatACopyOverwroteIsFound) {
    begin();
    bad_->badCopy = [](const fs::path& from, const fs::path& to) {
        fs::copy_file(from, to, fs::copy_options::overwrite_existing);
    };
    files_->copy(input_.paths[0], earlier_, Durability::cached);
    EXPECT_EQ(violations(1, 1),
              Texts{earlier_.string() + " was there before, and has changed or gone"});
}

TEST_F(RunLawsTest, AnEarlierFileThatWasMovedAndStandsIsNoBreach) {
    begin();
    files_->move(earlier_, input_.destination / "moved.jpg");
    EXPECT_EQ(violations(0, 2), Texts());
    fs::resize_file(input_.destination / "moved.jpg", 3);
    EXPECT_EQ(violations(0, 2),
              Texts{earlier_.string() + " was there before, and has changed or gone"});
}

TEST_F(RunLawsTest, AReviewListThatLostRowsIsFound) {
    begin();
    files_->replaceContents(input_.destination / "_Uncertain/review.csv", "row");
    EXPECT_EQ(violations(0, 2), Texts{(input_.destination / "_Uncertain/review.csv").string() +
                                      " was not only added to"});
}

// The third law.

TEST_F(RunLawsTest, ASourceThatWentAfterItsFlushedCopyIsNoBreach) {
    begin();
    copy(0, Durability::flushed);
    files_->trash(input_.paths[0]);
    EXPECT_EQ(violations(1, 1), Texts());
}

TEST_F(RunLawsTest, ASourceThatWasTrashedWithoutASafeCopyIsFound) {
    const auto sentence = [&](std::size_t index) {
        return input_.paths[index].string() + " was trashed without a safe copy";
    };
    begin();
    files_->trash(input_.paths[0]);
    copy(1, Durability::cached);
    files_->trash(input_.paths[1]);
    EXPECT_EQ(violations(1, 1), (Texts{sentence(0), sentence(1)}));
}

TEST_F(RunLawsTest, ASourceWhoseCopyIsGoneOrCutShortIsFound) {
    begin();
    copy(0, Durability::flushed);
    copy(1, Durability::flushed);
    files_->trash(input_.paths[0]);
    files_->trash(input_.paths[1]);
    fs::remove(placeOf(0));
    EXPECT_EQ(violations(2, 0),
              Texts{input_.paths[0].string() + " was trashed without a safe copy"});
    fs::resize_file(placeOf(1), 2);
    EXPECT_EQ(violations(2, 0),
              (Texts{input_.paths[0].string() + " was trashed without a safe copy",
                     input_.paths[1].string() + " was trashed without a safe copy",
                     placeOf(1).string() + " is not complete"}));
}

TEST_F(RunLawsTest, ASourceThatWasMovedInsteadOfCopiedIsFound) {
    begin();
    bad_->badCopy = [](const fs::path& from, const fs::path& to) { fs::rename(from, to); };
    copy(0);
    EXPECT_EQ(violations(1, 1),
              Texts{input_.paths[0].string() + " has gone, and not to the trash"});
}

// The fourth law.

TEST_F(RunLawsTest, ACopyThatWasCutShortIsFoundEvenIfItIsMendedLater) {
    begin();
    bad_->badCopy = [](const fs::path&, const fs::path& to) { writeFile(to, "aa"); };
    copy(0);
    EXPECT_EQ(violations(1, 1), Texts{placeOf(0).string() + " is not complete"});
    writeFile(placeOf(0), "aaaa");
    EXPECT_EQ(violations(1, 1), Texts{placeOf(0).string() + " is not complete"});
}

TEST_F(RunLawsTest, ACopyThatWasOnlyPretendedIsFound) {
    begin();
    bad_->badCopy = [](const fs::path&, const fs::path&) {};
    copy(0);
    EXPECT_EQ(violations(1, 1), Texts{placeOf(0).string() + " is not complete"});
}

TEST_F(RunLawsTest, AFileThatNobodyPlacedIsFound) {
    begin();
    bad_->badCopy = [](const fs::path& from, const fs::path& to) {
        fs::copy_file(from, to);
        writeFile(to.parent_path() / ".ornivo-1234", "aa");
    };
    copy(0);
    EXPECT_EQ(violations(1, 1),
              Texts{(input_.destination / "Robin/.ornivo-1234").string() + " was left behind"});
}

// In a run.

TEST(RunLaws, AreAssertedAtTheEndOfARun) {
    if (!RunLaws::areChecked) GTEST_SKIP() << "this build does not check the laws";
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    RunScene scene;
    scene.picture("a.jpg", robin, 0.9);
    const auto files = std::make_shared<BadFiles>();
    files->badCopy = [](const fs::path&, const fs::path& to) { writeFile(to, "half"); };
    EXPECT_DEATH(
        {
            SortEngine engine(scene.sharedIdentifier(), std::make_shared<JobController>(), files);
            readToEnd(engine.run(scene.input));
        },
        "A run broke a law: .*European Robin/a.jpg is not complete");
}

}  // namespace
}  // namespace ornivo
