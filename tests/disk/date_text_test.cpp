#include "disk/ui/date_text.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

std::string shown(const char *locale)
{
    const QDateTime when(QDate(2026, 11, 20), QTime(9, 14, 33));
    QString text = abbreviatedDateTime(when, QLocale(QLatin1String(locale)));
    return text.replace(QChar(0x202f), QLatin1Char(' ')).toStdString(); // newer locale data parts "AM" so
}

TEST(AbbreviatedDateTime, FollowsTheLocalesOrder)
{
    EXPECT_EQ(shown("en_US"), "Nov 20, 2026 at 9:14 AM");
    EXPECT_EQ(shown("en_GB"), "20 Nov 2026 at 09:14");
    EXPECT_EQ(shown("da_DK"), "den 20. nov. 2026 at 09.14");
}

TEST(AbbreviatedDateTime, HasNoSecondsWhereTheLocaleHasThem)
{
    EXPECT_EQ(shown("C"), "20 Nov 2026 at 09:14");
}

} // namespace
} // namespace corvane
