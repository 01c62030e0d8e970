#include "cli/FindArguments.h"

#include "cli/CommandHelp.h"
#include "cli/TargetSpecies.h"

namespace ornivo::cli {

FindArguments::FindArguments(CLI::App& command)
    : species_(addWords(command, "SPECIES",
                        "Birds to look for, by common or scientific name;\n"
                        "a name of several words goes in quotes")) {
    const auto declareFolder = [&](const char* name, std::string& value, const char* placeholder,
                                   const char* meaning) {
        command.add_option(name, value, meaning)
            ->required()
            ->type_name(placeholder)
            ->group("Between which folders");
    };
    declareFolder("--in", source_, "SOURCE", "Folder with the photographs and clips");
    declareFolder("--to", destination_, "DESTINATION",
                  "Folder to copy what is found into; made if\nmissing");
    filing_.declare(command, AppMode::find);
    addRunManner(command, manner_);
}

RunRequest FindArguments::request() const {
    RunRequest request;
    request.mode = AppMode::find;
    request.source = source_;
    request.destination = destination_;
    request.targets = targetSpecies(species_->results());
    filing_.applyTo(request);
    request.manner = manner_;
    return request;
}

}  // namespace ornivo::cli
