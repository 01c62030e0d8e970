#include "support/TiffBytes.h"

#include <algorithm>
#include <utility>

namespace ornivo::testing {
namespace {

constexpr std::uint16_t typeAscii = 2;
constexpr std::uint16_t typeShort = 3;
constexpr std::uint16_t typeLong = 4;
constexpr std::uint16_t typeUndefined = 7;
/// A mark of `undefinedAt` alone, turned into `typeUndefined`.
constexpr std::uint16_t typeElsewhere = 0xFFFF;

constexpr std::size_t entrySize = 12;
constexpr std::size_t fieldSize = 4;

}  // namespace

std::string numberBytes(std::uint64_t value, std::size_t length, bool isBigEndian) {
    std::string bytes;
    for (std::size_t i = 0; i < length; ++i) {
        const std::size_t shift = 8 * (isBigEndian ? length - 1 - i : i);
        bytes.push_back(static_cast<char>(value >> shift));
    }
    return bytes;
}

TiffBytes::TiffBytes(std::string header, bool isBigEndian)
    : bytes_(std::move(header)), isBigEndian_(isBigEndian) {}

TiffBytes::Field TiffBytes::shorts(std::uint16_t tag, std::vector<std::uint32_t> numbers) {
    return {tag, typeShort, std::move(numbers)};
}

TiffBytes::Field TiffBytes::longs(std::uint16_t tag, std::vector<std::uint32_t> numbers) {
    return {tag, typeLong, std::move(numbers)};
}

TiffBytes::Field TiffBytes::ascii(std::uint16_t tag, std::string_view text) {
    return {tag, typeAscii, {}, std::string(text) + '\0'};
}

TiffBytes::Field TiffBytes::undefined(std::uint16_t tag, std::string_view bytes) {
    return {tag, typeUndefined, {}, std::string(bytes)};
}

TiffBytes::Field TiffBytes::undefinedAt(std::uint16_t tag, std::uint32_t offset,
                                        std::uint32_t length) {
    return {tag, typeElsewhere, {offset, length}};
}

std::string TiffBytes::number(std::uint64_t value, std::size_t length) const {
    return numberBytes(value, length, isBigEndian_);
}

std::uint32_t TiffBytes::append(std::string_view bytes) {
    if (size() % 2 != 0) bytes_.push_back('\0');
    const std::uint32_t at = size();
    bytes_ += bytes;
    return at;
}

std::uint32_t TiffBytes::directory(std::vector<Field> fields, std::uint32_t base) {
    std::ranges::stable_sort(fields, {}, &Field::tag);
    if (size() % 2 != 0) bytes_.push_back('\0');
    const std::uint32_t at = size();
    const std::size_t valuesAt = at + 2 + fields.size() * entrySize + fieldSize;
    std::string table = number(fields.size(), 2);
    std::string values;
    for (const Field& field : fields) {
        if (field.type == typeElsewhere) {
            table += number(field.tag, 2) + number(typeUndefined, 2) + number(field.numbers[1], 4) +
                     number(field.numbers[0], 4);
            continue;
        }
        std::string value = field.bytes;
        for (const std::uint32_t element : field.numbers) {
            value += number(element, field.type == typeShort ? 2 : 4);
        }
        const std::size_t count = field.numbers.empty() ? value.size() : field.numbers.size();
        if (value.size() > fieldSize) {
            const std::size_t valueAt = valuesAt + values.size() - base;
            values += value + std::string(value.size() % 2, '\0');
            value = number(valueAt, fieldSize);
        }
        value.resize(fieldSize);
        table += number(field.tag, 2) + number(field.type, 2) + number(count, 4) + value;
    }
    bytes_ += table + number(0, fieldSize) + values;
    return at;
}

std::size_t TiffBytes::entryCount(std::uint32_t directory) const {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes_[at]); };
    const std::size_t high = byte(directory + (isBigEndian_ ? 0U : 1U));
    return high << 8 | byte(directory + (isBigEndian_ ? 1U : 0U));
}

void TiffBytes::setNumber(std::uint32_t directory, std::uint16_t tag, std::uint32_t value) {
    const std::string wanted = number(tag, 2);
    for (std::size_t i = 0; i < entryCount(directory); ++i) {
        const std::size_t at = directory + 2 + i * entrySize;
        if (bytes_.compare(at, 2, wanted) == 0) bytes_.replace(at + 8, 4, number(value, 4));
    }
}

void TiffBytes::setNext(std::uint32_t directory, std::uint32_t next) {
    bytes_.replace(directory + 2 + entryCount(directory) * entrySize, 4, number(next, 4));
}

void TiffBytes::setFirst(std::uint32_t directory) {
    bytes_.replace(4, 4, number(directory, 4));
}

}  // namespace ornivo::testing
