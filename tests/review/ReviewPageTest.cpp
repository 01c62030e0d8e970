#include "review/ReviewPage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "identification/BirdClassifierLabels.h"
#include "platform/GroupedNumber.h"
#include "platform/Text.h"

namespace ornivo {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

/// 8 May 2026, 08:05 in London.
constexpr std::chrono::sys_seconds moment{std::chrono::seconds(1'778'223'900)};

std::string pageOf(const std::vector<ReviewPage::Row>& rows, double gate = 0.85) {
    return ReviewPage::html(rows, gate, moment, "en_GB", "Europe/London");
}

/// The array literal that the page's script begins with.
std::string itemsOf(const std::vector<ReviewPage::Row>& rows) {
    const std::string page = pageOf(rows);
    const std::string opening = "<script>\nconst ROWS = ";
    const std::size_t start = page.find(opening);
    if (start == std::string::npos) return "the page has no rows";
    return page.substr(start + opening.size(), page.find(";\n", start) - start - opening.size());
}

/// How the file name stands in the page's data.
std::string nameInItems(const std::string& fileName) {
    const std::string items = itemsOf({{fileName, {}}});
    return items.substr(6, items.size() - 6 - 9);
}

std::vector<ReviewPage::Row> rowsWithoutGuesses(std::size_t count) {
    return std::vector<ReviewPage::Row>(count, {"a.jpg", {}});
}

TEST(ReviewPage, ARowIsAFileNameAndItsGuessesWithoutBlanks) {
    EXPECT_EQ(itemsOf({{"a.jpg", {{"Erithacus_rubecula", 0.61234}, {"Prunella_modularis", 0.2}}},
                       {"b 2.jpg", {}}}),
              R"([{"f":"a.jpg","k":[{"n":"European Robin","s":"Erithacus rubecula","c":0.6123},)"
              R"({"n":"Dunnock","s":"Prunella modularis","c":0.2000}]},{"f":"b 2.jpg","k":[]}])");
}

TEST(ReviewPage, StandInsStandInATableOfTheirOwnAndLeaveTheRowsAsTheyAre) {
    const std::vector<ReviewPage::Row> rows{
        {"a.jpg", {}}, {"b.dng", {}, "b 1.jpg"}, {"c.tif", {}, ".review-pictures/\xe9\"<&.jpg"}};
    EXPECT_EQ(itemsOf(rows), R"([{"f":"a.jpg","k":[]},{"f":"b.dng","k":[]},{"f":"c.tif","k":[]}])");
    EXPECT_THAT(pageOf(rows),
                HasSubstr("}];\nconst STAND_INS = "
                          R"([[1,"b%201.jpg"],[2,".review-pictures/%E9%22%3C%26.jpg"]];)"
                          "\n"));
    EXPECT_THAT(pageOf({{"a.jpg", {}}}), HasSubstr("}];\nconst STAND_INS = [];\n"));
}

TEST(ReviewPage, ThereAreNoItemsWithoutRows) {
    EXPECT_EQ(itemsOf({}), "[]");
}

TEST(ReviewPage, OnlyTheFirstThreeCandidatesAreGuesses) {
    const std::string items =
        itemsOf({{"a.jpg", {{"A_a", 0.4}, {"B_b", 0.3}, {"C_c", 0.2}, {"D_d", 0.1}}}});
    EXPECT_THAT(items, HasSubstr(R"("s":"C c","c":0.2000}]})"));
    EXPECT_THAT(items, Not(HasSubstr("D d")));
}

TEST(ReviewPage, RowsStandInTheOrderGiven) {
    EXPECT_EQ(itemsOf({{"b", {}}, {"a", {}}, {"c", {}}}),
              R"([{"f":"b","k":[]},{"f":"a","k":[]},{"f":"c","k":[]}])");
}

TEST(ReviewPage, EveryUnderscoreOfALabelIsABlankInTheScientificLine) {
    EXPECT_THAT(itemsOf({{"a.jpg", {{"Motacilla_alba_alba", 1}}}}),
                HasSubstr(R"("s":"Motacilla alba alba","c":1.0000)"));
}

TEST(ReviewPage, ASpeciesUnknownToTheTableHasItsOwnWordsForAName) {
    EXPECT_THAT(itemsOf({{"a.jpg", {{"novel bird", 0.00004}}}}),
                HasSubstr(R"({"n":"Novel Bird","s":"novel bird","c":0.0000})"));
}

struct Escape {
    std::string raw;
    std::string written;
};

TEST(ReviewPage, CharactersThatAStringOrAScriptMightEndOnAreEscaped) {
    const std::vector<Escape> table = {
        {"\"", R"(\")"},
        {"\\", R"(\\)"},
        {"\t", R"(\t)"},
        {"\n", R"(\n)"},
        {"\r", R"(\r)"},
        {"&", R"(\u0026)"},
        {"<", R"(\u003c)"},
        {">", R"(\u003e)"},
        {"\x01", R"(\u0001)"},
        {"\b", R"(\u0008)"},
        {"\x1b", R"(\u001b)"},
        {"\x1f", R"(\u001f)"},
        {"\x7f", "\x7f"},
        {"/", "/"},
        {"'", "'"},
        {"é", "é"},
        {"鳥", "鳥"},
        {"🐦", "🐦"},
        {"\u2028", "\u2028"},
        {" ", " "},
        {"</script>", R"(\u003c/script\u003e)"},
        {std::string(1, '\0'), R"(\u0000)"},
    };
    for (const auto& [raw, written] : table) {
        EXPECT_EQ(nameInItems("a" + raw + "b"), "\"a" + written + "b\"");
    }
}

TEST(ReviewPage, AFileNameWithAQuotationMarkHasItEscaped) {
    EXPECT_EQ(itemsOf({{"the \"big\" one.jpg", {}}}), R"([{"f":"the \"big\" one.jpg","k":[]}])");
}

TEST(ReviewPage, AFileNameWithALessThanSignHasItEscaped) {
    EXPECT_EQ(itemsOf({{"a<b.jpg", {}}}), R"([{"f":"a\u003cb.jpg","k":[]}])");
}

TEST(ReviewPage, LabelsAreEscapedLikeFileNames) {
    const std::string items = itemsOf({{"a.jpg", {{"</script>_\"x\"", 0.1}}}});
    EXPECT_THAT(items, HasSubstr(R"("s":"\u003c/script\u003e \"x\"")"));
    EXPECT_THAT(items, Not(HasSubstr("<")));
}

TEST(ReviewPage, ThePageIsUtf8EvenWhereAFileNameIsNot) {
    const std::string page = pageOf({{"caf\xe9.jpg", {{"Label\xff_x", 0.5}}}});
    EXPECT_EQ(page, wellFormed(page));
    EXPECT_THAT(page, HasSubstr("\"caf\uFFFD.jpg\""));
}

TEST(ReviewPage, OneRowIsOnePhotograph) {
    EXPECT_THAT(pageOf(rowsWithoutGuesses(1)), HasSubstr(">1 photograph did not reach the "));
}

TEST(ReviewPage, SeveralRowsAreSeveralPhotographs) {
    EXPECT_THAT(pageOf(rowsWithoutGuesses(2)), HasSubstr(">2 photographs did not reach the "));
    EXPECT_THAT(pageOf(rowsWithoutGuesses(0)), HasSubstr(">0 photographs did not reach the "));
    EXPECT_THAT(pageOf(rowsWithoutGuesses(1234)), HasSubstr(">1234 photographs did not reach "));
}

TEST(ReviewPage, TheGateIsAWholePercentage) {
    EXPECT_THAT(pageOf({}, 0.85), HasSubstr(" the 85% confidence the sort needs, "));
    EXPECT_THAT(pageOf({}, 0.554), HasSubstr(" the 55% confidence "));
    EXPECT_THAT(pageOf({}, 1), HasSubstr(" the 100% confidence "));
    EXPECT_THAT(pageOf({}, 0), HasSubstr(" the 0% confidence "));
}

/// The texts that a person sees before the script has run.
TEST(ReviewPage, EveryTextStandsInItsPlace) {
    const std::vector<std::string> inOrder = {
        R"(<html lang="en">)",
        R"(<meta charset="utf-8">)",
        R"(<meta name="viewport" content="width=device-width,initial-scale=1">)",
        "<title>Uncertain photographs — Ornivo</title>",
        "<h1>These ones need your eye</h1>",
        "2 photographs did not reach the 85% confidence the sort needs, so they were left here "
        "rather than filed under a guess. The model’s best three are below each one. Nothing has "
        "been moved for you — this is a place to decide.",
        R"(<b id="n-done">0</b> <span>decided of 2</span>)",
        R"(<b id="n-left">2</b> <span>still open</span>)",
        R"(<button id="copy" type="button" aria-live="polite">Copy decisions</button>)",
        R"(<button id="reset" type="button">Reset</button>)",
        "Click a name to choose it, or press <kbd>1</kbd> <kbd>2</kbd> <kbd>3</kbd>. "
        "<b>If it is none of them, type the bird yourself</b> — the model knows " +
            groupedNumber(BirdClassifierLabels::speciesCount(), "en_GB") +
            " species and the world has closer to eleven thousand, so a bird it has never met is "
            "an ordinary outcome. <kbd>J</kbd>/<kbd>K</kbd> move. Click a photograph to see it "
            "full size. Your choices are kept in this browser and copied out as a list — the app "
            "does not move anything on their own.",
        R"(<main id="cards"></main>)",
        "Written by Ornivo on 8 May 2026, 08:05. The photographs are referenced by name from this "
        "folder, so keep this file beside them. <code>review.csv</code> next door holds the same "
        "predictions for anything that reads spreadsheets.",
        R"(<div id="lb" hidden><img alt=""></div>)",
        "<script>\nconst ROWS = [",
    };
    const std::string page = pageOf(rowsWithoutGuesses(2));
    std::size_t from = 0;
    for (const std::string& text : inOrder) {
        const std::size_t found = page.find(text, from);
        ASSERT_NE(found, std::string::npos) << text;
        from = found + text.size();
    }
}

TEST(ReviewPage, TheDateAndTheDigitsFollowTheLocale) {
    const std::string page = ReviewPage::html({}, 0.5, moment, "de_DE", "Asia/Tokyo");
    EXPECT_THAT(page, HasSubstr("Written by Ornivo on 8 Mai 2026, 16:05."));
    EXPECT_THAT(
        page, HasSubstr("the model knows " +
                        groupedNumber(BirdClassifierLabels::speciesCount(), "de_DE") + " species"));
}

TEST(ReviewPage, NothingIsLeftToFillIn) {
    const std::string page = pageOf(rowsWithoutGuesses(1));
    EXPECT_THAT(page, Not(HasSubstr("{{")));
    EXPECT_THAT(page, HasSubstr("--wattle: #b8821f"));
    EXPECT_THAT(page, HasSubstr("function paint()"));
}

TEST(ReviewPage, AFileNameThatLooksLikeAPlaceToFillInStaysAsItIs) {
    EXPECT_EQ(nameInItems("{{rows}}.jpg"), "\"{{rows}}.jpg\"");
}

TEST(ReviewPage, ThePageIsCompleteInItself) {
    const std::string page = pageOf(rowsWithoutGuesses(3));
    for (const char* outside :
         {"http:", "https:", "//cdn", "<link", "@import", "url(", "src=\"http"}) {
        EXPECT_THAT(page, Not(HasSubstr(outside)));
    }
}

TEST(ReviewPage, AFieldWithoutSpecialCharactersStandsAsItIs) {
    EXPECT_EQ(ReviewPage::csvField("IMG 1'é.jpg"), "IMG 1'é.jpg");
    EXPECT_EQ(ReviewPage::csvField(""), "");
}

TEST(ReviewPage, ACommaAQuotationMarkOrALineFeedPutsAFieldInQuotationMarks) {
    EXPECT_EQ(ReviewPage::csvField("a,b.jpg"), "\"a,b.jpg\"");
    EXPECT_EQ(ReviewPage::csvField("the \"big\" one.jpg"), "\"the \"\"big\"\" one.jpg\"");
    EXPECT_EQ(ReviewPage::csvField("two\nlines.jpg"), "\"two\nlines.jpg\"");
    EXPECT_EQ(ReviewPage::csvField("\""), "\"\"\"\"");
}

TEST(ReviewPage, ACarriageReturnAloneDoesNotQuote) {
    EXPECT_EQ(ReviewPage::csvField("odd\r.jpg"), "odd\r.jpg");
}

}  // namespace
}  // namespace ornivo
