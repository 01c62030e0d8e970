#include "cli/CreditsText.h"

#include "platform/Text.h"

namespace ornivo::cli {

namespace {

using Lines = std::vector<std::string>;

constexpr const char* learnedFrom =
    "Ornivo learned to recognise birds from photographs shared under open licences by naturalists "
    "around the world. It could not exist without them.";
constexpr const char* rosterIsPending =
    "The per-photographer roster has not been folded into this build yet. Sources and licences "
    "above are accurate; individual names are pending.";

std::string indented(const std::string& text) {
    return "  " + text;
}

void addSection(Lines& lines, const std::string& title) {
    if (!lines.empty()) lines.emplace_back();
    lines.push_back(title);
}

/// An empty text has no line.
void addText(Lines& lines, const std::string& text) {
    if (!text.empty()) lines.push_back(indented(text));
}

void addPhotographs(Lines& lines, const std::optional<Credits::Payload>& credits,
                    const std::string& locale) {
    addSection(lines, "The photographs");
    addText(lines, learnedFrom);
    if (!credits) return;
    for (const Credits::Source& source : credits->training.sources) {
        addText(lines, source.name + ": " + source.summary(locale).value_or(source.holder));
        addText(lines, source.url.empty() ? "" : indented(source.url));
    }
    addText(lines, credits->training.note);
}

void addPhotographers(Lines& lines, const std::optional<Credits::Payload>& credits) {
    addSection(lines, "Photographers");
    if (!Credits::rosterIsComplete(credits)) {
        addText(lines, rosterIsPending);
        return;
    }
    for (const std::string& name : credits->photographers) addText(lines, name);
}

void addComponents(Lines& lines, const Credits::Payload& credits) {
    addSection(lines, "Built with");
    for (const Credits::Component& component : credits.components) {
        addText(lines, component.name + " · " + component.license + ": " + component.role);
        addText(lines, component.url.empty() ? "" : indented(component.url));
    }
}

void addCitation(Lines& lines, const Credits::Citation& citation) {
    addSection(lines, "Citation");
    addText(lines, citation.text);
    if (citation.hasDOI()) addText(lines, "https://doi.org/" + trimmed(citation.doi));
}

}  // namespace

Lines creditsText(const std::optional<Credits::Payload>& credits, const std::string& locale) {
    Lines lines;
    addPhotographs(lines, credits, locale);
    addPhotographers(lines, credits);
    if (!credits) return lines;
    addComponents(lines, *credits);
    addCitation(lines, credits->gbifCitation);
    return lines;
}

}  // namespace ornivo::cli
