#include "cli/Console.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <string>

#include "platform/Error.h"
#include "support/TempFolder.h"

namespace ornivo::cli {

using ornivo::testing::readFile;
using ornivo::testing::TempFolder;

/// A console on files.
class ConsoleTest : public ::testing::Test {
protected:
    void TearDown() override {
        for (const int descriptor : {in, out, err}) ::close(descriptor);
    }

    int open(const std::string& path) const {
        return ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    }

    TempFolder folder;
    int in = open("/dev/null");
    int out = open(folder / "out");
    int err = open(folder / "err");
};

TEST_F(ConsoleTest, LinesGoToTheOutputAndNotesBesideIt) {
    Console console(in, out, err);
    console.line("one", Tone::accent);
    console.write("two");
    console.note("three", Tone::warning);
    EXPECT_EQ(readFile(folder / "out"), "one\ntwo");
    EXPECT_EQ(readFile(folder / "err"), "three\n");
}

TEST_F(ConsoleTest, EverythingIsReadToItsEndHoweverMuchItIs) {
    std::string text(200'000, 'x');
    text += std::string("\0\n\xff", 3);
    ::close(in);
    in = open(ornivo::testing::writeFile(folder / "in", text));
    Console console(in, out, err);
    EXPECT_FALSE(console.inIsTerminal());
    EXPECT_EQ(console.readAll(), text);
    EXPECT_EQ(console.readAll(), "");
}

TEST_F(ConsoleTest, AnInputThatCanNotBeReadIsSaidToBe) {
    ::close(in);
    in = ::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    Console console(in, out, err);
    try {
        console.readAll();
        FAIL() << "a folder was read";
    } catch (const Error& error) {
        EXPECT_EQ(error.localizedDescription(), "The standard input can't be read: Is a directory");
    }
}

TEST_F(ConsoleTest, AFileIsNoTerminalAndHasTheUsualWidth) {
    const Console console(in, out, err);
    EXPECT_FALSE(console.outIsTerminal());
    EXPECT_FALSE(console.bothAreTerminals());
    EXPECT_FALSE(console.canAsk());
    EXPECT_EQ(console.columns(), 80);
    EXPECT_EQ(console.styled("plain", Tone::error), "plain");
}

TEST_F(ConsoleTest, OnlyAYesIsAYes) {
    struct Row {
        const char* typed;
        bool meansYes;
    };
    for (const Row row : {Row{"y\n", true}, Row{"Y\n", true}, Row{"yes\n", true},
                          Row{"Yes\n", true}, Row{"n\n", false}, Row{"\n", false}, Row{"", false},
                          Row{"yeah\n", false}, Row{" y\n", false}, Row{"no\ny\n", false}}) {
        const int answer = open(ornivo::testing::writeFile(folder / "answer", row.typed));
        Console console(answer, out, err);
        EXPECT_EQ(console.confirm("Sure?"), row.meansYes) << row.typed;
        ::close(answer);
    }
    EXPECT_TRUE(readFile(folder / "err").starts_with("Sure? [y/N] Sure? [y/N] "));
}

TEST_F(ConsoleTest, AFullDiskBehindTheOutputIsToldAndAClosedReaderIsNot) {
    const int full = open("/dev/full");
    Console filled(in, full, err);
    filled.line("lost");
    EXPECT_EQ(filled.outputFailure(), ENOSPC);
    ::close(full);

    std::signal(SIGPIPE, SIG_IGN);
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    ::close(pipe[0]);
    Console unread(in, pipe[1], err);
    unread.line("lost");
    unread.line("lost");
    EXPECT_EQ(unread.outputFailure(), 0);
    ::close(pipe[1]);
}

}  // namespace ornivo::cli
