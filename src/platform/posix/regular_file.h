#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "platform/error.h"
#include "platform/file_descriptor.h"
#include "platform/file_reader.h"

namespace corvane {

/// A regular file, opened without waiting. Whatever else lies there (a folder, a pipe, a device) is not opened at all.
class RegularFile final : public FileReader {
public:
    enum class LinkRule { follow, refuse };

    /// The item of that name relative to an open folder's number, or AT_FDCWD; `path` is for the errors.
    [[nodiscard]] static Expected<std::unique_ptr<RegularFile>> open(int folder, const char *name,
                                                                     const std::string &path, LinkRule rule);

    [[nodiscard]] Expected<FileStatus> status() override;
    [[nodiscard]] Expected<std::size_t> read(std::int64_t offset, std::span<std::byte> buffer) override;
    void willRead(std::int64_t offset, std::int64_t length) override;

    /// The whole content. Fails where it is more than `most` bytes (`std::errc::file_too_large`).
    [[nodiscard]] Expected<std::string> readAll(std::size_t most);

private:
    RegularFile(FileDescriptor file, std::string path) : m_file(std::move(file)), m_path(std::move(path)) {}

    [[nodiscard]] tl::unexpected<Error> failure(const char *operation, int code) const;

    const FileDescriptor m_file;
    const std::string m_path;
};

} // namespace corvane
