#include "disk/ui/date_text.h"

#include <QRegularExpression>

namespace corvane {

QLocale dateLocale()
{
#ifdef Q_OS_MACOS
    return QLocale::system();
#else
    // QLocale() is that of the messages, and QLocale::system() does not say which language its dates are in.
    for (const char *const variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        if (const QString name = qEnvironmentVariable(variable); !name.isEmpty())
            return QLocale(name.section(QLatin1Char('.'), 0, 0));
    }
    return QLocale::c();
#endif
}

QString abbreviatedDateTime(const QDateTime &when, const QLocale &locale)
{
    // Qt has no form between the long one and the one of figures alone.
    static const QRegularExpression dayOfWeek(QStringLiteral("[,،\\s]*dddd?[,،.\\s]*"));
    static const QRegularExpression seconds(QStringLiteral("[:.]ss?"));
    const QString date =
        locale.dateFormat(QLocale::LongFormat).remove(dayOfWeek).replace(QStringLiteral("MMMM"), QStringLiteral("MMM"));
    const QString time = locale.timeFormat(QLocale::ShortFormat).remove(seconds);
    // An English word between the two belongs into English alone. "C" stands for English without a country.
    const bool isEnglish = locale.language() == QLocale::English || locale.language() == QLocale::C;
    return locale.toString(when.date(), date) + (isEnglish ? QStringLiteral(" at ") : QStringLiteral(" ")) +
           locale.toString(when.time(), time);
}

} // namespace corvane
