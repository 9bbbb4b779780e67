#pragma once

#include <memory>

#include <QSettings>

namespace corvane {

/// The settings of this user under the application's names, which must have been set. Never null. Where the settings
/// file or its lock is no regular file (a pipe, a device), reading or writing it might never end: what is set is then
/// kept for this run alone, and one line on standard error says so.
[[nodiscard]] std::unique_ptr<QSettings> openUserSettings();

} // namespace corvane
