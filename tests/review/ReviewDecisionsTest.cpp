#include "review/ReviewDecisions.h"

#include <gtest/gtest.h>

#include "support/FailingFiles.h"
#include "support/TempFolder.h"

namespace ornivo {
namespace {

using namespace testing;
using ReviewDecisions::Decision;
using ReviewDecisions::Outcome;
namespace fs = std::filesystem;
using Decisions = std::vector<Decision>;
using Names = std::set<std::string>;
using Operation = FailingFiles::Operation;

TEST(DecisionsText, ALineIsReadQuotedOrPlainWithBlanksAroundOrFieldsTooMany) {
    const Decisions robin{{"a.jpg", "Robin"}};
    for (const char* text : {
             "filename,species\n\"a.jpg\",\"Robin\"",
             "a.jpg,Robin",
             "  a.jpg , Robin  ",
             "\ta.jpg\t,\tRobin\t",
             "a.jpg,Robin,extra",
             "\n\na.jpg,Robin\n\n",
             "\" a.jpg \",Robin",
         }) {
        EXPECT_EQ(ReviewDecisions::parse(text), robin) << text;
    }
}

TEST(DecisionsText, ALineWithoutBothFieldsIsLeftOut) {
    for (const char* text : {"", "\n", "   ", "\t", "a.jpg", "a.jpg,", "a.jpg,  ", ",Robin",
                             "\"\",Robin", "a.jpg,\"\"", "\"a.jpg,Robin", ","}) {
        EXPECT_EQ(ReviewDecisions::parse(text), Decisions()) << text;
    }
}

TEST(DecisionsText, AHeaderIsLeftOutOnAnyLineWhateverItsCaseAndSpecies) {
    EXPECT_EQ(ReviewDecisions::parse("FILENAME,Species\na.jpg,Robin\nfilename,Wren"),
              (Decisions{{"a.jpg", "Robin"}}));
}

TEST(DecisionsText, CarriageReturnAndLineFeedEndALine) {
    EXPECT_EQ(ReviewDecisions::parse("filename,species\r\na.jpg,Robin\r\nb.jpg,Wren\r\n"),
              (Decisions{{"a.jpg", "Robin"}, {"b.jpg", "Wren"}}));
}

TEST(DecisionsText, ACarriageReturnAloneEndsNoLineAndStays) {
    EXPECT_EQ(ReviewDecisions::parse("a.jpg,Robin\rb.jpg,Wren"),
              (Decisions{{"a.jpg", "Robin\rb.jpg"}}));
    EXPECT_EQ(ReviewDecisions::parse("a.jpg,Robin\r"), (Decisions{{"a.jpg", "Robin\r"}}));
}

TEST(DecisionsText, QuotationMarksOpenAndCloseWhereverTheyStand) {
    EXPECT_EQ(ReviewDecisions::parse("\"a\"\"b\",c"), (Decisions{{"a\"b", "c"}}));
    EXPECT_EQ(ReviewDecisions::parse("ab\"c,d\"e,f"), (Decisions{{"abc,de", "f"}}));
    EXPECT_EQ(ReviewDecisions::parse("a.jpg,\"still open, to the end"),
              (Decisions{{"a.jpg", "still open, to the end"}}));
    EXPECT_EQ(ReviewDecisions::parse("\"a,b.jpg\",\"say \"\"Wren\"\"\""),
              (Decisions{{"a,b.jpg", "say \"Wren\""}}));
}

TEST(DecisionsText, AQuotedLineFeedEndsTheLineAllTheSame) {
    // What is left of the name and the species is one field with an open quotation.
    EXPECT_EQ(ReviewDecisions::parse("\"two\nlines.jpg\",\"Robin\""), Decisions());
}

TEST(DecisionsText, TenMegabytesOfAnythingAreRead) {
    const std::size_t length = 10 << 20;
    EXPECT_EQ(ReviewDecisions::parse(std::string(length, '"')), Decisions());
    EXPECT_EQ(ReviewDecisions::parse(std::string(length, '\n')), Decisions());
    EXPECT_EQ(ReviewDecisions::parse(std::string(length, ',')), Decisions());
    std::string lines;
    int count = 0;
    for (; lines.size() < length; ++count) {
        lines += "\"IMG_" + std::to_string(count) + ".jpg\",\"Clark's Grebe\"\r\n";
    }
    const Decisions decisions = ReviewDecisions::parse(lines);
    ASSERT_EQ(decisions.size(), static_cast<std::size_t>(count));
    EXPECT_EQ(decisions.back().species, "Clark's Grebe");
}

/// A destination with files in `_Uncertain`.
class FiledDecisions : public ::testing::Test {
protected:
    void uncertain(const std::string& name) { there("_Uncertain/" + name, name); }
    void there(const std::string& path, const std::string& contents) {
        writeFile(destination() / path, contents);
    }

