#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/error.h"
#include "platform/file_descriptor.h"

namespace corvane {

/// A folder that only this user may enter, held by one process as long as this object lives. Items are named relative
/// to it, and links are never followed. One thread at a time.
class PrivateFolder {
public:
    /// The folder below `base` with these names, one inside the other. Creates `base` and the folders if they are
    /// missing; refuses folders of other users. `base` itself may be a link. Fails with
    /// `std::errc::resource_unavailable_try_again` while another process holds the folder.
    [[nodiscard]] static Expected<PrivateFolder> open(const std::string &base,
                                                      std::initializer_list<std::string_view> names);

    [[nodiscard]] const std::string &path() const { return m_path; }

    /// A new file, open for reading and writing. Fails if the name is taken.
    [[nodiscard]] Expected<FileDescriptor> createFile(const std::string &name) const;
    /// An existing regular file of the user, open for reading.
    [[nodiscard]] Expected<FileDescriptor> openFile(const std::string &name) const;
    /// Renames the item, replacing any file that has the new name. Fails with `std::errc::device_or_resource_busy` if
    /// the item is not the open file.
    [[nodiscard]] Expected<void> renameFile(const FileDescriptor &file, const std::string &name,
                                            const std::string &newName) const;
    /// Deletes a file or a link; does nothing to a folder or a missing item.
    void removeFile(const std::string &name) const;
    /// Empty if the folder cannot be listed.
    [[nodiscard]] std::vector<std::string> names() const;

private:
    PrivateFolder(FileDescriptor folder, std::string path) : m_folder(std::move(folder)), m_path(std::move(path)) {}

    [[nodiscard]] std::string pathOf(const std::string &name) const { return m_path + "/" + name; }

    FileDescriptor m_folder;
    std::string m_path;
};

/// Writes all of it at the file's position.
[[nodiscard]] Expected<void> writeBytes(const FileDescriptor &file, std::string_view bytes);

/// Waits until the file's content is on the disk.
[[nodiscard]] Expected<void> flushToDisk(const FileDescriptor &file);

/// The length of an open file in bytes.
[[nodiscard]] Expected<std::int64_t> lengthOf(const FileDescriptor &file);

} // namespace corvane
