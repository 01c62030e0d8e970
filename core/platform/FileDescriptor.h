#pragma once

#include <utility>

namespace ornivo {

/// A file descriptor that is closed at the end of its scope.
class FileDescriptor {
public:
    /// Takes over what `open` answered, also when that is -1.
    explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
    ~FileDescriptor();
    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor_(std::exchange(other.descriptor_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&&) = delete;

    bool isOpen() const { return descriptor_ >= 0; }
    int get() const { return descriptor_; }

private:
    int descriptor_;
};

}  // namespace ornivo
