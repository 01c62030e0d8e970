#include "cli/TerminalText.h"

#include <gtest/gtest.h>

namespace ornivo::cli {

TEST(TerminalText, OrdinaryTextIsPrintableAsItStands) {
    for (const char* const text : {"", "IMG_1.jpg", "✓ Häher → _Uncertain/", "鳥.jpg", "🦅",
                                   "a b 'c' \"d\" \\e", "e\u0301"}) {
        EXPECT_EQ(printable(text), text);
    }
}

TEST(TerminalText, WhatWouldActOnTheTerminalIsReplaced) {
    struct Row {
        std::string text;
        std::string shown;
    };
    for (const Row& row : {
             Row{"a\nb", "a\uFFFDb"},
             Row{"a\tb", "a\uFFFDb"},
             Row{"a\rb", "a\uFFFDb"},
             Row{std::string("a\0b", 3), "a\uFFFDb"},
             Row{"a\x7f", "a\uFFFD"},
             Row{"\x1b[31mred", "\uFFFD[31mred"},
             Row{"\u009b31m", "\uFFFD31m"},
             Row{"\u202Egpj.exe", "\uFFFDgpj.exe"},
             Row{"\u2066x\u2069", "\uFFFDx\uFFFD"},
             Row{"a\u2028b", "a\uFFFDb"},
         }) {
        EXPECT_EQ(printable(row.text), row.shown);
    }
}

TEST(TerminalText, BytesThatAreNoUtf8AreReplacedOneByOne) {
    EXPECT_EQ(printable("a\xff\xfe.jpg"), "a\uFFFD\uFFFD.jpg");
    EXPECT_EQ(printable("caf\xe9.jpg"), "caf\uFFFD.jpg");
    EXPECT_EQ(printable("cut\xe2\x9c"), "cut\uFFFD\uFFFD");
    EXPECT_EQ(printable("\xc0\xaf"), "\uFFFD\uFFFD");
}

TEST(TerminalText, WideCharactersTakeTwoColumnsAndAccentsNone) {
    EXPECT_EQ(columnsOf(""), 0);
    EXPECT_EQ(columnsOf("IMG_1"), 5);
    EXPECT_EQ(columnsOf("鳥a"), 3);
    EXPECT_EQ(columnsOf("e\u0301"), 1);
    EXPECT_EQ(columnsOf("█░…"), 3);
    EXPECT_EQ(columnsOf("\uFFFD"), 1);
}

TEST(TerminalText, ATextTooLongIsCutInItsMiddle) {
    EXPECT_EQ(fitted("IMG_2041.jpg", 12), "IMG_2041.jpg");
    EXPECT_EQ(fitted("IMG_2041.jpg", 11), "IMG_2…1.jpg");
    EXPECT_EQ(fitted("IMG_2041.jpg", 4), "I…pg");
    EXPECT_EQ(fitted("IMG_2041.jpg", 1), "…");
    EXPECT_EQ(fitted("IMG_2041.jpg", 0), "");
    EXPECT_EQ(fitted("IMG_2041.jpg", -3), "");
}

TEST(TerminalText, NoCutTakesMoreColumnsThanThereAre) {
    const std::string name = "鳥鳥鳥e\u0301e\u0301e\u0301鳥鳥鳥";
    for (int columns = 0; columns <= 20; ++columns) {
        EXPECT_LE(columnsOf(fitted(name, columns)), columns) << columns;
    }
}

}  // namespace ornivo::cli
