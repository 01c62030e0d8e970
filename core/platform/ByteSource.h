#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

#include "platform/FileDescriptor.h"

namespace ornivo {

/// Bytes that are read here and there, such as a large file of which only the head is wanted.
class ByteSource {
public:
    virtual ~ByteSource() = default;

    virtual std::uint64_t size() const = 0;

    /// Fills `into` with the bytes from `offset` on; false when not all of them are there.
    virtual bool read(std::uint64_t offset, std::span<std::uint8_t> into) const = 0;
};

/// A part of a source.
struct ByteRange {
    std::uint64_t offset = 0;
    std::uint64_t length = 0;

    bool operator==(const ByteRange&) const = default;
};

/// Whether all of the range lies within the source.
bool holds(const ByteSource& source, ByteRange range);

/// The bytes of a range; absent when not all of them are there. Takes no memory for bytes that
/// can't be there, whatever length is asked for.
std::optional<std::vector<std::uint8_t>> bytesOf(const ByteSource& source, ByteRange range);

/// A file, read only where it is asked for.
class FileBytes : public ByteSource {
public:
    /// Empty when the file is no regular one or can't be opened.
    explicit FileBytes(const std::filesystem::path& file);

    std::uint64_t size() const override { return size_; }
    bool read(std::uint64_t offset, std::span<std::uint8_t> into) const override;

private:
    FileDescriptor descriptor_;
    std::uint64_t size_ = 0;
};

/// Bytes in memory, which must outlive it.
class MemoryBytes : public ByteSource {
public:
    explicit MemoryBytes(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    std::uint64_t size() const override { return bytes_.size(); }
    bool read(std::uint64_t offset, std::span<std::uint8_t> into) const override;

private:
    std::span<const std::uint8_t> bytes_;
};

}  // namespace ornivo
