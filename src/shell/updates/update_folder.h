#pragma once

#include <span>
#include <string>

#include <QByteArrayView>
#include <QString>
#include <QUrl>

#include "platform/error.h"
#include "platform/file_descriptor.h"

namespace corvane {

/// The name of a downloaded update, made of its version and, where it is that of a known kind of package, the extension
/// of its address. It names one plain visible item whatever either says.
struct UpdateName {
    [[nodiscard]] static std::string of(const QString &version, const QUrl &download);

    /// Whether it is a name that `of` makes, or that of a download under way to it.
    [[nodiscard]] static bool isOurs(const std::string &name);

    /// Whether it is a package that the system installs by itself once its user opens it.
    [[nodiscard]] static bool isPackage(const std::string &name);
};

/// The private folder that updates are downloaded to, corvane/updates in the user's folder of caches, held for one
/// process as long as this lives. Links in it are never followed. Main thread only.
class UpdateFolder {
public:
    /// Makes the folder where it is not there. Fails with `std::errc::resource_unavailable_try_again` while another
    /// process holds it.
    [[nodiscard]] static Expected<UpdateFolder> open(const std::string &caches);

    [[nodiscard]] const std::string &path() const { return m_path; }

    /// An empty file that is being downloaded to become `name`; what an earlier download left of it is deleted.
    [[nodiscard]] Expected<FileDescriptor> startDownload(const std::string &name) const;
    /// A whole download of that name from earlier.
    [[nodiscard]] Expected<FileDescriptor> finished(const std::string &name) const;
    /// Gives the file that `startDownload` opened its own name; the other downloads are deleted.
    [[nodiscard]] Expected<void> finishDownload(const std::string &name, const FileDescriptor &file) const;
    /// Deletes the file that `startDownload` made.
    void abandonDownload(const std::string &name) const;

private:
    UpdateFolder(FileDescriptor folder, std::string path) : m_folder(std::move(folder)), m_path(std::move(path)) {}

    void removeOthers(const std::string &name) const;

    FileDescriptor m_folder;
    std::string m_path;
};

/// Writes all of it.
[[nodiscard]] Expected<void> writeBytes(const FileDescriptor &file, QByteArrayView bytes);

} // namespace corvane
