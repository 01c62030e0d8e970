#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ornivo::testing {

/// A number's lowest `length` bytes.
std::string numberBytes(std::uint64_t value, std::size_t length, bool isBigEndian);

/// A TIFF structure that grows from its beginning, in either byte order, with whatever else has to
/// stand between its directories: the form of most makers' RAW files. Nothing is checked.
class TiffBytes {
public:
    struct Field {
        std::uint16_t tag;
        std::uint16_t type;
        std::vector<std::uint32_t> numbers;
        /// In place of numbers.
        std::string bytes = {};
    };

    /// Begins with a header, whose last four bytes will tell the first directory.
    TiffBytes(std::string header, bool isBigEndian);

    static Field shorts(std::uint16_t tag, std::vector<std::uint32_t> numbers);
    static Field longs(std::uint16_t tag, std::vector<std::uint32_t> numbers);
    static Field ascii(std::uint16_t tag, std::string_view text);
    static Field undefined(std::uint16_t tag, std::string_view bytes);
    /// Bytes that stand elsewhere.
    static Field undefinedAt(std::uint16_t tag, std::uint32_t offset, std::uint32_t length);

    /// Appends bytes, or a directory with the values that don't fit into its table. Answer where
    /// they begin. Offsets in the directory count from `base`.
    std::uint32_t append(std::string_view bytes);
    std::uint32_t directory(std::vector<Field> fields, std::uint32_t base = 0);

    /// Sets the number of a field, or the directory that follows, of a directory there.
    void setNumber(std::uint32_t directory, std::uint16_t tag, std::uint32_t value);
    void setNext(std::uint32_t directory, std::uint32_t next);
    void setFirst(std::uint32_t directory);

    std::uint32_t size() const { return static_cast<std::uint32_t>(bytes_.size()); }
    const std::string& bytes() const { return bytes_; }

private:
    std::string number(std::uint64_t value, std::size_t length) const;
    std::size_t entryCount(std::uint32_t directory) const;

    std::string bytes_;
    bool isBigEndian_;
};

}  // namespace ornivo::testing
