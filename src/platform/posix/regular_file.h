#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "platform/error.h"
#include "platform/file_descriptor.h"
#include "platform/file_reader.h"
#include "platform/posix/item_at.h"

namespace corvane {

/// A regular file, opened without blocking. Anything else (a folder, a pipe, a device) is never opened.
class RegularFile final : public FileReader {
public:
    /// Opens the item of that name relative to a folder's descriptor, or AT_FDCWD; `path` is for errors.
    [[nodiscard]] static Expected<std::unique_ptr<RegularFile>> open(int folder, const char *name,
                                                                     const std::string &path, LinkRule rule);

    [[nodiscard]] Expected<FileStatus> status() override;
    [[nodiscard]] Expected<std::size_t> read(std::int64_t offset, std::span<std::byte> buffer) override;
    void willRead(std::int64_t offset, std::int64_t length) override;

    /// The whole content. Fails if it exceeds `most` bytes (`std::errc::file_too_large`).
    [[nodiscard]] Expected<std::string> readAll(std::size_t most);

private:
    RegularFile(FileDescriptor file, std::string path) : m_file(std::move(file)), m_path(std::move(path)) {}

    [[nodiscard]] tl::unexpected<Error> failure(const char *operation, int code) const;

    const FileDescriptor m_file;
    const std::string m_path;
};

} // namespace corvane
