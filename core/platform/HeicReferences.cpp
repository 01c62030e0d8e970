#include "platform/HeicReferences.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace ornivo {
namespace {

using Bytes = std::span<std::uint8_t>;

/// The version and the flags at the beginning of some boxes' contents.
constexpr std::size_t versionSize = 4;

std::uint64_t bigEndian(Bytes bytes) {
    std::uint64_t value = 0;
    for (const std::uint8_t byte : bytes) value = value << 8 | byte;
    return value;
}

struct Box {
    /// Four letters.
    Bytes type;
    Bytes contents;
    /// What follows the box.
    Bytes rest;

    bool is(std::string_view name) const { return std::ranges::equal(type, name); }
};

/// The box at the beginning of the bytes; an empty one without a rest when there is none.
Box firstBox(Bytes bytes) {
    constexpr std::size_t headerSize = 8;
    constexpr std::size_t longHeaderSize = 16;
    if (bytes.size() < headerSize) return {};
    std::uint64_t size = bigEndian(bytes.first(4));
    std::size_t header = headerSize;
    if (size == 0) size = bytes.size();
    if (size == 1) {
        if (bytes.size() < longHeaderSize) return {};
        header = longHeaderSize;
        size = bigEndian(bytes.subspan(headerSize, 8));
    }
    if (size < header || size > bytes.size()) return {};
    const auto whole = static_cast<std::size_t>(size);
    return {bytes.subspan(4, 4), bytes.subspan(header, whole - header), bytes.subspan(whole)};
}

/// The contents of the first box of a type, behind their version; empty when there is none.
Bytes contentsOf(Bytes bytes, std::string_view type) {
    while (!bytes.empty()) {
        const Box box = firstBox(bytes);
        if (box.is(type) && box.contents.size() >= versionSize) {
            return box.contents.subspan(versionSize);
        }
        bytes = box.rest;
    }
    return {};
}

}  // namespace

void dropMetadataReferences(std::span<std::uint8_t> heic) {
    constexpr std::string_view contentDescription = "cdsc";
    constexpr std::string_view ignored = "skip";
    Bytes references = contentsOf(contentsOf(heic, "meta"), "iref");
    while (!references.empty()) {
        const Box reference = firstBox(references);
        if (reference.is(contentDescription)) std::ranges::copy(ignored, reference.type.begin());
        references = reference.rest;
    }
}

}  // namespace ornivo
