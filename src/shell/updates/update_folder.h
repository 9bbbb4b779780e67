#pragma once

#include <string>

#include <QString>
#include <QUrl>

#include "platform/private_folder.h"

namespace corvane {

/// The file name of a downloaded update: its version, and the extension of its address if that belongs to a known kind
/// of package. Always the name of a single visible item, whatever the feed contains.
struct UpdateName {
    [[nodiscard]] static std::string of(const QString &version, const QUrl &download);

    /// Whether `of` makes this name, or it is that of a partial download.
    [[nodiscard]] static bool isOurs(const std::string &name);

    /// Whether the system's installer can open the file.
    [[nodiscard]] static bool isPackage(const std::string &name);
};

/// The private folder that updates are downloaded to: corvane/updates in the user's cache folder. One process holds it
/// as long as this object lives. Main thread only.
class UpdateFolder {
public:
    /// Creates the folder if it is missing. Fails with `std::errc::resource_unavailable_try_again` while another
    /// process holds it.
    [[nodiscard]] static Expected<UpdateFolder> open(const std::string &caches);

    [[nodiscard]] const std::string &path() const { return m_folder.path(); }

    /// Creates an empty file for the download, with a name for partial downloads. Deletes one that an earlier download
    /// left.
    [[nodiscard]] Expected<FileDescriptor> startDownload(const std::string &name) const;
    /// Opens a complete download of that name.
    [[nodiscard]] Expected<FileDescriptor> finished(const std::string &name) const;
    /// Gives the file of `startDownload` its final name, and deletes all other downloads. Fails if another file has
    /// taken its place.
    [[nodiscard]] Expected<void> finishDownload(const std::string &name, const FileDescriptor &file) const;
    /// Deletes the partial download.
    void abandonDownload(const std::string &name) const;

private:
    explicit UpdateFolder(PrivateFolder folder) : m_folder(std::move(folder)) {}

    void removeOthers(const std::string &name) const;

    PrivateFolder m_folder;
};

} // namespace corvane
