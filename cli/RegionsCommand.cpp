#include "cli/RegionsCommand.h"

#include <string>

#include "cli/CommandHelp.h"
#include "cli/EventJson.h"
#include "cli/TerminalText.h"
#include "identification/RangeTable.h"

namespace ornivo::cli {

namespace {

const std::vector<Example> examples{
    {"ornivo-cli regions", "every region by id and name, with the number of its species"},
    {"ornivo-cli sort Inbox Birds --region iberia", "favour the birds of one of them"},
};

Json regionJson(const RangeTable& table, const RangeTable::RegionInfo& region) {
    return {{"id", region.id},
            {"name", region.name},
            {"countries", region.countries},
            {"latitudes", {region.latitudes.min, region.latitudes.max}},
            {"longitudes", {region.longitudes.min, region.longitudes.max}},
            {"refines", region.refines ? Json(*region.refines) : Json(nullptr)},
            {"species", table.labels(region.id).size()}};
}

std::string regionLine(const RangeTable& table, const RangeTable::RegionInfo& region) {
    return region.id + "  " + region.name + "  " + std::to_string(table.labels(region.id).size()) +
           " species";
}

}  // namespace

RegionsCommand::RegionsCommand(CLI::App& parent)
    : command_(*parent.add_subcommand("regions", "List the regions whose birds it knows")) {
    command_.add_flag("--json", json_, "One JSON object a region, a line each");
    addHelp(command_, "Options", examples);
}

ExitCode RegionsCommand::run(Console& console) {
    const auto table = RangeTable::bundled();
    if (!table) {
        console.note("There is no table of regions; every bird counts as possible everywhere.",
                     Tone::warning);
        return ExitCode::someFailed;
    }
    for (const auto& region : table->regions()) {
        if (json_) {
            console.write(jsonLine(regionJson(*table, region)));
        } else {
            console.line(printable(regionLine(*table, region)));
        }
    }
    return ExitCode::done;
}

}  // namespace ornivo::cli
