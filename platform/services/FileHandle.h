// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cerrno>
#include <unistd.h>
#include <utility>

namespace services {

/// Owns a file descriptor.
class FileHandle {
public:
    explicit FileHandle(int descriptor = -1) : descriptor_(descriptor) {}
    ~FileHandle() { Close(); }
    FileHandle(FileHandle&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    FileHandle& operator=(FileHandle&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    bool IsOpen() const { return descriptor_ >= 0; }
    int Get() const { return descriptor_; }
    /// 0, or the error number of what the system could only tell now.
    int Close() {
        const int descriptor = std::exchange(descriptor_, -1);
        return descriptor < 0 || close(descriptor) == 0 ? 0 : errno;
    }

private:
    int descriptor_;
};

} // namespace services
