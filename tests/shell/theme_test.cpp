#include "shell/ui/theme.h"

#include <algorithm>

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>

#include "core/systems/cleanup_table.h"
#include "platform/fake_desktop.h"
#include "shell/contrast.h"
#include "shell/ui/color_scheme_setting.h"
#include "shell/ui/fonts.h"

namespace corvane {
namespace {

class FakeSetting : public ColorSchemeSetting {
public:
    [[nodiscard]] ColorScheme scheme() const override { return m_scheme; }
    void set(ColorScheme scheme)
    {
        m_scheme = scheme;
        emit changed();
    }

private:
    ColorScheme m_scheme = ColorScheme::noPreference;
};

/// Sets a light palette before and after each test.
class ThemeTest : public testing::Test {
protected:
    void SetUp() override { setWindowColor(Qt::white); }
    void TearDown() override { setWindowColor(Qt::white); }

    static void setWindowColor(const QColor &color)
    {
        QPalette palette = QGuiApplication::palette();
        palette.setColor(QPalette::Window, color);
        QGuiApplication::setPalette(palette);
    }

    FakeDesktop desktop;
};

TEST_F(ThemeTest, FollowsThePaletteWhileRunning)
{
    Theme theme(desktop, nullptr);
    EXPECT_FALSE(theme.isDark());
    EXPECT_EQ(theme.window(), QColor("#F6F6F8"));
    QSignalSpy changed(&theme, &Theme::changed);

    setWindowColor(QColor(30, 30, 30));
    EXPECT_TRUE(theme.isDark());
    EXPECT_EQ(theme.window(), QColor("#1C1D21"));
    EXPECT_EQ(changed.count(), 1);

    setWindowColor(Qt::white);
    EXPECT_FALSE(theme.isDark());
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(ThemeTest, StaysSilentWhenThePaletteChangesWithinTheSameScheme)
{
    const Theme theme(desktop, nullptr);
    QSignalSpy changed(&theme, &Theme::changed);
    setWindowColor(QColor(240, 240, 240));
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(ThemeTest, DesktopsOwnSettingOutweighsThePalette)
{
    auto setting = std::make_unique<FakeSetting>();
    FakeSetting &handle = *setting;
    const Theme theme(desktop, std::move(setting));
    EXPECT_FALSE(theme.isDark());

    handle.set(ColorScheme::dark);
    EXPECT_TRUE(theme.isDark());
    setWindowColor(QColor(250, 250, 250));
    EXPECT_TRUE(theme.isDark());

    handle.set(ColorScheme::noPreference);
    EXPECT_FALSE(theme.isDark());

    setWindowColor(QColor(30, 30, 30));
    EXPECT_TRUE(theme.isDark());
    handle.set(ColorScheme::light);
    EXPECT_FALSE(theme.isDark());
}

TEST_F(ThemeTest, FixedSchemeNoLongerFollowsTheSystem)
{
    Theme theme(desktop, nullptr);
    theme.setDark(true);
    EXPECT_TRUE(theme.isDark());
    setWindowColor(QColor(250, 250, 250));
    EXPECT_TRUE(theme.isDark());
}

TEST_F(ThemeTest, MovementsTakeNoTimeUnderReducedMotion)
{
    Theme theme(desktop, nullptr);
    EXPECT_EQ(theme.motion(220), 220);

    // The preference is read again when a system setting changes.
    desktop.setPrefersReducedMotion(true);
    QEvent activated(QEvent::ApplicationStateChange);
    QCoreApplication::sendEvent(qApp, &activated);
    EXPECT_TRUE(theme.reducedMotion());
    EXPECT_EQ(theme.motion(220), 0);
}

TEST_F(ThemeTest, EveryTextStandsOutFromEveryGround)
{
    Theme theme(desktop, nullptr);
    for (const bool dark : {false, true}) {
        theme.setDark(dark);
        const QColor grounds[] = {theme.window(),  theme.sidebar(), theme.band(),
                                  theme.surface(), theme.raised(),  theme.control()};
        const QColor texts[] = {theme.t1(),         theme.t2(),       theme.t3(),    theme.accentText(),
                                theme.dangerText(), theme.warnText(), theme.okText()};
        for (const QColor &ground : grounds) {
            for (const QColor &text : texts)
                EXPECT_GE(contrast(text, ground), 4.5)
                    << text.name().toStdString() << " on " << ground.name().toStdString();
            // The backgrounds of rows are blended over these.
            for (const QColor &row : {theme.fillq(), theme.accentRow()}) {
                for (const QColor &text : {theme.t1(), theme.t2()}) {
                    const QColor mixed = over(row, ground);
                    EXPECT_GE(contrast(text, mixed), 4.5)
                        << text.name().toStdString() << " on " << mixed.name().toStdString();
                }
            }
        }
    }
}

TEST_F(ThemeTest, TagsStandOutFromTheirOwnGround)
{
    Theme theme(desktop, nullptr);
    for (const bool dark : {false, true}) {
        theme.setDark(dark);
        EXPECT_GE(contrast(theme.okText(), theme.okSoft()), 4.5);
        EXPECT_GE(contrast(theme.warnText(), theme.warnSoft()), 4.5);
        EXPECT_GE(contrast(theme.dangerText(), theme.dangerSoft()), 4.5);
        EXPECT_GE(contrast(theme.accentText(), over(theme.accentSoft(), theme.surface())), 4.5);
        EXPECT_GE(contrast(theme.t2(), over(theme.fillq(), theme.surface())), 4.5);
    }
}

TEST_F(ThemeTest, WhiteStandsOutFromEveryFill)
{
    Theme theme(desktop, nullptr);
    for (const bool dark : {false, true}) {
        theme.setDark(dark);
        for (const QColor &fill : {theme.accentFill(), theme.accentFillHover(), theme.accentFillPress(),
                                   theme.dangerFill(), theme.dangerFillHover(), theme.dangerFillPress(), theme.toast()})
            EXPECT_GE(contrast(theme.onFill(), fill), 4.5) << fill.name().toStdString();
    }
}

TEST_F(ThemeTest, FocusRingAndCheckBoxStandOutAsMarks)
{
    Theme theme(desktop, nullptr);
    for (const bool dark : {false, true}) {
        theme.setDark(dark);
        for (const QColor &ground : {theme.window(), theme.sidebar(), theme.band(), theme.surface(), theme.raised()})
            EXPECT_GE(contrast(theme.focus(), ground), 3.0) << ground.name().toStdString();
        EXPECT_GE(contrast(over(theme.checkOutline(), theme.surface()), theme.surface()), 3.0);
    }
}

TEST_F(ThemeTest, TranslucentColorsKeepTheirOpacity)
{
    Theme theme(desktop, nullptr);
    EXPECT_EQ(theme.accentSoft(), QColor(84, 110, 255, qRound(0.12 * 255)));
    EXPECT_EQ(theme.scrim(), QColor(20, 21, 28, qRound(0.34 * 255)));
    theme.setDark(true);
    EXPECT_EQ(theme.fillq(), QColor(255, 255, 255, qRound(0.07 * 255)));
    // Two layers of 7 % have 13.5 % opacity.
    EXPECT_NEAR(theme.fillqPress().alphaF(), 0.135, 0.005);
}

TEST_F(ThemeTest, AColorOfASchemeIsThatOfAThemeInThatScheme)
{
    Theme theme(desktop, nullptr);
    EXPECT_EQ(Theme::surface(Theme::Scheme::light), theme.surface());
    EXPECT_EQ(Theme::toastOk(), Theme::okText(Theme::Scheme::dark));
    theme.setDark(true);
    EXPECT_EQ(Theme::surface(Theme::Scheme::dark), theme.surface());
    EXPECT_EQ(Theme::toastOk(), theme.okText());
}

TEST_F(ThemeTest, CleanupTintsAreInTheOrderOfTheCatalogue)
{
    Theme theme(desktop, nullptr);
    for (const bool dark : {false, true}) {
        theme.setDark(dark);
        const QList<QColor> tints = theme.cleanupTints();
        const auto tint = [&](CleanupTint wanted) { return tints.value(static_cast<int>(wanted)); };
        EXPECT_EQ(tint(CleanupTint::blue), theme.cleanupBlue());
        EXPECT_EQ(tint(CleanupTint::gray), theme.cleanupGray());
        EXPECT_EQ(tint(CleanupTint::cyan), theme.cleanupCyan());
        EXPECT_EQ(tint(CleanupTint::red), theme.cleanupRed());
        EXPECT_EQ(tint(CleanupTint::indigo), theme.cleanupIndigo());
        EXPECT_EQ(tint(CleanupTint::purple), theme.cleanupPurple());
        EXPECT_EQ(tint(CleanupTint::teal), theme.cleanupTeal());
        EXPECT_EQ(tint(CleanupTint::green), theme.cleanupGreen());
        EXPECT_EQ(tint(CleanupTint::mint), theme.cleanupMint());
        EXPECT_EQ(tint(CleanupTint::orange), theme.cleanupOrange());
    }
}

TEST_F(ThemeTest, ALineAroundASoftGroundIsAsIfItLayOnThatGround)
{
    Theme theme(desktop, nullptr);
    for (const bool dark : {false, true}) {
        theme.setDark(dark);
        const QColor ground = over(theme.accentSoft(), theme.window());
        const QColor wanted = over(theme.withAlpha(theme.accent(), 0.3), ground);
        const QColor line = over(theme.accentLine(), theme.window());
        EXPECT_NEAR(line.red(), wanted.red(), 1);
        EXPECT_NEAR(line.green(), wanted.green(), 1);
        EXPECT_NEAR(line.blue(), wanted.blue(), 1);
        EXPECT_GE(contrast(line, ground), 1.2);
    }
}

TEST_F(ThemeTest, SolidFillDarkensOnlyAsFarAsWhiteNeeds)
{
    const Theme theme(desktop, nullptr);
    EXPECT_EQ(theme.solidFill(QColor(84, 110, 255)), QColor(84, 110, 255));

    const QColor pale(250, 143, 56);
    EXPECT_LT(contrast(Qt::white, pale), 3.1);
    const QColor fill = theme.solidFill(pale);
    EXPECT_GE(contrast(Qt::white, fill), 3.1);
    EXPECT_EQ(fill.rgb(), QColor(215, 123, 48).rgb());
}

TEST_F(ThemeTest, CommandsStandInLettersOfOneWidth)
{
    const Theme &theme = *Theme::instance();
    const QStringList families = QFontDatabase::families();
    if (std::ranges::none_of(families, [](const QString &family) { return QFontDatabase::isFixedPitch(family); }))
        GTEST_SKIP() << "no such font is installed";
    const QFontMetricsF metrics(theme.commandFont());
    EXPECT_EQ(metrics.horizontalAdvance(u'i'), metrics.horizontalAdvance(u'W'));
    EXPECT_EQ(theme.commandFont().pixelSize(), 11);
}

TEST_F(ThemeTest, EmbeddedFontsAreTheOnesInUse)
{
    registerFonts();
    const Theme theme(desktop, nullptr);
    EXPECT_EQ(QFontInfo(theme.bodyFont()).family(), QStringLiteral("Inter Text"));
    EXPECT_EQ(QFontInfo(theme.bodyFiguresFont()).family(), QStringLiteral("Inter Tabular"));
    EXPECT_EQ(QFontInfo(theme.bodyMediumFont()).weight(), QFont::Medium);
    EXPECT_EQ(QFontInfo(theme.title2Font()).weight(), QFont::DemiBold);
    EXPECT_EQ(theme.captionFont().pixelSize(), 11);
    EXPECT_EQ(QFontInfo(theme.heroFont()).family(), QStringLiteral("Nunito"));
    EXPECT_EQ(QFontInfo(theme.heroFont()).weight(), QFont::Bold);
}

TEST_F(ThemeTest, FiguresOfColumnsHaveOneWidth)
{
    registerFonts();
    const Theme theme(desktop, nullptr);
    const QFontMetricsF plain(theme.bodyFont());
    EXPECT_NE(plain.horizontalAdvance(u'1'), plain.horizontalAdvance(u'8'));
    for (const QFont &font :
         {theme.bodyFiguresFont(), theme.bodyMediumFiguresFont(), theme.bodySemiboldFiguresFont(),
          theme.secondaryFiguresFont(), theme.captionFiguresFont(), theme.figureFont(), theme.statFont()}) {
        const QFontMetricsF figures(font);
        // The font's own "4" is a few hundredths of a point narrower.
        for (const QChar digit : QStringLiteral("0123456789"))
            EXPECT_NEAR(figures.horizontalAdvance(digit), figures.horizontalAdvance(u'0'), 0.05) << digit.toLatin1();
    }
}

} // namespace
} // namespace corvane
