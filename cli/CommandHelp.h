#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

/// What the program's commands have in common as they declare themselves. The help texts teach by
/// examples.
namespace ornivo::cli {

/// A command as one would type it, and what it does.
struct Example {
    std::string command;
    std::string effect;
};

/// Declares an argument of one word or more. The words are the option's results, each as it was
/// typed, whatever brackets and commas are in it.
const CLI::Option* addWords(CLI::App& command, const std::string& name, const std::string& meaning);

/// The words that an argument took, with a blank between them.
std::string joinedWords(const std::vector<std::string>& words);

/// Gives a command its help option, listed last in the group, and the examples below its help.
/// Called once everything else is declared.
void addHelp(CLI::App& command, const std::string& group, const std::vector<Example>& examples);

/// The help on the command that was chosen, or on all.
std::string helpText(const CLI::App& program);

}  // namespace ornivo::cli
