#pragma once

#include <QJsonObject>
#include <QString>
#include <QUrl>

#include "platform/file_system.h"

namespace corvane {

/// Facts about the program and the machine that it runs on. Any thread; what is given the files reads some small ones.
struct AppInfo {
    /// The product's website, a setting of the build.
    [[nodiscard]] static QUrl site();
    [[nodiscard]] static QUrl feedbackPage();
    [[nodiscard]] static QUrl privacyPage();
    /// What lies beneath a site, whether or not its address ends in a slash.
    [[nodiscard]] static QUrl pageOf(QUrl site, const QString &path);

    /// "1.2.0"
    [[nodiscard]] static QString version();
    /// The number that grows with every release: "10200".
    [[nodiscard]] static QString build();

    /// The operating system's version: on a Mac's root "14.2.1", of three numbers; elsewhere its name and version,
    /// "Debian GNU/Linux 12 (bookworm)".
    [[nodiscard]] static QString macOS(FileSystem &files);
    /// The machine's model; empty where it cannot be read.
    [[nodiscard]] static QString model(FileSystem &files);
    /// "Apple Silicon" for a Mac with such a processor, on other machines its architecture: "x86_64".
    [[nodiscard]] static QString arch(FileSystem &files);

    /// What a message about the program carries when the user allows it: "appVersion", "build", "macOS", "model",
    /// "arch", "locale" and "fullDiskAccess" ("true" or "false"), all texts.
    [[nodiscard]] static QJsonObject system(FileSystem &files);
};

} // namespace corvane
