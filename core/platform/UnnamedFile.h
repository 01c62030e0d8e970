#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <utility>

#include "platform/FileDescriptor.h"
#include "platform/Files.h"

namespace ornivo {

/// A file without a name: its blocks are taken from the volume for as long as it is open, and the
/// system gives them back however the process ends.
class UnnamedFile : public KeptRoom {
public:
    /// On the volume of the folder, or of the nearest one above it that exists. Null when the
    /// volume has not that many bytes left, or knows no such files.
    static std::unique_ptr<UnnamedFile> ofLength(const std::filesystem::path& folder,
                                                 std::uint64_t bytes);

    ~UnnamedFile() override;

private:
    explicit UnnamedFile(FileDescriptor file) : file_(std::move(file)) {}

    FileDescriptor file_;
};

}  // namespace ornivo
