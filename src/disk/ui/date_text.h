#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace corvane {

/// The locale that the user's settings give for dates, which need not be that of the words; the program makes it its
/// default at the start.
[[nodiscard]] QLocale dateLocale();

/// A date with its month abbreviated and without the day of the week, and a time without seconds, in the order
/// and with the names of the locale: "Nov 20, 2026 at 9:14 AM", "20 Nov 2026 at 09:14",
/// "20. Nov. 2026 09:14".
[[nodiscard]] QString abbreviatedDateTime(const QDateTime &when, const QLocale &locale);

} // namespace corvane
