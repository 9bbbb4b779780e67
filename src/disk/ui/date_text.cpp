#include "disk/ui/date_text.h"

#include <QRegularExpression>

namespace corvane {

QString abbreviatedDateTime(const QDateTime &when, const QLocale &locale)
{
    // Qt has no form between the long one and the one of figures alone.
    static const QRegularExpression dayOfWeek(QStringLiteral("[,،\\s]*dddd?[,،.\\s]*"));
    static const QRegularExpression seconds(QStringLiteral("[:.]ss?"));
    const QString date =
        locale.dateFormat(QLocale::LongFormat).remove(dayOfWeek).replace(QStringLiteral("MMMM"), QStringLiteral("MMM"));
    const QString time = locale.timeFormat(QLocale::ShortFormat).remove(seconds);
    return locale.toString(when.date(), date) + QStringLiteral(" at ") + locale.toString(when.time(), time);
}

} // namespace corvane
