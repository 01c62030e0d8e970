#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/ByteSource.h"

namespace ornivo {

/// One tag of a directory. Its value is only read when it is asked for.
struct TiffEntry {
    std::uint16_t tag;
    std::uint16_t type;
    std::uint32_t count;
    /// Where the value begins in the source.
    std::uint64_t valueAt;
};

/// What one directory of a TIFF structure holds, in the order of the file.
struct TiffEntries {
    std::vector<TiffEntry> entries;
    /// Where the next directory of the chain begins, counted as all offsets are; 0 ends it.
    std::uint32_t next = 0;

    /// The first entry with the tag, or null.
    const TiffEntry* find(std::uint16_t tag) const;
};

/// Directories of tags as TIFF, EXIF and most RAW files hold them, at any place of a source.
/// Nothing that a file says is believed: what lies outside the source is absent.
class TiffStructure {
public:
    /// Offsets in the structure count from `base`. The source must outlive the structure.
    TiffStructure(const ByteSource& source, std::uint64_t base, bool isBigEndian)
        : source_(&source), base_(base), isBigEndian_(isBigEndian) {}

    /// A structure with a header of its own at `base`: the byte order, a number that tells the
    /// kind (42 in most), the first directory.
    static std::optional<TiffStructure> withHeader(const ByteSource& source, std::uint64_t base);

    /// The number in the header that tells the kind; 0 without a header.
    std::uint16_t kind() const { return kind_; }
    /// The offset of the first directory; 0 without a header.
    std::uint32_t first() const { return first_; }
    bool isBigEndian() const { return isBigEndian_; }

    /// The directory at an offset; absent when it is not wholly there, or too large to be one.
    std::optional<TiffEntries> directory(std::uint32_t offset) const;

    /// The place in the source that an offset means.
    std::uint64_t placeOf(std::uint32_t offset) const { return base_ + offset; }

    /// The unsigned whole numbers of a value, at most `most`; empty for any other type of value
    /// and where the value is not there.
    std::vector<std::uint32_t> numbers(const TiffEntry& entry, std::uint32_t most) const;

    /// The first number of a tag's value; absent as the tag or the value may be.
    std::optional<std::uint32_t> number(const TiffEntries& entries, std::uint16_t tag) const;

    /// The first `length` bytes of a tag's value; empty when it has fewer.
    std::string text(const TiffEntries& entries, std::uint16_t tag, std::uint32_t length) const;

private:
    const ByteSource* source_;
    std::uint64_t base_;
    bool isBigEndian_;
    std::uint16_t kind_ = 0;
    std::uint32_t first_ = 0;
};

}  // namespace ornivo