    Outcome apply(const std::string& text) {
        return ReviewDecisions::apply(ReviewDecisions::parse(text), destination(), files_);
    }

    /// Every file of the destination by its path from there, and what lies around it.
    Names filed() const {
        Names names;
        for (const auto& entry : fs::recursive_directory_iterator(folder_.path())) {
            if (entry.is_regular_file()) {
                names.insert(entry.path().lexically_relative(destination()).native());
            }
        }
        return names;
    }

    std::string contents(const std::string& path) const { return readFile(destination() / path); }
    /// So deep that a path which climbs from it is seen to arrive.
    fs::path destination() const { return folder_ / "pictures/2026/birds"; }

    FailingFiles files_;

private:
    TempFolder folder_;
};

TEST_F(FiledDecisions, APhotographGoesToTheFolderOfItsSpecies) {
    uncertain("a.jpg");
    uncertain("b.jpg");
    EXPECT_EQ(apply("filename,species\n\"a.jpg\",\"Robin\""), (Outcome{1, {}, {}, {"Robin"}}));
    EXPECT_EQ(filed(), (Names{"Robin/a.jpg", "_Uncertain/b.jpg"}));
}

TEST_F(FiledDecisions, ThePageAndTheListStayAndASecondPasteFindsNothing) {
    uncertain("a.jpg");
    uncertain("review.html");
    uncertain("review.csv");
    apply("a.jpg,Robin");
    EXPECT_EQ(apply("a.jpg,Robin"), (Outcome{0, {"a.jpg"}, {}, {}}));
    EXPECT_EQ(filed(), (Names{"Robin/a.jpg", "_Uncertain/review.csv", "_Uncertain/review.html"}));
}

TEST_F(FiledDecisions, OnlyTheLastPartOfAPastedPathIsUsed) {
    uncertain("a.jpg");
    writeFile(destination().parent_path() / "secret.jpg", "outside");
    EXPECT_EQ(apply("../../etc/passwd,Robin"), (Outcome{0, {"passwd"}, {}, {}}));
    EXPECT_EQ(apply("../secret.jpg,Robin"), (Outcome{0, {"secret.jpg"}, {}, {}}));
    EXPECT_EQ(apply("/somewhere/else/a.jpg,Robin").moved, 1);
    EXPECT_EQ(filed(), (Names{"../secret.jpg", "Robin/a.jpg"}));
}

TEST_F(FiledDecisions, ASpeciesOfDotsAloneFailsUnderTheNameAsPasted) {
    uncertain("a.jpg");
    for (const char* species : {".", "..", "...", "/..", " .. ", "../"}) {
        EXPECT_EQ(apply("a.jpg," + std::string(species)), (Outcome{0, {}, {"a.jpg"}, {}}));
        EXPECT_EQ(apply("sub/a.jpg," + std::string(species)), (Outcome{0, {}, {"sub/a.jpg"}, {}}));
    }
    EXPECT_EQ(filed(), Names{"_Uncertain/a.jpg"});
}

TEST_F(FiledDecisions, NamesThatNoFileInAFolderHasFail) {
    uncertain("a.jpg");
    const std::vector<std::string> names{"/", ".", "..", std::string("a.jpg\0x", 7)};
    for (const std::string& name : names) {
        EXPECT_EQ(ReviewDecisions::apply({{name, "Robin"}}, destination(), files_),
                  (Outcome{0, {}, {name}, {}}));
    }
    EXPECT_EQ(filed(), (Names{"_Uncertain/a.jpg"}));
}

TEST_F(FiledDecisions, SeparatorsBecomeBlanksAndNothingElseOfTheSpeciesChanges) {
    const std::vector<std::pair<std::string, std::string>> folders{
        {"Black/White Warbler", "Black White Warbler"},
        {"Black//White", "Black  White"},
        {"Black\\White", "Black White"},
        {"Black:White", "Black White"},
        {std::string("Black\0White", 11), "Black White"},
        {"/ Wren /", "Wren"},
        {"\nWren\r", "Wren"},
        {".hidden", ".hidden"},
        {"wren", "wren"},
        {"Wren\tor\x01not", "Wren\tor\x01not"},
        {"Gemse Ψ 鳥", "Gemse Ψ 鳥"},
    };
    for (const auto& [species, folder] : folders) {
        uncertain("a.jpg");
        EXPECT_EQ(ReviewDecisions::apply({{"a.jpg", species}}, destination(), files_).folders,
                  Names{folder});
        EXPECT_TRUE(fs::remove(destination() / folder / "a.jpg")) << folder;
    }
}

TEST_F(FiledDecisions, NoTextLeadsOutOfTheDestination) {
    const std::vector<std::pair<std::string, std::string>> folders{
        {"../out", ".. out"},
        {"../../out", ".. .. out"},
        {"../../../../out", ".. .. .. .. out"},
        {"/tmp/out", "tmp out"},
        {"..\\out", ".. out"},
        {"C:\\out", "C  out"},
        {"./../out", ". .. out"},
        {"a/../../../out", "a .. .. .. out"},
        {"_Uncertain/../../out", "_Uncertain .. .. out"},
        {"~", "~"},
        {"~/out", "~ out"},
        {"\x1b[2J", "\x1b[2J"},
    };
    for (const auto& [species, folder] : folders) {
        uncertain("a.jpg");
        EXPECT_EQ(ReviewDecisions::apply({{"a.jpg", species}}, destination(), files_),
                  (Outcome{1, {}, {}, {folder}}))
            << species;
        EXPECT_EQ(filed(), Names{folder + "/a.jpg"}) << species;
        fs::remove_all(destination() / folder);
    }
    uncertain("a.jpg");
    EXPECT_EQ(ReviewDecisions::apply({{"a.jpg", "..\r"}}, destination(), files_),
              (Outcome{0, {}, {"a.jpg"}, {}}));
    EXPECT_EQ(filed(), Names{"_Uncertain/a.jpg"});
}

TEST_F(FiledDecisions, AFolderOfADayIsNoPhotographAndStaysWhereItIs) {
    uncertain("2026-05-31/a.jpg");
    EXPECT_EQ(apply("2026-05-31,Robin"), (Outcome{0, {"2026-05-31"}, {}, {}}));
    EXPECT_EQ(filed(), Names{"_Uncertain/2026-05-31/a.jpg"});
}

TEST_F(FiledDecisions, ATakenNameIsResolvedAndTheCompanionFollowsIt) {
    uncertain("a.jpg");
    uncertain("a.xmp");
    there("Robin/a.jpg", "earlier");
    EXPECT_EQ(apply("a.jpg,Robin").moved, 1);
    EXPECT_EQ(filed(), (Names{"Robin/a.jpg", "Robin/a_1.jpg", "Robin/a_1.xmp"}));
    EXPECT_EQ(contents("Robin/a.jpg"), "earlier");
}

TEST_F(FiledDecisions, TheWholeShotAndItsCompanionsTravelAndCountOnce) {
    for (const char* name : {"a.jpg", "a.cr2", "a.xmp", "a.jpg.pp3", "a.CR2.dop", "a.mov", "b.xmp"})
        uncertain(name);
    EXPECT_EQ(apply("a.jpg,Robin"), (Outcome{1, {}, {}, {"Robin"}}));
    EXPECT_EQ(filed(), (Names{"Robin/a.jpg", "Robin/a.cr2", "Robin/a.xmp", "Robin/a.jpg.pp3",
                              "Robin/a.cr2.dop", "Robin/a.mov", "_Uncertain/b.xmp"}));
}

TEST_F(FiledDecisions, ASiblingKeepsItsNameAndItsCompanionTakesTheFormOfIt) {
    uncertain("a.jpg");
    uncertain("a.cr2");
    uncertain("a.cr2.xmp");
    there("Robin/a.cr2", "earlier");
    apply("a.jpg,Robin");
    EXPECT_EQ(filed(), (Names{"Robin/a.jpg", "Robin/a.cr2", "Robin/a_1.cr2", "Robin/a_1.cr2.xmp"}));
}

TEST_F(FiledDecisions, ASiblingsDecisionComesTooLateOnceItHasTravelled) {
    uncertain("a.jpg");
    uncertain("a.jpeg");
    uncertain("a.jpg.xmp");
    uncertain("a.xmp");
    EXPECT_EQ(apply("a.jpg,Robin\na.jpeg,Wren"), (Outcome{1, {"a.jpeg"}, {}, {"Robin"}}));
    EXPECT_EQ(filed(), (Names{"Robin/a.jpg", "Robin/a.jpeg", "Robin/a.jpg.xmp", "Robin/a.xmp"}));
}

TEST_F(FiledDecisions, OfTwoThatShareACompanionTheFirstTakesIt) {
    // Named after all of the first one's name, and after the stem of the second's.
    for (const bool isReversed : {false, true}) {
        uncertain("a.jpg");
        uncertain("a.jpg.png");
        uncertain("a.jpg.xmp");
        const std::string text =
            isReversed ? "a.jpg.png,Wren\na.jpg,Robin" : "a.jpg,Robin\na.jpg.png,Wren";
        EXPECT_EQ(apply(text), (Outcome{2, {}, {}, {"Robin", "Wren"}}));
        const std::string taker = isReversed ? "Wren" : "Robin";
        EXPECT_EQ(filed(), (Names{"Robin/a.jpg", "Wren/a.jpg.png", taker + "/a.jpg.xmp"}));
        fs::remove_all(destination());
    }
}

TEST_F(FiledDecisions, ACompanionThatStaysFailsUnseen) {
    uncertain("a.jpg");
    uncertain("a.xmp");
    files_.fail(Operation::move, named("a.xmp"), notPermitted());
    EXPECT_EQ(apply("a.jpg,Robin"), (Outcome{1, {}, {}, {"Robin"}}));
    EXPECT_EQ(filed(), (Names{"Robin/a.jpg", "_Uncertain/a.xmp"}));
}

TEST_F(FiledDecisions, ASiblingThatStaysKeepsItsCompanions) {
    uncertain("a.jpg");
    uncertain("a.cr2");
    uncertain("a.cr2.xmp");
    files_.fail(Operation::move, named("a.cr2"), notPermitted());
    EXPECT_EQ(apply("a.jpg,Robin"), (Outcome{1, {}, {}, {"Robin"}}));
    EXPECT_EQ(filed(), (Names{"Robin/a.jpg", "_Uncertain/a.cr2", "_Uncertain/a.cr2.xmp"}));
}

TEST_F(FiledDecisions, OneFailureDoesNotStopTheNext) {
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) uncertain(name);
    there("Wren", "a file where the folder would be");
    files_.fail(Operation::move, named("a.jpg"), notPermitted());
    EXPECT_EQ(apply("x/a.jpg,Robin\nb.jpg,Wren\nc.jpg,Robin"),
              (Outcome{1, {}, {"a.jpg", "b.jpg"}, {"Robin"}}));
    EXPECT_EQ(filed(), (Names{"Robin/c.jpg", "Wren", "_Uncertain/a.jpg", "_Uncertain/b.jpg"}));
}

TEST_F(FiledDecisions, AFolderNameThatIsTooLongFails) {
    uncertain("a.jpg");
    EXPECT_EQ(apply("a.jpg," + std::string(300, 'W')), (Outcome{0, {}, {"a.jpg"}, {}}));
}

TEST_F(FiledDecisions, WithoutUncertainNothingIsFound) {
    const Outcome outcome = apply("a.jpg,Robin\nb.jpg,Wren");
    EXPECT_EQ(outcome, (Outcome{0, {"a.jpg", "b.jpg"}, {}, {}}));
    EXPECT_EQ(ReviewDecisions::statusText(outcome),
              "Filed 0 photos into 0 folders. 2 were not in _Uncertain — already filed, or "
              "renamed.");
    EXPECT_FALSE(fs::exists(destination() / "Robin"));
}

TEST(DecisionsStatus, SaysEachSentenceAsNeeded) {
    const std::vector<std::pair<Outcome, std::string>> sentences{
        {{1, {}, {}, {"Robin"}}, "Filed 1 photo into 1 folder."},
        {{3, {}, {}, {"Robin", "Wren"}}, "Filed 3 photos into 2 folders."},
        {{2, {}, {"a"}, {"Robin"}}, "Filed 2 photos into 1 folder. 1 could not be moved."},
        {{0, {"a"}, {"b", "c"}, {}},
         "Filed 0 photos into 0 folders. 1 were not in _Uncertain — already filed, or renamed. 2 "
         "could not be moved."},
    };
    for (const auto& [outcome, text] : sentences) {
        EXPECT_EQ(ReviewDecisions::statusText(outcome), text);
    }
    EXPECT_STREQ(ReviewDecisions::nothingToFile,
                 "Nothing to file — the clipboard holds no decisions. Press Copy decisions in "
                 "review.html first.");
}

}  // namespace
}  // namespace ornivo
