#include "shell/ui/theme.h"

#include <QEvent>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QJSEngine>
#include <QPalette>

#include "platform/host.h"
#include "shell/ui/color_scheme_setting.h"
#include "shell/ui/qt_color.h"

namespace corvane {

namespace {

/// Body text is set slightly tighter than the font's own spacing; a fraction of its size.
constexpr double tracking = -0.003;

/// The desktop's setting; without one, the palette's.
bool systemIsDark(const ColorSchemeSetting *setting)
{
    switch (setting != nullptr ? setting->scheme() : ColorScheme::noPreference) {
    case ColorScheme::light:
        return false;
    case ColorScheme::dark:
        return true;
    case ColorScheme::noPreference:
        break;
    }
    return QGuiApplication::palette().window().color().lightnessF() < 0.5f;
}

} // namespace

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
    // A child of the application, so that it is destroyed while that still exists.
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
    // The user may have changed a setting while another program was in the foreground.
    if (watched == qApp &&
        (event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::ApplicationStateChange))
        followSystem();
    return QObject::eventFilter(watched, event);
}

void Theme::followSystem()
{
    const bool dark = m_darkIsFixed ? m_dark : systemIsDark(m_setting.get());
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
    constexpr double least = 3.1;
    constexpr Color label{1, 1, 1};
    for (int step = 0; step < 50; ++step) {
        const QColor fill = darkened(color, 0.02f * static_cast<float>(step));
        if (contrast(label, toColor(fill)) >= least)
            return fill;
    }
    return Qt::black;
}

QColor Theme::withAlpha(const QColor &color, double alpha)
{
    QColor result = color;
    result.setAlphaF(static_cast<float>(alpha));
    return result;
}

QFont Theme::withEmoji(const QFont &font) const
{
    return fontWithEmoji(font);
}

QColor Theme::translucent(int red, int green, int blue, double alpha)
{
    return QColor(red, green, blue, qRound(alpha * 255));
}

QColor Theme::overlaid(const QColor &above, const QColor &below)
{
    const float alpha = 1 - (1 - above.alphaF()) * (1 - below.alphaF());
    const float share = above.alphaF() / alpha;
    const auto mixed = [share](float a, float b) { return share * a + (1 - share) * b; };
    return QColor::fromRgbF(mixed(above.redF(), below.redF()), mixed(above.greenF(), below.greenF()),
                            mixed(above.blueF(), below.blueF()), alpha);
}

QColor Theme::darkened(const QColor &color, float share)
{
    const float kept = 1 - share;
    return QColor::fromRgbF(color.redF() * kept, color.greenF() * kept, color.blueF() * kept, color.alphaF());
}

QList<QColor> Theme::cleanupTints() const
{
    return {cleanupBlue(),   cleanupGray(), cleanupCyan(),  cleanupRed(),  cleanupIndigo(),
            cleanupPurple(), cleanupTeal(), cleanupGreen(), cleanupMint(), cleanupOrange()};
}

QFont Theme::sized(QFont font, int pixelSize, QFont::Weight weight, double letterSpacing)
{
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    font.setLetterSpacing(QFont::AbsoluteSpacing, letterSpacing);
    return font;
}

QFont Theme::font(int pixelSize, QFont::Weight weight, Figures figures, std::optional<double> letterSpacing)
{
    return sized(textFont(figures), pixelSize, weight, letterSpacing.value_or(tracking * pixelSize));
}

QFont Theme::fontOfTerminal()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    // Without a desktop theme, Qt returns the general font here.
    if (const QFontMetricsF metrics(font); metrics.horizontalAdvance(u'i') != metrics.horizontalAdvance(u'W')) {
        font.setFamily(QStringLiteral("monospace"));
        font.setStyleHint(QFont::Monospace);
    }
    font.setPixelSize(11);
    return font;
}

} // namespace corvane
