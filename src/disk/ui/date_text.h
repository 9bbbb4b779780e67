#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace corvane {

/// A date with its month abbreviated and without the day of the week, and a time without seconds, in the order
/// and with the names of the locale: "Nov 20, 2026 at 9:14 AM", "20 Nov 2026 at 09:14".
[[nodiscard]] QString abbreviatedDateTime(const QDateTime &when, const QLocale &locale);

} // namespace corvane
