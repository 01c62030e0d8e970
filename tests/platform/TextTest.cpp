#include "platform/Text.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

namespace ornivo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* composedE = "\u00E9";
constexpr const char* decomposedE = "e\u0301";
/// "Möwe" as an old card has it, in Latin-1.
constexpr const char* latin1 = "M\xF6we";

TEST(Text, FoldingTakesCaseAndAccentsAway) {
    EXPECT_EQ(foldCaseAndDiacritics("Érable"), "erable");
    EXPECT_EQ(foldCaseAndDiacritics("ERABLE"), "erable");
    EXPECT_EQ(foldCaseAndDiacritics("E\u0301RABLE"), "erable");
    EXPECT_EQ(foldCaseAndDiacritics("Ñandú Común"), "nandu comun");
    EXPECT_EQ(foldCaseAndDiacritics("Żuraw"), "zuraw");
}

TEST(Text, FoldingKeepsWhatIsNoMark) {
    EXPECT_EQ(foldCaseAndDiacritics("Møller's Fugl_1"), "møller's fugl_1");
    EXPECT_EQ(foldCaseAndDiacritics(" A-B "), " a-b ");
    EXPECT_EQ(foldCaseAndDiacritics("हिन्दी 鶴 두루미"), foldCaseAndDiacritics("हिन्दी 鶴 두루미"));
    EXPECT_EQ(foldCaseAndDiacritics("두루미"), "두루미");
    EXPECT_EQ(foldCaseAndDiacritics(""), "");
}

TEST(Text, FoldingIsTheSameInEveryLocale) {
    EXPECT_EQ(foldCaseAndDiacritics("IBIS"), "ibis");
    EXPECT_EQ(foldCaseAndDiacritics("\u0130bis"), "ibis");
    EXPECT_EQ(foldCaseAndDiacritics("Straße"), foldCaseAndDiacritics("STRASSE"));
}

TEST(Text, TrimmingTakesEveryKindOfWhiteSpaceFromBothEnds) {
    EXPECT_EQ(trimmed(" \t\r\n\v\fwren \u00A0\u2028\u3000\u0085"), "wren");
    EXPECT_EQ(trimmed("bald  eagle"), "bald  eagle");
    EXPECT_EQ(trimmed("wren"), "wren");
    EXPECT_EQ(trimmed("   "), "");
    EXPECT_EQ(trimmed(""), "");
    EXPECT_EQ(trimmed(std::string(" ") + latin1 + " "), latin1);
}

TEST(Text, ARunOfWhiteSpaceBecomesOneBlank) {
    EXPECT_EQ(collapsingWhiteSpace("bald \t\n eagle"), "bald eagle");
    EXPECT_EQ(collapsingWhiteSpace("bald\u00A0\u2003eagle"), "bald eagle");
    EXPECT_EQ(collapsingWhiteSpace("  a  "), " a ");
    EXPECT_EQ(collapsingWhiteSpace("ab"), "ab");
    EXPECT_EQ(collapsingWhiteSpace(""), "");
}

TEST(Text, LowerCaseReachesEveryScript) {
    EXPECT_EQ(lowercased("IMG_1.CR2"), "img_1.cr2");
    EXPECT_EQ(lowercased("ÉTÉ ЖУРАВЛЬ ΓΛΑΡΟΣ"), "été журавль γλαρος");
    EXPECT_EQ(lowercased("I"), "i");
}

TEST(Text, BytesThatAreNoUTF8ComeThroughAndMeetNoOthers) {
    EXPECT_EQ(lowercased(latin1), "m\xF6we");
    EXPECT_NE(lowercased("M\xF6we"), lowercased("M\xFCwe"));
    EXPECT_EQ(foldCaseAndDiacritics("\xFF\xC3\u00C9"),
              "\xFF\xC3"
              "e");
    EXPECT_EQ(capitalized("\xFF"
                          "wren"),
              "\xFF"
              "Wren");
    EXPECT_EQ(canonicallyComposed("\xFF"
                                  "e\u0301"),
              "\xFF\u00E9");
    EXPECT_FALSE(equalIgnoringCase("\xE9", "\xE8"));
    EXPECT_TRUE(equalIgnoringCase("A\xE9", "a\xE9"));
    EXPECT_TRUE(plainTextLess("\xE8", "\xE9"));
    EXPECT_FALSE(plainTextLess("\xE9", "\xE9"));
}

TEST(Text, CapitalsBeginWordsAndApostrophesDont) {
    EXPECT_EQ(capitalized("wren"), "Wren");
    EXPECT_EQ(capitalized("WREN"), "Wren");
    EXPECT_EQ(capitalized("white crowned sparrow"), "White Crowned Sparrow");
    EXPECT_EQ(capitalized("cooper's hawk"), "Cooper's Hawk");
    EXPECT_EQ(capitalized("cooper\u2019s"), "Cooper\u2019s");
    EXPECT_EQ(capitalized("black-capped"), "Black-Capped");
    EXPECT_EQ(capitalized("(rock) pigeon"), "(Rock) Pigeon");
    EXPECT_EQ(capitalized("étourneau"), "Étourneau");
    EXPECT_EQ(capitalized("e\u0301tourneau"), "E\u0301tourneau");
    EXPECT_EQ(capitalized("4th"), "4Th");
    EXPECT_EQ(capitalized(""), "");
}

