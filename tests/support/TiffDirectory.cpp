#include "support/TiffDirectory.h"

#include <algorithm>
#include <cstddef>
#include <type_traits>

namespace ornivo::testing {
namespace {

constexpr std::uint16_t typeByte = 1;
constexpr std::uint16_t typeAscii = 2;
constexpr std::uint16_t typeShort = 3;
constexpr std::uint16_t typeLong = 4;
constexpr std::uint16_t typeRational = 5;
constexpr std::uint16_t typeSignedRational = 10;

constexpr std::size_t headerSize = 8;
constexpr std::size_t entrySize = 12;
constexpr std::size_t fieldSize = 4;

/// A number's bytes, the lowest first.
template <typename T>
std::string number(T value) {
    const auto bits = static_cast<std::make_unsigned_t<T>>(value);
    std::string out;
    for (std::size_t i = 0; i < sizeof(T); ++i) out.push_back(static_cast<char>(bits >> (8 * i)));
    return out;
}

/// Values begin at even places.
std::string padded(const std::string& bytes) {
    return bytes + std::string(bytes.size() % 2, '\0');
}

template <typename T>
std::string packed(const std::vector<T>& numbers) {
    std::string out;
    for (const T value : numbers) out += number(value);
    return out;
}

template <typename T>
std::string packed(const std::vector<std::pair<T, T>>& fractions) {
    std::string out;
    for (const auto& [above, below] : fractions) out += number(above) + number(below);
    return out;
}

}  // namespace

TiffDirectory& TiffDirectory::add(std::uint16_t tag, std::uint16_t type, std::size_t count,
                                  std::string bytes) {
    entries_.push_back({tag, type, static_cast<std::uint32_t>(count), std::move(bytes), {}});
    return *this;
}

TiffDirectory& TiffDirectory::ascii(std::uint16_t tag, std::string_view text) {
    return add(tag, typeAscii, text.size() + 1, std::string(text) + '\0');
}

TiffDirectory& TiffDirectory::bytes(std::uint16_t tag, std::string_view bytes) {
    return add(tag, typeByte, bytes.size(), std::string(bytes));
}

TiffDirectory& TiffDirectory::shorts(std::uint16_t tag, const std::vector<std::uint16_t>& numbers) {
    return add(tag, typeShort, numbers.size(), packed(numbers));
}

TiffDirectory& TiffDirectory::longs(std::uint16_t tag, const std::vector<std::uint32_t>& numbers) {
    return add(tag, typeLong, numbers.size(), packed(numbers));
}

TiffDirectory& TiffDirectory::rationals(std::uint16_t tag, const std::vector<Rational>& numbers) {
    return add(tag, typeRational, numbers.size(), packed(numbers));
}

TiffDirectory& TiffDirectory::signedRationals(
    std::uint16_t tag, const std::vector<std::pair<std::int32_t, std::int32_t>>& numbers) {
    return add(tag, typeSignedRational, numbers.size(), packed(numbers));
}

TiffDirectory& TiffDirectory::directory(std::uint16_t tag, const TiffDirectory& child) {
    add(tag, typeLong, 1, {});
    entries_.back().child = {child};
    return *this;
}

TiffDirectory& TiffDirectory::strip(std::string data) {
    return picture(273, 279, std::move(data), 1);
}

TiffDirectory& TiffDirectory::tiles(std::string data, std::size_t count) {
    return picture(324, 325, std::move(data), count);
}

TiffDirectory& TiffDirectory::picture(std::uint16_t offsetsTag, std::uint16_t lengthsTag,
                                      std::string data, std::size_t pieces) {
    const auto length = static_cast<std::uint32_t>(data.size() / pieces);
    for (std::uint32_t i = 0; i < pieces; ++i) pieces_.push_back(i * length);
    piecesTag_ = offsetsTag;
    data_ = std::move(data);
    return longs(offsetsTag, pieces_).longs(lengthsTag, std::vector(pieces, length));
}

std::size_t TiffDirectory::sizeWithoutData() const {
    std::size_t size = 2 + entries_.size() * entrySize + 4;
    for (const Entry& entry : entries_) {
        if (!entry.child.empty()) size += entry.child.front().sizeWithoutData();
        if (entry.bytes.size() > fieldSize) size += padded(entry.bytes).size();
    }
    return size;
}

std::string TiffDirectory::serialised(std::size_t offset) const {
    std::vector<Entry> entries = entries_;
    std::ranges::stable_sort(entries, {}, &Entry::tag);
    const std::size_t valuesAt = offset + 2 + entries.size() * entrySize + 4;
    std::string table = number(static_cast<std::uint16_t>(entries.size()));
    std::string values;
    for (Entry& entry : entries) {
        const std::size_t valueAt = valuesAt + values.size();
        if (entry.tag == piecesTag_) {
            const auto dataAt = static_cast<std::uint32_t>(offset + sizeWithoutData());
            entry.bytes.clear();
            for (const std::uint32_t piece : pieces_) entry.bytes += number(dataAt + piece);
        }
        if (!entry.child.empty()) entry.bytes = entry.child.front().serialised(valueAt);
        if (!entry.child.empty() || entry.bytes.size() > fieldSize) {
            values += padded(entry.bytes);
            entry.bytes = number(static_cast<std::uint32_t>(valueAt));
        }
        entry.bytes.resize(fieldSize);
        table += number(entry.tag) + number(entry.type) + number(entry.count) + entry.bytes;
    }
    return table + number(std::uint32_t{0}) + values + data_;
}

std::string TiffDirectory::file() const {
    return "II" + number(std::uint16_t{42}) + number(static_cast<std::uint32_t>(headerSize)) +
           serialised(headerSize);
}

}  // namespace ornivo::testing
