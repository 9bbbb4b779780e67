#pragma once

#include <utility>

#include <unistd.h>

namespace corvane {

/// Owns a file descriptor; closed by its destructor.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number) : m_number(number) {}
    FileDescriptor(FileDescriptor &&other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    FileDescriptor(const FileDescriptor &) = delete;
    FileDescriptor &operator=(const FileDescriptor &) = delete;
    ~FileDescriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }

    [[nodiscard]] int number() const { return m_number; }
    /// Returns the descriptor without closing it; the caller owns it from now on.
    [[nodiscard]] int release() { return std::exchange(m_number, -1); }
    [[nodiscard]] bool isOpen() const { return m_number >= 0; }

private:
    int m_number = -1;
};

} // namespace corvane
