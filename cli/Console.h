#pragma once

#include <string>
#include <string_view>

#include "cli/Tone.h"

namespace ornivo::cli {

/// The three streams of the program and what the user's terminal can show. A stream whose reader
/// has gone swallows what is written to it, so that no run ends because its report is not wanted.
class Console {
public:
    /// File descriptors, which stay the caller's.
    Console(int in, int out, int err);

    /// Writes to the output as it stands.
    void write(std::string_view text);
    /// Writes a line to the output, coloured where colour is wanted.
    void line(std::string_view text, Tone tone = Tone::plain);
    /// The text as it has to be written to the output to stand there in its colour.
    std::string styled(std::string_view text, Tone tone) const;
    /// Writes a line for the user's eyes beside the output.
    void note(std::string_view text, Tone tone = Tone::plain);

    /// Whether lines on the output can be redrawn in place.
    bool outIsTerminal() const { return outIsTerminal_; }
    /// Whether notes and output are read on the same screen.
    bool bothAreTerminals() const { return outIsTerminal_ && errIsTerminal_; }
    /// The output's width in columns at this moment.
    int columns() const;

    /// Whether what is read comes from somebody's keyboard.
    bool inIsTerminal() const { return inIsTerminal_; }
    /// All that there is to read, to its end. Raises `Error`.
    std::string readAll();

    /// Whether somebody is there to answer a question.
    bool canAsk() const { return inIsTerminal_ && errIsTerminal_; }
    /// Asks a question that is answered by yes or no; anything but a yes is a no.
    bool confirm(std::string_view question);

    /// The errno of the first write to the output that failed, 0 if none did. A reader that went
    /// away is no failure.
    int outputFailure() const { return outputFailure_; }

private:
    int in_;
    int out_;
    int err_;
    bool inIsTerminal_;
    bool outIsTerminal_;
    bool errIsTerminal_;
    bool outIsColoured_;
    bool errIsColoured_;
    bool outputEnded_ = false;
    int outputFailure_ = 0;
};

}  // namespace ornivo::cli
