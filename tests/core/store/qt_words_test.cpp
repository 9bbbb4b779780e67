#include "core/store/qt_words.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

std::string shown(const char *locale)
{
    const QDateTime when(QDate(2026, 11, 20), QTime(9, 14, 33));
    QString text = abbreviatedDateTime(when, QLocale(QLatin1String(locale)));
    return text.replace(QChar(0x202f), QLatin1Char(' ')).toStdString(); // newer locale data puts this space before "AM"
}

TEST(DisplayText, KeepsWhatIsValidText)
{
    EXPECT_EQ(displayText("Grüße 🎬.mov"), QStringLiteral("Grüße 🎬.mov"));
}

TEST(DisplayText, BytesThatAreNotUtf8BecomeReplacementCharacters)
{
    EXPECT_EQ(displayText("a\xff"
                          "b"),
              QStringLiteral("a\uFFFDb"));
}

TEST(DisplayText, ControlCharactersBecomeTheirPicturesSoThatANameStaysOnOneLine)
{
    EXPECT_EQ(displayText("a\nb\tc\x1b\x7f"), QStringLiteral("a\u240Ab\u2409c\u241B\u2421"));
    EXPECT_EQ(displayText("a\u2028b\u0085c"), QStringLiteral("a\uFFFDb\uFFFDc"));
}

TEST(DisplayText, CharactersThatTurnTheDirectionOfWritingCannotDisguiseAName)
{
    EXPECT_EQ(displayText("photo\u202Egpj.app"), QStringLiteral("photo\uFFFDgpj.app"));
    EXPECT_EQ(displayText("a\u2066b\u061Cc\u200Fd"), QStringLiteral("a\uFFFDb\uFFFDc\uFFFDd"));
}

TEST(DisplayText, NoncharactersAreReplaced)
{
    EXPECT_EQ(displayText("a\uFDD0b\uFFFEc\U0001FFFFd"), QStringLiteral("a\uFFFDb\uFFFDc\uFFFDd"));
}

TEST(PathText, IsShortenedAndSafe)
{
    EXPECT_EQ(pathText("/home/anna/a\xff", "/home/anna"), QStringLiteral("~/a\uFFFD"));
    EXPECT_EQ(pathText("/srv/big.iso", "/"), QStringLiteral("/srv/big.iso"));
}

TEST(Figures, AreThoseOfTheEngine)
{
    EXPECT_EQ(sizeText(12'345'678), QStringLiteral("12.3 MB"));
    EXPECT_EQ(countText(1'234'567), QStringLiteral("1,234,567"));
    EXPECT_EQ(countText(1, "file", "files"), QStringLiteral("1 file"));
    EXPECT_EQ(countText(2'000, "file", "files"), QStringLiteral("2,000 files"));
    EXPECT_EQ(itemsText(0), QStringLiteral("0 items"));
    EXPECT_EQ(itemsText(1), QStringLiteral("1 item"));
    EXPECT_EQ(itemsText(12'345), QStringLiteral("12,345 items"));
    EXPECT_EQ(percentText(4.25), QStringLiteral("4.2%"));
    EXPECT_EQ(percentText(4.25, 0), QStringLiteral("4%"));
    EXPECT_EQ(agoText(7'200), QStringLiteral("2 hours ago"));
}

TEST(AbbreviatedDateTime, FollowsTheLocalesOrder)
{
    EXPECT_EQ(shown("en_US"), "Nov 20, 2026 at 9:14 AM");
    EXPECT_EQ(shown("en_GB"), "20 Nov 2026 at 09:14");
    EXPECT_EQ(shown("da_DK"), "den 20. nov. 2026 09.14");
}

TEST(AbbreviatedDateTime, HasNoEnglishWordInAnotherLanguage)
{
    EXPECT_EQ(shown("de_DE"), "20. Nov. 2026 09:14");
    EXPECT_EQ(shown("ja_JP"), "2026年11月20日 9:14");
}

#ifndef Q_OS_MACOS
TEST(DateLocale, IsThatOfTheTimesNotOfTheWords)
{
    const auto before = [](const char *name) {
        return std::pair(name, qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name)) : std::nullopt);
    };
    const std::array kept{before("LC_ALL"), before("LC_TIME"), before("LANG")};
    qunsetenv("LC_ALL");
    qputenv("LANG", "en_US.UTF-8");
    qputenv("LC_TIME", "de_DE.UTF-8");
    EXPECT_EQ(dateLocale(), QLocale(QLocale::German, QLocale::Germany));
    qputenv("LC_ALL", "da_DK.UTF-8");
    EXPECT_EQ(dateLocale(), QLocale(QLocale::Danish, QLocale::Denmark));
    qunsetenv("LC_ALL");
    qunsetenv("LC_TIME");
    EXPECT_EQ(dateLocale(), QLocale(QLocale::English, QLocale::UnitedStates));
    qunsetenv("LANG");
    EXPECT_EQ(dateLocale(), QLocale::c());
    for (const auto &[name, value] : kept) {
        if (value)
            qputenv(name, *value);
        else
            qunsetenv(name);
    }
}
#endif

TEST(AbbreviatedDate, IsTheSameWithoutTheTime)
{
    const QDate date(2026, 11, 20);
    EXPECT_EQ(abbreviatedDate(date, QLocale(QStringLiteral("en_US"))), QStringLiteral("Nov 20, 2026"));
    EXPECT_EQ(abbreviatedDate(date, QLocale(QStringLiteral("en_GB"))), QStringLiteral("20 Nov 2026"));
    EXPECT_EQ(abbreviatedDate(date, QLocale(QStringLiteral("de_DE"))), QStringLiteral("20. Nov. 2026"));
}

TEST(LocalDate, IsTheDayWhereTheUserIs)
{
    const QDateTime late(QDate(2026, 11, 20), QTime(23, 59, 59));
    const Time time{std::chrono::seconds(late.toSecsSinceEpoch())};
    EXPECT_EQ(localDate(time), QDate(2026, 11, 20));
    EXPECT_EQ(localDate(time + std::chrono::seconds(1)), QDate(2026, 11, 21));
}

TEST(AbbreviatedDateTime, HasNoSecondsWhereTheLocaleHasThem)
{
    EXPECT_EQ(shown("C"), "20 Nov 2026 at 09:14");
}

} // namespace
} // namespace corvane
