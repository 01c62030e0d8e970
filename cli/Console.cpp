#include "cli/Console.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "cli/Input.h"

namespace ornivo::cli {

namespace {

constexpr int usualColumns = 80;

std::string_view environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string_view{} : value;
}

bool isCapableTerminal(int descriptor) {
    const auto kind = environment("TERM");
    return isatty(descriptor) == 1 && !kind.empty() && kind != "dumb";
}

bool wantsColour(int descriptor) {
    return isCapableTerminal(descriptor) && environment("NO_COLOR").empty();
}

/// Answers 0, or the errno of the failure.
int writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

std::string shown(std::string_view text, Tone tone, bool isColoured) {
    return isColoured ? coloured(text, tone) : std::string(text);
}

std::string readLine(int descriptor) {
    std::string result;
    char byte = 0;
    while (true) {
        const ssize_t count = ::read(descriptor, &byte, 1);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0 || byte == '\n') return result;
        result += byte;
    }
}

}  // namespace

Console::Console(int in, int out, int err)
    : in_(in),
      out_(out),
      err_(err),
      inIsTerminal_(isatty(in) == 1),
      outIsTerminal_(isCapableTerminal(out)),
      errIsTerminal_(isatty(err) == 1),
      outIsColoured_(wantsColour(out)),
      errIsColoured_(wantsColour(err)) {}

void Console::write(std::string_view text) {
    if (outputEnded_) return;
    const int failure = writeAll(out_, text);
    if (failure == 0) return;
    outputEnded_ = true;
    if (failure != EPIPE) outputFailure_ = failure;
}

std::string Console::styled(std::string_view text, Tone tone) const {
    return shown(text, tone, outIsColoured_);
}

void Console::line(std::string_view text, Tone tone) {
    write(styled(text, tone) + '\n');
}

void Console::note(std::string_view text, Tone tone) {
    writeAll(err_, shown(text, tone, errIsColoured_) + '\n');
}

int Console::columns() const {
    winsize size{};
    const bool known = ioctl(out_, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : usualColumns;
}

std::string Console::readAll() {
    return readToEnd(in_, "The standard input can't be read");
}

bool Console::confirm(std::string_view question) {
    writeAll(err_, std::string(question) + " [y/N] ");
    const std::string answer = readLine(in_);
    return answer == "y" || answer == "Y" || answer == "yes" || answer == "Yes";
}

}  // namespace ornivo::cli