TEST(Text, OneCharacterIsReplacedWhereverItStands) {
    EXPECT_EQ(replacing("a-b-", '-', ' '), "a b ");
    EXPECT_EQ(replacing("", '-', ' '), "");
}

TEST(Text, CharactersAreWhatAReaderCounts) {
    EXPECT_THAT(characters("2024"), ElementsAre("2", "0", "2", "4"));
    EXPECT_THAT(characters("e\u0301a"), ElementsAre("e\u0301", "a"));
    EXPECT_THAT(characters("a\r\nb\n"), ElementsAre("a", "\r\n", "b", "\n"));
    EXPECT_THAT(characters("é\r\n"), ElementsAre("é", "\r\n"));
    EXPECT_THAT(characters("\U0001F468\u200D\U0001F469\u200D\U0001F467x"),
                ElementsAre("\U0001F468\u200D\U0001F469\u200D\U0001F467", "x"));
    EXPECT_THAT(characters(""), IsEmpty());
}

TEST(Text, CharactersCoverEveryByteOfATextThatIsNoUTF8) {
    const std::string text = std::string("a") + latin1 + "\xC3";
    std::string together;
    for (const auto character : characters(text)) together += character;
    EXPECT_EQ(together, text);
}

TEST(Text, LettersAndNumbersAreThoseOfEveryScript) {
    for (const char* letter : {"a", "Z", "é", "e\u0301", "ж", "鶴"}) {
        EXPECT_TRUE(isLetter(letter)) << letter;
    }
    for (const char* other : {"", "1", "_", "-", "'", " ", "\xFF"}) {
        EXPECT_FALSE(isLetter(other)) << other;
    }
    for (const char* number : {"0", "9", "\u0663", "\u00BD", "\u2167"}) {
        EXPECT_TRUE(isNumber(number)) << number;
    }
    for (const char* other : {"", "a", "_", "-", "\xFF"}) EXPECT_FALSE(isNumber(other)) << other;
}

TEST(Text, APrefixEndsWithAWholeCharacter) {
    EXPECT_TRUE(beginsWith("wren", "wr"));
    EXPECT_TRUE(beginsWith("wren", "wren"));
    EXPECT_TRUE(beginsWith("wren", ""));
    EXPECT_TRUE(beginsWith("été", "ét"));
    EXPECT_FALSE(beginsWith("wren", "wrens"));
    EXPECT_FALSE(beginsWith("Wren", "wr"));
    EXPECT_FALSE(beginsWith("e\u0301t\u00E9", "e"));
    EXPECT_FALSE(beginsWith("a\r\nb", "a\r"));
    EXPECT_FALSE(beginsWith("\u00E9", "\xC3"));
}

TEST(Text, PlainOrderGoesByScalarValuesOfTheComposedText) {
    EXPECT_TRUE(plainTextLess("A", "B"));
    EXPECT_TRUE(plainTextLess("Z", "a")) << "capitals come first";
    EXPECT_TRUE(plainTextLess("IMG_1", "IMG_10"));
    EXPECT_TRUE(plainTextLess("IMG_10", "IMG_9")) << "digits are only characters";
    EXPECT_TRUE(plainTextLess("z", "é"));
    EXPECT_TRUE(plainTextLess("\uFFFD", "\U0001F426")) << "not by halves of surrogate pairs";
    EXPECT_TRUE(plainTextLess("", "a"));
    EXPECT_FALSE(plainTextLess("a", "a"));
    EXPECT_TRUE(plainTextLess("f", decomposedE)) << "compared as é, not as e and a mark";
}

TEST(Text, ComposedAndDecomposedAreTheSameInPlainOrder) {
    EXPECT_FALSE(plainTextLess(composedE, decomposedE));
    EXPECT_FALSE(plainTextLess(decomposedE, composedE));
    EXPECT_EQ(canonicallyComposed(decomposedE), composedE);
    EXPECT_EQ(canonicallyComposed(composedE), composedE);
    EXPECT_EQ(canonicallyComposed("plain"), "plain");
}

TEST(Text, EqualityButForCaseKnowsNoLocaleAndNoForm) {
    EXPECT_TRUE(equalIgnoringCase("IMG_1.CR2", "img_1.cr2"));
    EXPECT_TRUE(equalIgnoringCase("ÉTÉ", "e\u0301te\u0301"));
    EXPECT_TRUE(equalIgnoringCase("", ""));
    EXPECT_FALSE(equalIgnoringCase("IMG_1", "IMG_10"));
    EXPECT_FALSE(equalIgnoringCase("été", "ete")) << "accents count";
    EXPECT_FALSE(equalIgnoringCase("a_b", "a-b"));
}

TEST(Text, TheCaselessFormIsSharedByEqualTextsAlone) {
    const std::vector<std::string> texts{"IMG_1", "img_1", "ÉTÉ", "e\u0301te\u0301", "ete", latin1};
    for (const auto& a : texts) {
        for (const auto& b : texts) {
            EXPECT_EQ(caselessForm(a) == caselessForm(b), equalIgnoringCase(a, b)) << a << b;
        }
    }
}

TEST(Text, WordsForAPersonAreWellFormed) {
    EXPECT_EQ(wellFormed(latin1), "M\uFFFDwe");
    EXPECT_EQ(wellFormed("a\xC3"), "a\uFFFD");
    EXPECT_EQ(wellFormed("Möwe"), "Möwe");
}

}  // namespace
}  // namespace ornivo
