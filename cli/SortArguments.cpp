#include "cli/SortArguments.h"

namespace ornivo::cli {

SortArguments::SortArguments(CLI::App& command) {
    const auto declareFolder = [&](const char* name, std::string& value, const char* meaning) {
        command.add_option(name, value, meaning)->required();
    };
    declareFolder("SOURCE", source_, "Folder with the photographs and clips");
    declareFolder("DESTINATION", destination_, "Folder to sort into; made if missing");
    filing_.declare(command, AppMode::sort);
    addRunManner(command, manner_);
}

RunRequest SortArguments::request() const {
    RunRequest request;
    request.source = source_;
    request.destination = destination_;
    filing_.applyTo(request);
    request.manner = manner_;
    return request;
}

}  // namespace ornivo::cli
