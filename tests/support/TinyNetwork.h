#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace ornivo::testing {

/// A network in the classifier's format that answers the numbers it was shown: one class for each
/// red value of the picture, row by row, then for each green one, then for each blue one.
struct TinyNetwork {
    int width = 2;
    int height = 2;
    /// What the model's metadata holds under `class_labels`; without any label, the entry is
    /// missing.
    std::vector<std::string> labels = {"r0", "r1", "r2", "r3", "g0", "g1",
                                       "g2", "g3", "b0", "b1", "b2", "b3"};
    /// What it answers as `bird_box`, whatever it is shown; empty: it has no such output.
    std::vector<float> box = {};
};

/// Writes the network as an ONNX file, making the folders above it. Answers its path.
std::filesystem::path writeNetwork(const std::filesystem::path& path,
                                   const TinyNetwork& network = {});

/// Writes a model package, a folder with the network in it. Answers the folder.
std::filesystem::path writeModelPackage(const std::filesystem::path& folder,
                                        const TinyNetwork& network = {});

}  // namespace ornivo::testing
