#include "app/presentation/NameSearch.h"

#include <gtest/gtest.h>

#include <QLocale>

namespace ornivo::app {
namespace {

using Places = std::vector<int>;

const std::vector<std::string> names{
    "Ada Lovelace", "Émile Zola", "ISTANBUL Işık", "ada", "Weiß Müller", "no\nline end", ""};

Places found(const char* part) {
    return NameSearch(names).search(QString::fromUtf8(part));
}

}  // namespace

TEST(NameSearch, FindsAPartOfANameAndKeepsTheOrder) {
    EXPECT_EQ(found("ada"), (Places{0, 3}));
    EXPECT_EQ(found("LOVE"), (Places{0}));
    EXPECT_EQ(found("a"), (Places{0, 1, 2, 3}));
    EXPECT_EQ(found("xyz"), (Places{}));
}

TEST(NameSearch, BlanksAroundWhatIsSearchedForDontCount) {
    EXPECT_EQ(found("  ada\t"), (Places{0, 3}));
    EXPECT_EQ(found("ada l"), (Places{0}));
}

TEST(NameSearch, BlanksAloneShowEveryone) {
    EXPECT_EQ(found(""), (Places{0, 1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(found(" \t\n"), (Places{0, 1, 2, 3, 4, 5, 6}));
}

TEST(NameSearch, CaseDoesntCountAndAccentsDo) {
    EXPECT_EQ(found("émile"), (Places{1}));
    EXPECT_EQ(found("ÉMILE"), (Places{1}));
    EXPECT_EQ(found("e\u0301mile"), (Places{1}));
    EXPECT_EQ(found("emile"), (Places{}));
    EXPECT_EQ(found("müller"), (Places{4}));
    EXPECT_EQ(found("WEISS"), (Places{4}));
}

TEST(NameSearch, TheUsersLocaleSaysWhichLettersAreTheSame) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Turkish));
    EXPECT_EQ(found("ıstanbul"), (Places{2}));
    EXPECT_EQ(found("istanbul"), (Places{}));
    QLocale::setDefault(QLocale(QLocale::English));
    EXPECT_EQ(found("istanbul"), (Places{2}));
    QLocale::setDefault(before);
}

TEST(NameSearch, ALineEndInANameSeparatesNothing) {
    EXPECT_EQ(found("no line"), (Places{5}));
}

TEST(NameSearch, NoNamesGiveNone) {
    EXPECT_EQ(NameSearch({}).search(""), (Places{}));
    EXPECT_EQ(NameSearch({}).search("a"), (Places{}));
}

}  // namespace ornivo::app
