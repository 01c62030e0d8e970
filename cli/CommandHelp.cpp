#include "cli/CommandHelp.h"

#include <memory>

namespace ornivo::cli {

namespace {

constexpr std::size_t optionColumns = 22;

std::shared_ptr<CLI::Formatter> formatter() {
    auto formatter = std::make_shared<CLI::Formatter>();
    formatter->column_width(optionColumns);
    formatter->label("REQUIRED", "");
    formatter->label("SUBCOMMAND", "COMMAND");
    formatter->label("Positionals", "Arguments");
    return formatter;
}

}  // namespace

const CLI::Option* addWords(CLI::App& command, const std::string& name,
                            const std::string& meaning) {
    return command.add_option(name, meaning)
        ->required()
        ->expected(1, -1)
        ->allow_extra_args(false)
        ->type_name("");
}

void addHelp(CLI::App& command, const std::string& group, const std::vector<Example>& examples) {
    command.set_help_flag("-h,--help", "Show this help")->group(group);
    command.group("Commands");
    command.formatter(formatter());
    std::string text = "Examples:";
    for (const auto& example : examples) {
        text += "\n  " + example.command + "\n      " + example.effect;
    }
    command.footer(text);
}

std::string helpText(const CLI::App& program) {
    constexpr const char* wideGap = "\n\n\n";
    std::string text = program.help();
    for (auto gap = text.find(wideGap); gap != std::string::npos; gap = text.find(wideGap)) {
        text.erase(gap, 1);
    }
    const auto usage = text.find("Usage:");
    if (usage != std::string::npos) text.insert(usage, 1, '\n');
    return text;
}

}  // namespace ornivo::cli
