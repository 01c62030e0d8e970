#include "app/presentation/CreditsText.h"

#include <gtest/gtest.h>

namespace ornivo::app {
namespace {

std::optional<Credits::Payload> credits() {
    Credits::Payload payload;
    payload.rosterStatus = "complete";
    payload.training.sources = {
        {"a", "Many", "Holder A", "https://example.org/a", 5060, {{"CC0", 5000}, {"CC BY", 60}}},
        {"b", "One", "Holder B", "not an address at all \x01", 1, {}},
        {"c", "None", "Holder C", "", 0, {{"CC0", 0}}},
    };
    payload.components = {{"Library", "reads files", "H", "MIT", "Cite", "https://example.org"}};
    payload.photographers = {"Ada", "Bea"};
    return payload;
}

Credits::Citation citation(const char* doi) {
    return {doi, "T"};
}

}  // namespace

TEST(CreditsText, ASourceShowsItsPicturesOrElseItsHolder) {
    const auto rows = sourceRows(credits(), "en_GB");
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].name, "Many");
    EXPECT_EQ(rows[0].detail, QString::fromUtf8("5,060 photographs · CC BY, CC0"));
    EXPECT_EQ(rows[0].url, QUrl("https://example.org/a"));
    EXPECT_EQ(rows[1].detail, "1 photograph");
    EXPECT_EQ(rows[2].detail, "Holder C");
}

TEST(CreditsText, AnAddressThatIsNoneIsLeftOut) {
    const auto rows = sourceRows(credits(), "en_GB");
    EXPECT_TRUE(rows.at(1).url.isEmpty());
    EXPECT_TRUE(rows.at(2).url.isEmpty());
}

TEST(CreditsText, AComponentShowsItsLicenceAndItsRole) {
    EXPECT_EQ(componentRows(credits()),
              (std::vector<CreditRow>{{"Library", QString::fromUtf8("· MIT"), "reads files",
                                       QUrl("https://example.org")}}));
}

TEST(CreditsText, WithoutCreditsThereAreNoRows) {
    EXPECT_TRUE(sourceRows(std::nullopt).empty());
    EXPECT_TRUE(componentRows(std::nullopt).empty());
}

TEST(CreditsText, TheTitleCountsACompleteRoster) {
    EXPECT_EQ(photographersTitle(credits()), "Photographers (2)");
    auto pending = credits();
    pending->rosterStatus = "pending";
    EXPECT_EQ(photographersTitle(pending), "Photographers");
    auto nobody = credits();
    nobody->photographers.clear();
    EXPECT_EQ(photographersTitle(nobody), "Photographers");
    EXPECT_EQ(photographersTitle(std::nullopt), "Photographers");
}

TEST(CreditsText, TheNumberShownIsGroupedAsTheLocaleDoes) {
    EXPECT_EQ(countShown(100000, "en_GB"),
              QString::fromUtf8("100,000 shown — scroll, or search to find someone."));
    EXPECT_EQ(countShown(100000, "de_DE"),
              QString::fromUtf8("100.000 shown — scroll, or search to find someone."));
    EXPECT_EQ(countShown(1, "en_GB"),
              QString::fromUtf8("1 shown — scroll, or search to find someone."));
}

TEST(CreditsText, ADOILeadsToItsResolver) {
    EXPECT_EQ(doiAddress(citation(" 10.15468/dd.abc ")), QUrl("https://doi.org/10.15468/dd.abc"));
    EXPECT_EQ(doiAddress(citation("  ")), QUrl());
    EXPECT_EQ(doiAddress(citation("")), QUrl());
}

}  // namespace ornivo::app
