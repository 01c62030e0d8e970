#include "cli/ProgressLine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "cli/Numbers.h"
#include "cli/TerminalText.h"

namespace ornivo::cli {

namespace {

enum class Wording { full, brief, none };

/// One way to lay out the line.
struct Layout {
    int barColumns;
    Wording rate;
    Wording timeLeft;
    /// The fewest columns to which the file's name may shrink; a layout without a name has 0.
    int nameColumns;
};

// From the roomiest to the narrowest; the first that fits is taken.
constexpr std::array layouts{
    Layout{20, Wording::full, Wording::full, 12},   Layout{10, Wording::full, Wording::full, 12},
    Layout{10, Wording::brief, Wording::brief, 12}, Layout{5, Wording::brief, Wording::brief, 8},
    Layout{5, Wording::none, Wording::brief, 8},    Layout{5, Wording::none, Wording::brief, 0},
    Layout{0, Wording::none, Wording::none, 0},
};

constexpr std::string_view gap = "  ";

std::string repeated(std::string_view text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i) result += text;
    return result;
}

std::string bar(const RunProgress& progress, int columns) {
    const int filled =
        progress.total < 1
            ? 0
            : static_cast<int>(static_cast<long long>(columns) * progress.done / progress.total);
    return repeated("█", filled) + repeated("░", columns - filled);
}

std::string rateText(const RunProgress& progress, Wording wording) {
    const int done = progress.done - progress.before;
    if (wording == Wording::none || done < 1 || progress.elapsedSeconds <= 0) return {};
    const double rate = done / progress.elapsedSeconds;
    const std::string number =
        rate < 10 ? withOneDecimal(rate) : std::to_string(std::llround(rate));
    return number + (wording == Wording::full ? " photos/s" : "/s");
}

std::string duration(long long seconds) {
    if (seconds < 60) return std::to_string(seconds) + "s";
    const long long minutes = seconds / 60;
    if (minutes < 60) return std::to_string(minutes) + "m " + std::to_string(seconds % 60) + "s";
    return std::to_string(minutes / 60) + "h " + std::to_string(minutes % 60) + "m";
}

std::string timeLeftText(const RunProgress& progress, Wording wording) {
    if (wording == Wording::none) return {};
    if (progress.stopping) return "stopping…";
    const int done = progress.done - progress.before;
    if (done < 1) return {};
    const double perFile = progress.elapsedSeconds / done;
    const auto seconds = std::llround(std::ceil(perFile * (progress.total - progress.done)));
    return duration(seconds) + (wording == Wording::full ? " left" : "");
}

void addPart(std::string& line, const std::string& part) {
    if (part.empty()) return;
    if (!line.empty()) line += gap;
    line += part;
}

ProgressLine laidOut(const RunProgress& progress, const Layout& layout) {
    ProgressLine line{bar(progress, layout.barColumns), {}};
    if (layout.barColumns > 0) line.rest = " ";
    line.rest += std::to_string(progress.done) + "/" + std::to_string(progress.total);
    addPart(line.rest, rateText(progress, layout.rate));
    addPart(line.rest, timeLeftText(progress, layout.timeLeft));
    return line;
}

int columnsOf(const ProgressLine& line) {
    return cli::columnsOf(line.bar) + cli::columnsOf(line.rest);
}

}  // namespace

ProgressLine progressLine(const RunProgress& progress, int columns) {
    const std::string name = printable(progress.fileName);
    const int nameLength = cli::columnsOf(name);
    for (const Layout& layout : layouts) {
        ProgressLine line = laidOut(progress, layout);
        const int least = std::min(nameLength, layout.nameColumns);
        const int gapColumns = least > 0 ? static_cast<int>(gap.size()) : 0;
        const int room = columns - columnsOf(line) - gapColumns;
        if (room < least) continue;
        if (least > 0) addPart(line.rest, fitted(name, room));
        return line;
    }
    return {{}, fitted(std::to_string(progress.done), columns)};
}

}  // namespace ornivo::cli
