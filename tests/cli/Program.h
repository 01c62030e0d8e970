#pragma once

#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

namespace ornivo::testing {

using Arguments = std::vector<std::string>;
/// Variables that differ from the test's own; an empty value takes one away.
using Environment = std::map<std::string, std::string>;

/// `ornivo-cli` as built.
std::string builtProgram();

/// How the program ended and all that it wrote.
struct Ending {
    /// The exit code, or the negative number of the signal that ended the program.
    int code = 0;
    std::string out;
    std::string err;
};

/// The program run as a script runs it: input empty, output and notes pipes. Killed at the end of
/// its scope should it still be going.
class Program {
public:
    explicit Program(const Arguments& arguments, const Environment& environment = {},
                     const std::string& program = builtProgram());
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Runs the program to its end.
    static Ending run(const Arguments& arguments, const Environment& environment = {},
                      const std::string& program = builtProgram());

    /// Waits until the output holds a text; false if the program ends without it.
    bool waitForOutput(const std::string& text);
    void send(int signal) const;
    /// Lets go of the output, as `head` does.
    void closeOutput();
    /// Waits for the end.
    Ending finish();

private:
    bool readSome();

    pid_t process_ = -1;
    int out_ = -1;
    int err_ = -1;
    Ending ending_;
};

/// The program on a terminal of its own, with output, notes and input all there.
class TerminalProgram {
public:
    TerminalProgram(const Arguments& arguments, int columns, const Environment& environment = {});
    ~TerminalProgram();
    TerminalProgram(const TerminalProgram&) = delete;
    TerminalProgram& operator=(const TerminalProgram&) = delete;

    /// Waits until the terminal has been sent a text; false if the program ends without it.
    bool waitFor(const std::string& text);
    void type(const std::string& keys) const;
    void resize(int columns) const;
    /// Waits for the end; everything is in `out`.
    Ending finish();

private:
    bool readSome();

    pid_t process_ = -1;
    int terminal_ = -1;
    Ending ending_;
};

}  // namespace ornivo::testing
