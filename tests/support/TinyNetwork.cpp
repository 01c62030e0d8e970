#include "support/TinyNetwork.h"

#include <cstdint>
#include <cstring>
#include <string_view>

#include "support/TempFolder.h"

namespace ornivo::testing {
namespace {

// ONNX files are protocol buffers: fields of a number and a value, which is an integer or a length
// and that many bytes.

std::string varint(std::uint64_t value) {
    std::string bytes;
    for (; value >= 0x80; value >>= 7U) bytes += static_cast<char>((value & 0x7fU) | 0x80U);
    return bytes + static_cast<char>(value);
}

std::string integer(unsigned field, int value) {
    return varint(field << 3U) + varint(static_cast<std::uint64_t>(value));
}

std::string text(unsigned field, std::string_view bytes) {
    return varint(field << 3U | 2U) + varint(bytes.size()) + std::string(bytes);
}

constexpr int floatType = 1;
constexpr int formatVersion = 7;
constexpr int operatorsVersion = 12;

std::string tensor(std::string_view name, const std::vector<int>& shape) {
    std::string dimensions;
    for (const int size : shape) dimensions += text(1, integer(1, size));
    const std::string type = integer(1, floatType) + text(2, dimensions);
    return text(1, name) + text(2, text(1, type));
}

std::string boxShape(const std::vector<float>& box) {
    return tensor("bird_box", {1, static_cast<int>(box.size())});
}

/// A node that answers the same numbers each time.
std::string constant(std::string_view output, const std::vector<float>& values) {
    constexpr int tensorAttribute = 4;
    std::string bytes(values.size() * sizeof(float), '\0');
    std::memcpy(bytes.data(), values.data(), bytes.size());
    const std::string value = integer(1, 1) + integer(1, static_cast<int>(values.size())) +
                              integer(2, floatType) + text(9, bytes);
    const std::string attribute = text(1, "value") + text(5, value) + integer(20, tensorAttribute);
    return text(2, output) + text(4, "Constant") + text(5, attribute);
}

std::string graph(const TinyNetwork& network) {
    const std::string flatten = text(1, "image") + text(2, "classLabel_probs") + text(4, "Flatten");
    const bool hasBox = !network.box.empty();
    return text(1, flatten) + (hasBox ? text(1, constant("bird_box", network.box)) : "") +
           text(2, "tiny") + text(11, tensor("image", {1, 3, network.height, network.width})) +
           text(12, tensor("classLabel_probs", {1, 3 * network.width * network.height})) +
           (hasBox ? text(12, boxShape(network.box)) : "");
}

std::string labelEntry(const std::vector<std::string>& labels) {
    if (labels.empty()) return {};
    std::string joined;
    for (const std::string& label : labels) joined += (joined.empty() ? "" : "\n") + label;
    return text(14, text(1, "class_labels") + text(2, joined));
}

}  // namespace

std::filesystem::path writeNetwork(const std::filesystem::path& path, const TinyNetwork& network) {
    const std::string operators = text(1, "") + integer(2, operatorsVersion);
    return writeFile(path, integer(1, formatVersion) + text(7, graph(network)) +
                               text(8, operators) + labelEntry(network.labels));
}

std::filesystem::path writeModelPackage(const std::filesystem::path& folder,
                                        const TinyNetwork& network) {
    return writeNetwork(folder / "model.onnx", network).parent_path();
}

}  // namespace ornivo::testing
