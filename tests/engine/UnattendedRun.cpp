// A whole run as a program of its own, so that it can be killed: SOURCE DESTINATION [trash].
// It writes a dot as it takes each file.

#include <unistd.h>

#include <chrono>
#include <cstring>
#include <thread>

#include "engine/SortEngine.h"
#include "media/FileScanner.h"
#include "support/ScriptedIdentifier.h"

namespace {

using namespace ornivo;

/// Is sure of every second width, and so slow that the run takes file after file at its pace. The
/// doubtful shots between have neighbours that agree.
class SecondWidths : public BirdIdentifying {
public:
    ConfidencePolicy policy() const override { return {}; }

    using BirdIdentifying::identify;
    IdentifiedSpecies identify(const Bitmap& image, std::uint32_t,
                               const std::optional<PhotoLocation>&) override {
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        const bool isSure = image.width() % 4 == 0;
        return testing::guesses({{"Erithacus_rubecula", isSure ? 0.9 : 0.3}});
    }
};

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) return 2;
    SortEngine::RunInput input;
    input.paths = FileScanner::collectImages(arguments[1]);
    input.destination = arguments[2];
    input.options.confidence = ConfidencePolicy::defaultSlider;
    input.options.burstInheritance = BurstInheritance::confirmedOnly;
    const bool trashes = count > 3 && std::strcmp(arguments[3], "trash") == 0;
    input.options.mode = trashes ? CopyMode::trashOriginal : CopyMode::keep;

    SortEngine engine(std::make_shared<SecondWidths>(), std::make_shared<JobController>());
    auto events = engine.run(std::move(input));
    while (const auto event = events.next()) {
        const bool isNextFile = std::holds_alternative<ProgressUpdate>(*event);
        if (isNextFile && ::write(STDOUT_FILENO, ".", 1) != 1) return 4;
        const auto* const finished = std::get_if<SortEngine::SortFinished>(&*event);
        if (finished) return finished->result.errors == 0 ? 0 : 1;
    }
    return 3;
}
