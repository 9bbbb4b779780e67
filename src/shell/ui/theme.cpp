#include "shell/ui/theme.h"

#include <cmath>
#include <optional>

#include <QEvent>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QJSEngine>
#include <QPalette>

#include "core/color.h"
#include "platform/host.h"
#include "shell/ui/color_scheme_setting.h"
#include "shell/ui/file_icons.h"
#include "shell/ui/fonts.h"
#include "shell/ui/qt_color.h"

namespace corvane {

struct Theme::Colors {
    QColor window;
    QColor sidebar;
    QColor band;
    QColor surface;
    QColor raised;
    QColor control;
    QColor segOn;
    QColor hairline;
    QColor hairline2;
    QColor controlBorder;
    QColor controlHover;
    QColor fillq;
    QColor track;
    QColor t1;
    QColor t2;
    QColor t3;
    QColor accent;
    QColor accentFill;
    QColor accentFillHover;
    QColor accentFillPress;
    QColor accentText;
    QColor accentSoft;
    QColor accentRow;
    QColor dangerFill;
    QColor dangerText;
    QColor dangerSoft;
    QColor warnText;
    QColor warnSoft;
    QColor warnLine;
    QColor warnIcon;
    QColor okText;
    QColor okSoft;
    QColor focus;
    QColor scrim;
    QColor toast;
    QColor panelOutline;
    QColor scrimNested;
};

namespace {

QColor translucent(int red, int green, int blue, double alpha)
{
    return QColor(red, green, blue, qRound(alpha * 255));
}

/// What two translucent colours, one over the other, come to.
QColor overlaid(const QColor &above, const QColor &below)
{
    const float alpha = 1 - (1 - above.alphaF()) * (1 - below.alphaF());
    const float share = above.alphaF() / alpha;
    const auto mixed = [share](float a, float b) { return share * a + (1 - share) * b; };
    return QColor::fromRgbF(mixed(above.redF(), below.redF()), mixed(above.greenF(), below.greenF()),
                            mixed(above.blueF(), below.blueF()), alpha);
}

/// One colour at two coats: what covers a ground that the colour covers already.
QColor twice(const QColor &color)
{
    return overlaid(color, color);
}

QColor darkened(const QColor &color, float share)
{
    const float kept = 1 - share;
    return QColor::fromRgbF(color.redF() * kept, color.greenF() * kept, color.blueF() * kept, color.alphaF());
}

/// Relative luminance as WCAG 2 defines it.
double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// Ordinary text is set a trace tighter than the font's own spacing, in parts of its size.
constexpr double tracking = -0.003;

QFont sized(QFont font, int pixelSize, QFont::Weight weight, double letterSpacing)
{
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    font.setLetterSpacing(QFont::AbsoluteSpacing, letterSpacing);
    return font;
}

QFont font(int pixelSize, QFont::Weight weight, Figures figures = Figures::proportional,
           std::optional<double> letterSpacing = std::nullopt)
{
    return sized(textFont(figures), pixelSize, weight, letterSpacing.value_or(tracking * pixelSize));
}

} // namespace

const Theme::Colors &Theme::lightColors()
{
    static const Colors colors{
        .window = QColor(0xf6, 0xf6, 0xf8),
        .sidebar = QColor(0xed, 0xed, 0xf1),
        .band = QColor(0xfb, 0xfb, 0xfc),
        .surface = QColor(0xff, 0xff, 0xff),
        .raised = QColor(0xff, 0xff, 0xff),
        .control = QColor(0xff, 0xff, 0xff),
        .segOn = QColor(0xff, 0xff, 0xff),
        .hairline = QColor(0xe2, 0xe2, 0xe8),
        .hairline2 = QColor(0xed, 0xed, 0xf1),
        .controlBorder = QColor(0xd2, 0xd3, 0xdb),
        .controlHover = QColor(0xf3, 0xf3, 0xf6),
        .fillq = translucent(28, 29, 40, 0.06),
        .track = translucent(28, 29, 40, 0.09),
        .t1 = QColor(0x1b, 0x1c, 0x21),
        .t2 = QColor(0x4f, 0x52, 0x5b),
        .t3 = QColor(0x66, 0x69, 0x73),
        .accent = QColor(0x54, 0x6e, 0xff),
        .accentFill = QColor(0x4a, 0x61, 0xf2),
        .accentFillHover = QColor(0x3e, 0x54, 0xe0),
        .accentFillPress = QColor(0x34, 0x48, 0xcb),
        .accentText = QColor(0x3b, 0x51, 0xdc),
        .accentSoft = translucent(84, 110, 255, 0.12),
        .accentRow = translucent(84, 110, 255, 0.10),
        .dangerFill = QColor(0xcf, 0x2c, 0x3f),
        .dangerText = QColor(0xbf, 0x23, 0x37),
        .dangerSoft = QColor(0xfc, 0xeb, 0xec),
        .warnText = QColor(0x7e, 0x52, 0x00),
        .warnSoft = QColor(0xff, 0xf4, 0xdc),
        .warnLine = QColor(0xf0, 0xdd, 0xb0),
        .warnIcon = QColor(0xc2, 0x7c, 0x00),
        .okText = QColor(0x1a, 0x72, 0x40),
        .okSoft = QColor(0xe4, 0xf5, 0xea),
        .focus = QColor(0x54, 0x6e, 0xff),
        .scrim = translucent(20, 21, 28, 0.34),
        .toast = QColor(0x26, 0x27, 0x2d),
        .panelOutline = translucent(0, 0, 0, 0.08),
        .scrimNested = translucent(20, 21, 28, 0.18),
    };
    return colors;
}

const Theme::Colors &Theme::darkColors()
{
    static const Colors colors{
        .window = QColor(0x1c, 0x1d, 0x21),
        .sidebar = QColor(0x17, 0x18, 0x1b),
        .band = QColor(0x1f, 0x20, 0x24),
        .surface = QColor(0x25, 0x26, 0x2b),
        .raised = QColor(0x2e, 0x2f, 0x35),
        .control = QColor(0x33, 0x34, 0x3b),
        .segOn = QColor(0x50, 0x52, 0x5c),
        .hairline = QColor(0x35, 0x36, 0x3d),
        .hairline2 = QColor(0x30, 0x31, 0x38),
        .controlBorder = QColor(0x45, 0x47, 0x4f),
        .controlHover = QColor(0x3b, 0x3c, 0x44),
        .fillq = translucent(255, 255, 255, 0.07),
        .track = translucent(255, 255, 255, 0.11),
        .t1 = QColor(0xf2, 0xf2, 0xf5),
        .t2 = QColor(0xb9, 0xbb, 0xc4),
        .t3 = QColor(0xa2, 0xa5, 0xaf),
        .accent = QColor(0x54, 0x6e, 0xff),
        .accentFill = QColor(0x4f, 0x66, 0xf2),
        .accentFillHover = QColor(0x44, 0x59, 0xe2),
        .accentFillPress = QColor(0x3a, 0x4d, 0xcc),
        .accentText = QColor(0x9b, 0xa9, 0xff),
        .accentSoft = translucent(108, 130, 255, 0.20),
        .accentRow = translucent(108, 130, 255, 0.18),
        .dangerFill = QColor(0xd1, 0x34, 0x45),
        .dangerText = QColor(0xff, 0x86, 0x90),
        .dangerSoft = QColor(0x40, 0x26, 0x2a),
        .warnText = QColor(0xf2, 0xc2, 0x65),
        .warnSoft = QColor(0x37, 0x30, 0x1f),
        .warnLine = QColor(0x4f, 0x44, 0x27),
        .warnIcon = QColor(0xf0, 0xb4, 0x41),
        .okText = QColor(0x67, 0xd3, 0x94),
        .okSoft = QColor(0x20, 0x38, 0x2b),
        .focus = QColor(0x8d, 0xa0, 0xff),
        .scrim = translucent(0, 0, 0, 0.52),
        .toast = QColor(0x3a, 0x3b, 0x43),
        .panelOutline = translucent(255, 255, 255, 0.10),
        .scrimNested = translucent(0, 0, 0, 0.28),
    };
    return colors;
}

Theme::Theme(Desktop &desktop, std::unique_ptr<ColorSchemeSetting> setting)
    : m_desktop(desktop), m_setting(std::move(setting))
{
    qApp->installEventFilter(this);
    if (m_setting)
        connect(m_setting.get(), &ColorSchemeSetting::changed, this, &Theme::followSystem);
    followSystem();
}

Theme::~Theme() = default;

Theme *Theme::instance()
{
    // A child of the application, so that it goes while there still is one.
    static Theme *const theme = [] {
        auto *made = new Theme(systemHost().desktop, systemColorSchemeSetting());
        made->setParent(qApp);
        return made;
    }();
    return theme;
}

Theme *Theme::create(QQmlEngine *, QJSEngine *)
{
    QJSEngine::setObjectOwnership(instance(), QJSEngine::CppOwnership);
    return instance();
}

bool Theme::eventFilter(QObject *watched, QEvent *event)
{
    // The user may have changed a setting while another program was in front.
    if (watched == qApp &&
        (event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::ApplicationStateChange))
        followSystem();
    return QObject::eventFilter(watched, event);
}

void Theme::followSystem()
{
    const std::optional<bool> setting = m_setting ? m_setting->prefersDark() : std::nullopt;
    const bool dark =
        m_darkIsFixed ? m_dark : setting.value_or(QGuiApplication::palette().window().color().lightnessF() < 0.5f);
    const bool reduced = m_reducedMotionIsFixed ? m_reducedMotion : m_desktop.prefersReducedMotion();
    if (dark == m_dark && reduced == m_reducedMotion)
        return;
    m_dark = dark;
    m_reducedMotion = reduced;
    emit changed();
}

void Theme::setDark(bool dark)
{
    m_darkIsFixed = true;
    if (dark == m_dark)
        return;
    m_dark = dark;
    emit changed();
}

void Theme::setReducedMotion(bool reduced)
{
    m_reducedMotionIsFixed = true;
    if (reduced == m_reducedMotion)
        return;
    m_reducedMotion = reduced;
    emit changed();
}

QColor Theme::solidFill(const QColor &color) const
{
    constexpr double contrast = 3.1;
    for (int step = 0; step < 50; ++step) {
        const QColor fill = darkened(color, 0.02f * static_cast<float>(step));
        if (1.05 / (luminance(fill) + 0.05) >= contrast)
            return fill;
    }
    return Qt::black;
}

QColor Theme::withAlpha(const QColor &color, double alpha) const
{
    QColor result = color;
    result.setAlphaF(static_cast<float>(alpha));
    return result;
}

QFont Theme::withEmoji(const QFont &font) const
{
    return fontWithEmoji(font);
}

QColor Theme::window() const
{
    return colors().window;
}

QColor Theme::sidebar() const
{
    return colors().sidebar;
}

QColor Theme::band() const
{
    return colors().band;
}

QColor Theme::surface() const
{
    return colors().surface;
}

QColor Theme::raised() const
{
    return colors().raised;
}

QColor Theme::control() const
{
    return colors().control;
}

QColor Theme::segOn() const
{
    return colors().segOn;
}

QColor Theme::hairline() const
{
    return colors().hairline;
}

QColor Theme::hairline2() const
{
    return colors().hairline2;
}

QColor Theme::controlBorder() const
{
    return colors().controlBorder;
}

QColor Theme::controlHover() const
{
    return colors().controlHover;
}

QColor Theme::fillq() const
{
    return colors().fillq;
}

QColor Theme::track() const
{
    return colors().track;
}

QColor Theme::t1() const
{
    return colors().t1;
}

QColor Theme::t2() const
{
    return colors().t2;
}

QColor Theme::t3() const
{
    return colors().t3;
}

QColor Theme::accent() const
{
    return colors().accent;
}

QColor Theme::accentFill() const
{
    return colors().accentFill;
}

QColor Theme::accentFillHover() const
{
    return colors().accentFillHover;
}

QColor Theme::accentFillPress() const
{
    return colors().accentFillPress;
}

QColor Theme::accentText() const
{
    return colors().accentText;
}

QColor Theme::accentSoft() const
{
    return colors().accentSoft;
}

QColor Theme::accentRow() const
{
    return colors().accentRow;
}

QColor Theme::dangerFill() const
{
    return colors().dangerFill;
}

QColor Theme::dangerText() const
{
    return colors().dangerText;
}

QColor Theme::dangerSoft() const
{
    return colors().dangerSoft;
}

QColor Theme::warnText() const
{
    return colors().warnText;
}

QColor Theme::warnSoft() const
{
    return colors().warnSoft;
}

QColor Theme::warnLine() const
{
    return colors().warnLine;
}

QColor Theme::warnIcon() const
{
    return colors().warnIcon;
}

QColor Theme::okText() const
{
    return colors().okText;
}

QColor Theme::okSoft() const
{
    return colors().okSoft;
}

QColor Theme::focus() const
{
    return colors().focus;
}

QColor Theme::scrim() const
{
    return colors().scrim;
}

QColor Theme::toast() const
{
    return colors().toast;
}

QColor Theme::panelOutline() const
{
    return colors().panelOutline;
}

QColor Theme::scrimNested() const
{
    return colors().scrimNested;
}

QColor Theme::fillqPress() const
{
    return twice(fillq());
}

QColor Theme::accentSoftPress() const
{
    return twice(accentSoft());
}

QColor Theme::dangerFillHover() const
{
    return darkened(dangerFill(), 0.08f);
}

QColor Theme::dangerFillPress() const
{
    return darkened(dangerFill(), 0.16f);
}

QColor Theme::accentLine() const
{
    // A rectangle does not reach under its own border.
    return overlaid(withAlpha(colors().accent, 0.3), accentSoft());
}

QColor Theme::checkOutline() const
{
    return withAlpha(t3(), 0.72);
}

QColor Theme::switchTrack() const
{
    return withAlpha(t3(), 0.55);
}

QList<QColor> Theme::cleanupTints() const
{
    if (m_dark) {
        return {QColor(0x5a, 0xa2, 0xff), QColor(0xa6, 0xa9, 0xb3), QColor(0x5c, 0xc4, 0xe8), QColor(0xff, 0x7b, 0x7f),
                QColor(0x92, 0x95, 0xff), QColor(0xc7, 0x8b, 0xf2), QColor(0x55, 0xc6, 0xd3), QColor(0x62, 0xcc, 0x84),
                QColor(0x58, 0xcd, 0xbb), QColor(0xff, 0xa6, 0x50)};
    }
    return {QColor(0x0a, 0x63, 0xd8), QColor(0x62, 0x65, 0x6f), QColor(0x0b, 0x7f, 0xa8), QColor(0xcc, 0x2f, 0x36),
            QColor(0x4b, 0x4f, 0xd0), QColor(0x8a, 0x3f, 0xc4), QColor(0x11, 0x7e, 0x8c), QColor(0x1f, 0x7f, 0x3e),
            QColor(0x0d, 0x82, 0x72), QColor(0xb8, 0x5b, 0x00)};
}

QColor Theme::brandA() const
{
    return toExactQColor(corvane::brandA);
}

QColor Theme::brandB() const
{
    return toExactQColor(corvane::brandB);
}

QColor Theme::onFill() const
{
    return Qt::white;
}

QColor Theme::onFillRule() const
{
    return translucent(255, 255, 255, 0.35);
}

QColor Theme::toastOk() const
{
    return QColor(0x67, 0xd3, 0x94);
}

QColor Theme::toastWarning() const
{
    return QColor(0xf0, 0xb4, 0x41);
}

QColor Theme::folderIcon() const
{
    return fileIconColor(FileType::folder, FileNode::Kind::directory);
}

QFont Theme::heroFont() const
{
    return sized(roundedFont(), 52, QFont::Bold, -1);
}

QFont Theme::figureFont() const
{
    return font(22, QFont::DemiBold, Figures::tabular, -0.44);
}

QFont Theme::title1Font() const
{
    return font(20, QFont::DemiBold, Figures::proportional, -0.36);
}

QFont Theme::statFont() const
{
    return font(17, QFont::DemiBold, Figures::tabular, -0.26);
}

QFont Theme::statPlainFont() const
{
    return font(17, QFont::Normal, Figures::proportional, -0.26);
}

QFont Theme::title2Font() const
{
    return font(15, QFont::DemiBold, Figures::proportional, -0.18);
}

QFont Theme::bodyFont() const
{
    return font(13, QFont::Normal);
}

QFont Theme::bodyMediumFont() const
{
    return font(13, QFont::Medium);
}

QFont Theme::bodySemiboldFont() const
{
    return font(13, QFont::DemiBold);
}

QFont Theme::bodyFiguresFont() const
{
    return font(13, QFont::Normal, Figures::tabular);
}

QFont Theme::bodyMediumFiguresFont() const
{
    return font(13, QFont::Medium, Figures::tabular);
}

QFont Theme::bodySemiboldFiguresFont() const
{
    return font(13, QFont::DemiBold, Figures::tabular);
}

QFont Theme::secondaryFont() const
{
    return font(12, QFont::Normal);
}

QFont Theme::secondaryMediumFont() const
{
    return font(12, QFont::Medium);
}

QFont Theme::secondarySemiboldFont() const
{
    return font(12, QFont::DemiBold);
}

QFont Theme::secondaryFiguresFont() const
{
    return font(12, QFont::Normal, Figures::tabular);
}

QFont Theme::captionFont() const
{
    return font(11, QFont::Normal);
}

QFont Theme::commandFont() const
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    // Without a desktop's theme that is the font of everything else.
    if (const QFontMetricsF metrics(font); metrics.horizontalAdvance(u'i') != metrics.horizontalAdvance(u'W')) {
        font.setFamily(QStringLiteral("monospace"));
        font.setStyleHint(QFont::Monospace);
    }
    font.setPixelSize(11);
    return font;
}

QFont Theme::captionMediumFont() const
{
    return font(11, QFont::Medium);
}

QFont Theme::captionSemiboldFont() const
{
    return font(11, QFont::DemiBold);
}

QFont Theme::captionFiguresFont() const
{
    return font(11, QFont::Normal, Figures::tabular);
}

} // namespace corvane
