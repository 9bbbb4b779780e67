#pragma once

#include <memory>

#include <QSettings>

namespace corvane {

/// This user's settings under the application's names, which must already be set. Never null. If the settings file or
/// its lock is not a regular file (a pipe, a device), reading or writing might block forever: settings are then kept
/// only in memory for this run, and one line on standard error reports it.
[[nodiscard]] std::unique_ptr<QSettings> openUserSettings();

} // namespace corvane
