#pragma once

#include <QObject>
#include <QString>
#include <filesystem>
#include <optional>
#include <vector>

#include "vocabulary/BirdSpecies.h"

namespace ornivo::app {

/// One line of the folder tree.
struct PreviewLine {
    Q_GADGET
    Q_PROPERTY(QString branch MEMBER branch)
    Q_PROPERTY(QString name MEMBER name)

public:
    QString branch;
    QString name;

    bool operator==(const PreviewLine&) const = default;
};

/// The folder at the tree's root.
QString previewHeading(const std::optional<std::filesystem::path>& sink);

/// What a sort makes there, with two birds and a day as examples.
std::vector<PreviewLine> sortPreview(bool dateSubfolders);

/// What a search for a species makes there.
std::vector<PreviewLine> findPreview(const BirdSpecies& first, bool dateSubfolders);

}  // namespace ornivo::app
