#include "core/store/qt_words.h"

#include <QRegularExpression>

#include "core/words/display_text.h"
#include "core/words/figures.h"
#include "platform/environment.h"

namespace corvane {

QString displayText(std::string_view bytes)
{
    // Maps and lists convert thousands of names, and nearly all need no change.
    if (isDisplayText(bytes))
        return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    return QString::fromStdString(displayUtf8(bytes));
}

QString pathText(std::string_view path, std::string_view home)
{
    return QString::fromStdString(formatPath(path, home));
}

QString sizeText(std::int64_t bytes)
{
    return QString::fromStdString(formatByteCount(bytes));
}

QString countText(std::int64_t count)
{
    return QString::fromStdString(formatCount(count));
}

QString countText(std::int64_t count, std::string_view one, std::string_view many)
{
    return QString::fromStdString(formatCount(count, one, many));
}

QString itemsText(std::size_t count)
{
    return countText(static_cast<std::int64_t>(count), "item", "items");
}

QString percentText(double percent, int digits)
{
    return QString::fromStdString(formatPercent(percent, digits));
}

QString agoText(std::int64_t seconds)
{
    return QString::fromStdString(formatAgo(seconds));
}

QLocale dateLocale()
{
#ifdef Q_OS_MACOS
    return QLocale::system();
#else
    // QLocale() is the locale of the messages, and QLocale::system() does not expose the language of its dates.
    const QString name = QString::fromLocal8Bit(Environment::locale("LC_TIME"));
    return name.isEmpty() ? QLocale::c() : QLocale(name.section(QLatin1Char('.'), 0, 0));
#endif
}

QDate localDate(Time time)
{
    return QDateTime::fromSecsSinceEpoch(time.time_since_epoch().count()).date();
}

QString abbreviatedDate(const QDate &date, const QLocale &locale)
{
    // Qt has no format between the long and the purely numeric one.
    static const QRegularExpression dayOfWeek(QStringLiteral("[,،\\s]*dddd?[,،.\\s]*"));
    const QString format =
        locale.dateFormat(QLocale::LongFormat).remove(dayOfWeek).replace(QStringLiteral("MMMM"), QStringLiteral("MMM"));
    return locale.toString(date, format);
}

QString abbreviatedDateTime(const QDateTime &when, const QLocale &locale)
{
    static const QRegularExpression seconds(QStringLiteral("[:.]ss?"));
    const QString time = locale.timeFormat(QLocale::ShortFormat).remove(seconds);
    // Only English puts a word between the two. "C" stands for English without a country.
    const bool isEnglish = locale.language() == QLocale::English || locale.language() == QLocale::C;
    return abbreviatedDate(when.date(), locale) + (isEnglish ? QStringLiteral(" at ") : QStringLiteral(" ")) +
           locale.toString(when.time(), time);
}

} // namespace corvane
