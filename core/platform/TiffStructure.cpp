#include "platform/TiffStructure.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

namespace ornivo {
namespace {

constexpr std::size_t headerSize = 8;
constexpr std::size_t entrySize = 12;
constexpr std::size_t nextSize = 4;
/// A value of at most so many bytes stands in its entry.
constexpr std::uint64_t fieldSize = 4;
/// Maker notes have two hundred.
constexpr std::uint16_t mostEntries = 1024;

/// Bytes of one value of each type: byte, text, short, long, rational, signed byte, undefined,
/// signed short, signed long, signed rational, float, double, directory. Other types count as one.
constexpr std::array<std::uint64_t, 14> typeSizes{1, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};
constexpr std::uint16_t typeByte = 1;
constexpr std::uint16_t typeShort = 3;
constexpr std::uint16_t typeLong = 4;
constexpr std::uint16_t typeUndefined = 7;
constexpr std::uint16_t typeDirectory = 13;

std::uint64_t sizeOfType(std::uint16_t type) {
    return type < typeSizes.size() ? typeSizes[type] : 1;
}

std::uint32_t number(std::span<const std::uint8_t> bytes, bool isBigEndian) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        value = value << 8 | bytes[isBigEndian ? i : bytes.size() - 1 - i];
    }
    return value;
}

}  // namespace

const TiffEntry* TiffEntries::find(std::uint16_t tag) const {
    const auto found = std::ranges::find(entries, tag, &TiffEntry::tag);
    return found == entries.end() ? nullptr : &*found;
}

std::optional<TiffStructure> TiffStructure::withHeader(const ByteSource& source,
                                                       std::uint64_t base) {
    std::array<std::uint8_t, headerSize> header{};
    if (!source.read(base, header)) return std::nullopt;
    const bool isLittleEndian = header[0] == 'I' && header[1] == 'I';
    const bool isBigEndian = header[0] == 'M' && header[1] == 'M';
    if (!isLittleEndian && !isBigEndian) return std::nullopt;
    TiffStructure structure(source, base, isBigEndian);
    const std::span bytes(header);
    structure.kind_ = static_cast<std::uint16_t>(ornivo::number(bytes.subspan(2, 2), isBigEndian));
    structure.first_ = ornivo::number(bytes.subspan(4, 4), isBigEndian);
    return structure;
}

std::optional<TiffEntries> TiffStructure::directory(std::uint32_t offset) const {
    std::array<std::uint8_t, 2> countBytes{};
    if (!source_->read(placeOf(offset), countBytes)) return std::nullopt;
    const std::uint32_t count = ornivo::number(countBytes, isBigEndian_);
    if (count == 0 || count > mostEntries) return std::nullopt;
    const std::uint64_t tableAt = placeOf(offset) + countBytes.size();
    const auto table = bytesOf(*source_, {tableAt, count * entrySize});
    if (!table) return std::nullopt;
    TiffEntries result;
    for (std::size_t at = 0; at < table->size(); at += entrySize) {
        const std::span bytes = std::span(*table).subspan(at, entrySize);
        TiffEntry entry{
            static_cast<std::uint16_t>(ornivo::number(bytes.first(2), isBigEndian_)),
            static_cast<std::uint16_t>(ornivo::number(bytes.subspan(2, 2), isBigEndian_)),
            ornivo::number(bytes.subspan(4, 4), isBigEndian_), tableAt + at + 8};
        const bool isElsewhere = entry.count * sizeOfType(entry.type) > fieldSize;
        if (isElsewhere) entry.valueAt = placeOf(ornivo::number(bytes.last(4), isBigEndian_));
        result.entries.push_back(entry);
    }
    // A maker note may end at its last entry.
    std::array<std::uint8_t, nextSize> next{};
    if (source_->read(tableAt + table->size(), next)) {
        result.next = ornivo::number(next, isBigEndian_);
    }
    return result;
}

std::vector<std::uint32_t> TiffStructure::numbers(const TiffEntry& entry,
                                                  std::uint32_t most) const {
    const bool isByte = entry.type == typeByte || entry.type == typeUndefined;
    const bool isWide = entry.type == typeLong || entry.type == typeDirectory;
    if (!isByte && !isWide && entry.type != typeShort) return {};
    const auto size = static_cast<std::size_t>(sizeOfType(entry.type));
    const auto bytes = bytesOf(*source_, {entry.valueAt, std::min(entry.count, most) * size});
    if (!bytes) return {};
    std::vector<std::uint32_t> result;
    for (std::size_t at = 0; at < bytes->size(); at += size) {
        result.push_back(ornivo::number(std::span(*bytes).subspan(at, size), isBigEndian_));
    }
    return result;
}

std::optional<std::uint32_t> TiffStructure::number(const TiffEntries& entries,
                                                   std::uint16_t tag) const {
    const TiffEntry* entry = entries.find(tag);
    if (!entry) return std::nullopt;
    const auto found = numbers(*entry, 1);
    return found.empty() ? std::nullopt : std::optional(found.front());
}

std::string TiffStructure::text(const TiffEntries& entries, std::uint16_t tag,
                                std::uint32_t length) const {
    const TiffEntry* entry = entries.find(tag);
    if (!entry || entry->count < length) return {};
    const auto bytes = bytesOf(*source_, {entry->valueAt, length});
    return bytes ? std::string(bytes->begin(), bytes->end()) : std::string();
}

}  // namespace ornivo
