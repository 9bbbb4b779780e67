#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include <QDateTime>
#include <QLocale>
#include <QString>

#include "platform/time.h"

namespace corvane {

// Qt versions of the texts in core/words, for every screen. Only dates are formatted here, since they follow the user's
// locale, which Qt knows.

/// The display text for bytes of a path or name; see `displayUtf8`.
[[nodiscard]] QString displayText(std::string_view bytes);

/// The display text of a path, with the home folder as "~"; see `formatPath`.
[[nodiscard]] QString pathText(std::string_view path, std::string_view home);

/// "12.3 MB"; see `formatByteCount`.
[[nodiscard]] QString sizeText(std::int64_t bytes);

/// "1,234,567".
[[nodiscard]] QString countText(std::int64_t count);

/// "1 file", "12,345 files".
[[nodiscard]] QString countText(std::int64_t count, std::string_view one, std::string_view many);

/// "1 item", "12,345 items".
[[nodiscard]] QString itemsText(std::size_t count);

/// "4.3%"; see `formatPercent`.
[[nodiscard]] QString percentText(double percent, int digits = 1);

/// "5 minutes ago"; see `formatAgo`.
[[nodiscard]] QString agoText(std::int64_t seconds);

/// The user's locale for dates, which may differ from that of the messages; set as the default locale at startup.
[[nodiscard]] QLocale dateLocale();

/// The date of a point in time in the user's time zone.
[[nodiscard]] QDate localDate(Time time);

/// A date with abbreviated month and no weekday, in the locale's order and language: "Nov 20, 2026", "20 Nov 2026",
/// "20. Nov. 2026".
[[nodiscard]] QString abbreviatedDate(const QDate &date, const QLocale &locale);

/// The same with the time, without seconds: "Nov 20, 2026 at 9:14 AM", "20 Nov 2026 at 09:14", "20. Nov. 2026 09:14".
[[nodiscard]] QString abbreviatedDateTime(const QDateTime &when, const QLocale &locale);

} // namespace corvane
