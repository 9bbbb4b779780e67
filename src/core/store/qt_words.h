#pragma once

#include <cstdint>
#include <string_view>

#include <QByteArray>
#include <QDateTime>
#include <QLocale>
#include <QString>

#include "platform/time.h"

namespace corvane {

// The words of the engine as Qt has them, for every screen; see core/words. Dates alone are made here, since they
// follow the user's locale, which Qt knows.

/// The text that people see for bytes of a path or name; see `displayUtf8`.
[[nodiscard]] QString displayText(std::string_view bytes);

/// The path as it is shown, with the home folder as "~"; see `formatPath`.
[[nodiscard]] QString pathText(std::string_view path, std::string_view home);

/// "12.3 MB"; see `formatByteCount`.
[[nodiscard]] QString sizeText(std::int64_t bytes);

/// "1,234,567".
[[nodiscard]] QString countText(std::int64_t count);

/// "1 file", "12,345 files".
[[nodiscard]] QString countText(std::int64_t count, std::string_view one, std::string_view many);

/// "4.3%"; see `formatPercent`.
[[nodiscard]] QString percentText(double percent, int digits = 1);

/// "5 minutes ago"; see `formatAgo`.
[[nodiscard]] QString agoText(std::int64_t seconds);

/// The locale that the user's settings give for dates, which need not be that of the words; the program makes it its
/// default at the start.
[[nodiscard]] QLocale dateLocale();

/// The day of a point in time where the user is.
[[nodiscard]] QDate localDate(Time time);

/// A date with its month abbreviated and without the day of the week, in the order and with the names of the locale:
/// "Nov 20, 2026", "20 Nov 2026", "20. Nov. 2026".
[[nodiscard]] QString abbreviatedDate(const QDate &date, const QLocale &locale);

/// The same with a time without seconds: "Nov 20, 2026 at 9:14 AM", "20 Nov 2026 at 09:14", "20. Nov. 2026 09:14".
[[nodiscard]] QString abbreviatedDateTime(const QDateTime &when, const QLocale &locale);

/// The file address of a path, percent-encoded from its bytes, so that a name that is not valid text keeps them.
[[nodiscard]] QByteArray fileUrl(std::string_view path);

} // namespace corvane
