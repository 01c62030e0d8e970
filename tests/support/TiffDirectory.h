#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ornivo::testing {

/// One directory of a TIFF structure, the form of EXIF and DNG, put together tag by tag in
/// any order, with every number little-endian. Nothing is checked, so that odd files can be made
/// as well as good ones.
class TiffDirectory {
public:
    using Rational = std::pair<std::uint32_t, std::uint32_t>;

    TiffDirectory& ascii(std::uint16_t tag, std::string_view text);
    TiffDirectory& bytes(std::uint16_t tag, std::string_view bytes);
    TiffDirectory& shorts(std::uint16_t tag, const std::vector<std::uint16_t>& numbers);
    TiffDirectory& longs(std::uint16_t tag, const std::vector<std::uint32_t>& numbers);
    TiffDirectory& rationals(std::uint16_t tag, const std::vector<Rational>& numbers);
    TiffDirectory& signedRationals(
        std::uint16_t tag, const std::vector<std::pair<std::int32_t, std::int32_t>>& numbers);
    TiffDirectory& directory(std::uint16_t tag, const TiffDirectory& child);
    /// The picture's data in one strip, or in tiles of equal length. It comes at the end, so that a
    /// file cut short has lost none of its tags.
    TiffDirectory& strip(std::string data);
    TiffDirectory& tiles(std::string data, std::size_t count);

    bool isEmpty() const { return entries_.empty(); }

    /// The whole structure with this as its first directory.
    std::string file() const;

private:
    struct Entry {
        std::uint16_t tag;
        std::uint16_t type;
        std::uint32_t count;
        std::string bytes;
        /// The directory that the tag points at, or nothing.
        std::vector<TiffDirectory> child;
    };

    TiffDirectory& add(std::uint16_t tag, std::uint16_t type, std::size_t count, std::string bytes);
    std::size_t sizeWithoutData() const;
    std::string serialised(std::size_t offset) const;

    TiffDirectory& picture(std::uint16_t offsetsTag, std::uint16_t lengthsTag, std::string data,
                           std::size_t pieces);

    std::vector<Entry> entries_;
    std::string data_;
    /// Where the pieces of the data begin in it, and the tag that tells where they lie in the file.
    std::vector<std::uint32_t> pieces_;
    std::uint16_t piecesTag_ = 0;
};

}  // namespace ornivo::testing
