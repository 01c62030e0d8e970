#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "cli/Console.h"
#include "cli/ExitCode.h"
#include "engine/LookAhead.h"

/// How commands that tell of single files, named by the user, go through them.
namespace ornivo::cli {

/// What there is to tell of a file, or why there is nothing.
template <typename Answer>
using AnswerOrReason = std::variant<Answer, std::string>;

/// Why nothing that bears this path can be asked about; absent for an ordinary file.
std::optional<std::string> reasonToPassOver(const std::filesystem::path& file);

/// On the output, as a line of words or as a JSON object.
void tellReason(Console& console, const std::string& file, const std::string& reason, bool json);

/// As many threads as are of use for so many files.
unsigned workersFor(std::size_t files);

/// Asks about each file, several at a time on so many workers, and tells of one after the other in
/// their order. Without workers nothing is asked ahead of what is told.
template <typename Answer>
ExitCode tellOfEach(const std::vector<std::string>& files, unsigned workers, Console& console,
                    bool json,
                    const std::function<AnswerOrReason<Answer>(const std::filesystem::path&)>& ask,
                    const std::function<void(const std::string&, const Answer&)>& tell) {
    LookAhead<AnswerOrReason<Answer>> answers(files.size(), workers,
                                              [&](std::size_t i) -> AnswerOrReason<Answer> {
                                                  if (auto reason = reasonToPassOver(files[i]))
                                                      return *std::move(reason);
                                                  return ask(files[i]);
                                              });
    ExitCode code = ExitCode::done;
    for (const std::string& file : files) {
        const AnswerOrReason<Answer> answer = answers.take();
        if (const auto* reason = std::get_if<std::string>(&answer)) {
            tellReason(console, file, *reason, json);
            code = ExitCode::someFailed;
        } else {
            tell(file, std::get<Answer>(answer));
        }
    }
    return code;
}

}  // namespace ornivo::cli
