#include "review/ReviewPage.h"

#include <gtest/gtest.h>

namespace ornivo {
namespace {

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
