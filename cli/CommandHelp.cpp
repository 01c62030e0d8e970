#include "cli/CommandHelp.h"

#include <memory>

namespace ornivo::cli {

namespace {

constexpr std::size_t optionColumns = 22;

// An option that takes words beyond those it waits for reads "[a,b]" as two of them. One that
// never has enough takes every word as it is.
constexpr int manyWords = CLI::detail::expected_max_vector_size;
constexpr int neverEnough = manyWords - 1;

class HelpFormatter : public CLI::Formatter {
public:
    HelpFormatter() {
        column_width(optionColumns);
        label("SUBCOMMAND", "COMMAND");
        label("Positionals", "Arguments");
    }

    std::string make_option_opts(const CLI::Option* option) const override {
        if (option->get_positional()) return dots(option);
        return option->get_type_name().empty() ? "" : " " + option->get_type_name();
    }

    std::string make_option_usage(const CLI::Option* option) const override {
        return make_option_name(option, true) + dots(option);
    }

private:
    static std::string dots(const CLI::Option* option) {
        return option->get_expected_max() == manyWords ? "..." : "";
    }
};

}  // namespace

const CLI::Option* addWords(CLI::App& command, const std::string& name,
                            const std::string& meaning) {
    return command.add_option(name, meaning)
        ->required()
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->expected(neverEnough, manyWords)
        ->allow_extra_args(false);
}

std::string joinedWords(const std::vector<std::string>& words) {
    std::string text;
    for (const auto& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

void addHelp(CLI::App& command, const std::string& group, const std::vector<Example>& examples) {
    command.set_help_flag("-h,--help", "Show this help")->group(group);
    command.group("Commands");
    command.formatter(std::make_shared<HelpFormatter>());
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
