#include "app/presentation/PreviewText.h"

#include "app/presentation/ScreenTexts.h"
#include "engine/SortEngine.h"

namespace ornivo::app {
namespace {

QString folder(const QString& name) {
    return name + QLatin1Char('/');
}

}  // namespace

QString previewHeading(const std::optional<std::filesystem::path>& sink) {
    return sink ? onOneLine(shown(sink->string())) : QStringLiteral("/your/sink/folder");
}

std::vector<PreviewLine> sortPreview(bool dateSubfolders) {
    std::vector<PreviewLine> lines{
        {QStringLiteral("  ├─ "), QStringLiteral("Painted Stork/")},
        {QStringLiteral("  ├─ "), QStringLiteral("Indian Roller/")},
        {QStringLiteral("  └─ "), folder(shown(SortEngine::uncertainFolderName))},
    };
    if (dateSubfolders) {
        lines.insert(lines.begin() + 1,
                     {QStringLiteral("  │   └─ "), QStringLiteral("2026-05-31/")});
    }
    return lines;
}

std::vector<PreviewLine> findPreview(const BirdSpecies& first, bool dateSubfolders) {
    const QString match = QStringLiteral("matched-photo.jpg");
    const PreviewLine species{{}, folder(shown(first.commonName))};
    if (!dateSubfolders) return {species, {QStringLiteral("       └─ "), match}};
    return {species,
            {QStringLiteral("       └─ "), QStringLiteral("YYYY-MM-DD/")},
            {QStringLiteral("            └─ "), match}};
}

}  // namespace ornivo::app
