#pragma once

#include <QJsonObject>
#include <QString>
#include <QUrl>

#include "platform/file_system.h"

namespace corvane {

/// Facts about the program and the machine it runs on. Any thread; functions that take the file system read a few small
/// files.
struct AppInfo {
    /// The product's website, set at build time.
    [[nodiscard]] static QUrl site();
    [[nodiscard]] static QUrl feedbackPage();
    [[nodiscard]] static QUrl privacyPage();
    /// Appends a path to a site's address, with or without a trailing slash in the latter.
    [[nodiscard]] static QUrl pageOf(QUrl site, const QString &path);

    /// "1.2.0"
    [[nodiscard]] static QString version();
    /// The build number, which grows with every release: "10200".
    [[nodiscard]] static QString build();

    /// The operating system's version: three numbers on a Mac's root ("14.2.1"), name and version elsewhere ("Debian
    /// GNU/Linux 12 (bookworm)").
    [[nodiscard]] static QString macOS(FileSystem &files);
    /// The machine's model; empty if it cannot be read.
    [[nodiscard]] static QString model(FileSystem &files);
    /// "Apple Silicon" on a Mac with such a processor, otherwise the architecture: "x86_64".
    [[nodiscard]] static QString arch(FileSystem &files);

    /// The system information sent with feedback if the user allows it: "appVersion", "build", "macOS", "model",
    /// "arch", "locale" and "fullDiskAccess" ("true" or "false"), all strings.
    [[nodiscard]] static QJsonObject system(FileSystem &files);
};

} // namespace corvane
