#pragma once

#include <memory>
#include <optional>

#include <QColor>
#include <QFont>
#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "core/color.h"
#include "shell/ui/fonts.h"
#include "shell/ui/metric.h"
#include "shell/ui/qt_color.h"

class QJSEngine;
class QQmlEngine;

namespace corvane {

class ColorSchemeSetting;
class Desktop;

// A colour made of others.
#define MIXED_COLOR(name, mixture)                                                                                     \
    Q_PROPERTY(QColor name READ name NOTIFY changed)                                                                   \
    [[nodiscard]] QColor name() const                                                                                  \
    {                                                                                                                  \
        return mixture;                                                                                                \
    }

// A colour by its role: in light, in dark.
#define COLOR(name, inLight, inDark)                                                                                   \
    MIXED_COLOR(name, name(m_dark ? Scheme::dark : Scheme::light))                                                     \
    [[nodiscard]] static QColor name(Scheme scheme)                                                                    \
    {                                                                                                                  \
        return scheme == Scheme::dark ? QColor(inDark) : QColor(inLight);                                              \
    }

// What is the same in light and dark.
#define FIXED(Type, name, value)                                                                                       \
    Q_PROPERTY(Type name READ name CONSTANT)                                                                           \
    [[nodiscard]] static Type name()                                                                                   \
    {                                                                                                                  \
        return value;                                                                                                  \
    }

/// Every colour, font, size and duration of the window, one line each. QML reads `Theme.surface`, C++ that paints
/// `Theme::instance()->surface()`, what draws for one scheme `Theme::surface(Theme::Scheme::dark)`, and what never
/// changes `Theme::space4()`. Follows the system between light and dark while the program runs (`changed`). One
/// instance, main thread only; static colours on any thread.
///
/// The colours of file types, folders and tiles are the engine's (`FileType`, `TreemapBuilder`, `TileColors`), because
/// the command line draws with them as well.
class Theme : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool dark READ isDark NOTIFY changed)
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY changed)
    /// Of the cleanup catalogue's icons, in the order of its tints.
    Q_PROPERTY(QList<QColor> cleanupTints READ cleanupTints NOTIFY changed)

public:
    enum class Scheme { light, dark };

    // --- Colours: in light, in dark
    COLOR(window, 0xf6f6f8, 0x1c1d21)
    COLOR(sidebar, 0xededf1, 0x17181b)
    COLOR(band, 0xfbfbfc, 0x1f2024)
    COLOR(surface, 0xffffff, 0x25262b)
    COLOR(raised, 0xffffff, 0x2e2f35)
    COLOR(control, 0xffffff, 0x33343b)
    COLOR(segOn, 0xffffff, 0x50525c)
    COLOR(hairline, 0xe2e2e8, 0x35363d)
    COLOR(hairline2, 0xededf1, 0x303138)
    COLOR(controlBorder, 0xd2d3db, 0x45474f)
    COLOR(controlHover, 0xf3f3f6, 0x3b3c44)
    COLOR(fillq, translucent(28, 29, 40, 0.06), translucent(255, 255, 255, 0.07))
    COLOR(track, translucent(28, 29, 40, 0.09), translucent(255, 255, 255, 0.11))
    COLOR(t1, 0x1b1c21, 0xf2f2f5)
    COLOR(t2, 0x4f525b, 0xb9bbc4)
    COLOR(t3, 0x666973, 0xa2a5af)
    COLOR(accentFill, 0x4a61f2, 0x4f66f2)
    COLOR(accentFillHover, 0x3e54e0, 0x4459e2)
    COLOR(accentFillPress, 0x3448cb, 0x3a4dcc)
    COLOR(accentText, 0x3b51dc, 0x9ba9ff)
    COLOR(accentSoft, translucent(84, 110, 255, 0.12), translucent(108, 130, 255, 0.20))
    COLOR(accentRow, translucent(84, 110, 255, 0.10), translucent(108, 130, 255, 0.18))
    COLOR(dangerFill, 0xcf2c3f, 0xd13445)
    COLOR(dangerText, 0xbf2337, 0xff8690)
    COLOR(dangerSoft, 0xfcebec, 0x40262a)
    COLOR(warnText, 0x7e5200, 0xf2c265)
    COLOR(warnSoft, 0xfff4dc, 0x37301f)
    COLOR(warnLine, 0xf0ddb0, 0x4f4427)
    COLOR(warnIcon, 0xc27c00, 0xf0b441)
    COLOR(okText, 0x1a7240, 0x67d394)
    COLOR(okSoft, 0xe4f5ea, 0x20382b)
    COLOR(focus, 0x546eff, 0x8da0ff)
    COLOR(scrim, translucent(20, 21, 28, 0.34), translucent(0, 0, 0, 0.52))
    COLOR(toast, 0x26272d, 0x3a3b43)
    COLOR(panelOutline, translucent(0, 0, 0, 0.08), translucent(255, 255, 255, 0.10))
    COLOR(scrimNested, translucent(20, 21, 28, 0.18), translucent(0, 0, 0, 0.28))
    COLOR(panelShadow, withAlpha(0x0f101e, 0.16), withAlpha(Qt::black, 0.50))
    COLOR(sheetShadow, withAlpha(0x0f101e, 0.26), withAlpha(Qt::black, 0.60))
    COLOR(tileCheck, 0xffffff, 0x111111) // on a disc of the tile's ink

    // Of the cleanup catalogue's icons.
    COLOR(cleanupBlue, 0x0a63d8, 0x5aa2ff)
    COLOR(cleanupGray, 0x62656f, 0xa6a9b3)
    COLOR(cleanupCyan, 0x0b7fa8, 0x5cc4e8)
    COLOR(cleanupRed, 0xcc2f36, 0xff7b7f)
    COLOR(cleanupIndigo, 0x4b4fd0, 0x9295ff)
    COLOR(cleanupPurple, 0x8a3fc4, 0xc78bf2)
    COLOR(cleanupTeal, 0x117e8c, 0x55c6d3)
    COLOR(cleanupGreen, 0x1f7f3e, 0x62cc84)
    COLOR(cleanupMint, 0x0d8272, 0x58cdbb)
    COLOR(cleanupOrange, 0xb85b00, 0xffa650)
    [[nodiscard]] QList<QColor> cleanupTints() const;

    MIXED_COLOR(fillqPress, twice(fillq()))
    MIXED_COLOR(accentSoftPress, twice(accentSoft()))
    MIXED_COLOR(dangerFillHover, darkened(dangerFill(), 0.08f))
    MIXED_COLOR(dangerFillPress, darkened(dangerFill(), 0.16f))
    // Around what lies on accentSoft: a rectangle does not reach under its own border.
    MIXED_COLOR(accentLine, overlaid(withAlpha(accent(), 0.3), accentSoft()))
    MIXED_COLOR(checkOutline, withAlpha(t3(), 0.72))
    MIXED_COLOR(switchTrack, withAlpha(t3(), 0.55)) // of a switch that is off

    FIXED(QColor, accent, 0x546eff)
    FIXED(QColor, brandA, toExactQColor(corvane::brandA))
    FIXED(QColor, brandB, toExactQColor(corvane::brandB))
    FIXED(QColor, onFill, Qt::white) // text and glyphs on accentFill, dangerFill, toast, appTile
    FIXED(QColor, onFillRule, translucent(255, 255, 255, 0.35)) // hairline on accentFill
    FIXED(QColor, toastOk, okText(Scheme::dark))                // toast is dark in light as well
    FIXED(QColor, toastWarning, warnIcon(Scheme::dark))
    FIXED(QColor, folderIcon, 0x4e9ceb)
    FIXED(QColor, appTile, 0x6b7180) // the icon of an application without one
    FIXED(QColor, hoverRing, Qt::white)
    FIXED(QColor, hoverRingOutline, translucent(10, 11, 20, 0.72))
    FIXED(QColor, paletteShadow, Qt::black) // of Qt's own folder dialog

    // --- Fonts; the *Figures fonts have figures of one width, for columns
    FIXED(QFont, heroFont, sized(roundedFont(), 52, QFont::Bold, -1))
    FIXED(QFont, figureFont, font(22, QFont::DemiBold, Figures::tabular, -0.44))
    FIXED(QFont, title1Font, font(20, QFont::DemiBold, Figures::proportional, -0.36))
    FIXED(QFont, statFont, font(17, QFont::DemiBold, Figures::tabular, -0.26))
    FIXED(QFont, statPlainFont, font(17, QFont::Normal, Figures::proportional, -0.26))
    FIXED(QFont, title2Font, font(15, QFont::DemiBold, Figures::proportional, -0.18))
    FIXED(QFont, bodyFont, font(13, QFont::Normal))
    FIXED(QFont, bodyMediumFont, font(13, QFont::Medium))
    FIXED(QFont, bodySemiboldFont, font(13, QFont::DemiBold))
    FIXED(QFont, bodyFiguresFont, font(13, QFont::Normal, Figures::tabular))
    FIXED(QFont, bodyMediumFiguresFont, font(13, QFont::Medium, Figures::tabular))
    FIXED(QFont, bodySemiboldFiguresFont, font(13, QFont::DemiBold, Figures::tabular))
    FIXED(QFont, secondaryFont, font(12, QFont::Normal))
    FIXED(QFont, secondaryMediumFont, font(12, QFont::Medium))
    FIXED(QFont, secondarySemiboldFont, font(12, QFont::DemiBold))
    FIXED(QFont, secondaryFiguresFont, font(12, QFont::Normal, Figures::tabular))
    FIXED(QFont, captionFont, font(11, QFont::Normal))
    FIXED(QFont, captionMediumFont, font(11, QFont::Medium))
    FIXED(QFont, captionSemiboldFont, font(11, QFont::DemiBold))
    FIXED(QFont, captionFiguresFont, font(11, QFont::Normal, Figures::tabular))
    FIXED(QFont, commandFont, fontOfTerminal()) // of what is typed into one

    // --- Line heights that go with the fonts, in points.
    METRIC(int, heroLine, 52)
    METRIC(int, figureLine, 28)
    METRIC(int, title1Line, 26)
    METRIC(int, statLine, 22)
    METRIC(int, title2Line, 20)
    METRIC(int, bodyLine, 18)
    METRIC(int, secondaryLine, 16)
    METRIC(int, captionLine, 14)

    // --- Sizes, in points.
    METRIC(int, pageMargin, 24)
    METRIC(int, boxGap, 14)
    METRIC(int, boxPadding, 16)
    METRIC(int, buttonGap, 8)
    METRIC(int, sidebarWidth, 216)
    METRIC(int, sidebarRowHeight, 30)
    METRIC(int, sidebarInset, 10)
    METRIC(int, gaugeHeight, 54)
    METRIC(int, bandHeight, 56)
    METRIC(int, filterBarHeight, 44)
    METRIC(int, selectionBarHeight, 60)
    METRIC(int, controlHeight, 28)
    METRIC(int, smallControlHeight, 24)
    METRIC(int, checkBoxSize, 16)
    METRIC(int, tableHeaderHeight, 28)
    METRIC(int, tableRowHeight, 28)
    METRIC(int, nodeRowHeight, 38)
    METRIC(int, menuRowHeight, 24)
    METRIC(int, menuPadding, 5)
    METRIC(int, iconSize, 16)
    METRIC(int, buttonIconSize, 14)
    METRIC(int, emptyStateIconSize, 44)
    METRIC(int, sizeBarHeight, 4)
    METRIC(int, nodeSizeBarHeight, 3)
    METRIC(int, radiusNested, 2)
    METRIC(int, radiusLeaf, 3)
    METRIC(int, radiusFrame, 4)
    METRIC(int, radiusSmallControl, 5)
    METRIC(double, radiusSegment, 4.5)
    METRIC(int, radiusControl, 6)
    METRIC(int, radiusPanel, 8)
    METRIC(int, radiusBox, 10)
    METRIC(int, radiusSheet, 12)
    METRIC(int, minimumWidth, 1040)
    METRIC(int, minimumHeight, 660)
    METRIC(int, wideContentWidth, 900)
    METRIC(int, mapListWidth, 324)
    METRIC(int, mapListWidthNarrow, 284)
    METRIC(int, mapMargin, 12)
    METRIC(int, mapListGap, 8)
    METRIC(int, reviewSheetWidth, 640)
    METRIC(int, alertWidth, 420)

    // --- Sizes of single parts of the shared components, in points.
    METRIC(int, hairlineWidth, 1)
    METRIC(int, focusRingWidth, 2)
    METRIC(int, focusRingGap, 1)
    METRIC(int, space2, 2)
    METRIC(int, space4, 4)
    METRIC(int, space6, 6)
    METRIC(int, space8, 8)
    METRIC(int, space10, 10)
    METRIC(int, space12, 12)
    METRIC(int, space14, 14)
    METRIC(int, space16, 16)
    METRIC(int, space20, 20)
    METRIC(int, space24, 24)
    METRIC(int, space32, 32)
    METRIC(int, controlPadding, 12)
    METRIC(int, smallControlPadding, 9)
    METRIC(int, pillPadding, 14)
    METRIC(int, smallPillPadding, 11)
    METRIC(int, quietPadding, 10)
    METRIC(int, smallBadgeSize, 28)
    METRIC(int, badgeSize, 32)
    METRIC(int, badgeIconSize, 18)
    METRIC(int, largeBadgeSize, 40)
    METRIC(int, largeBadgeIconSize, 22)
    METRIC(int, solidBadgeSize, 30)
    METRIC(int, checkIconSize, 10)
    METRIC(int, caretSize, 10)
    METRIC(int, searchIconSize, 13)
    METRIC(int, alertIconSize, 36)
    METRIC(int, bannerIconSize, 22)
    METRIC(int, swatchSize, 10)
    METRIC(int, tagHeight, 18)
    METRIC(int, tagPadding, 7)
    METRIC(int, pointSize, 6)
    METRIC(int, switchWidth, 32)
    METRIC(int, switchHeight, 18)
    METRIC(int, bandRuleHeight, 20)
    METRIC(int, splitRuleHeight, 16)
    METRIC(int, bandIconGap, 11)
    METRIC(int, segmentPadding, 2)
    METRIC(int, checkCellWidth, 30)
    METRIC(int, emptyStateWidth, 420)
    METRIC(int, emptyStateRise, 20)
    METRIC(int, sheetFooterHeight, 60)
    METRIC(int, sheetRise, 12)
    METRIC(int, menuMinimumWidth, 200)
    METRIC(int, popupMaximumHeight, 320)
    METRIC(int, scrollBarWidth, 11)
    METRIC(int, scrollThumbWidth, 7)
    METRIC(int, scrollLine, 40)     // that an arrow key scrolls
    METRIC(int, scrollPageKept, 40) // of the previous page, that stays visible
    METRIC(int, revealMargin, 20)   // around a control that is scrolled into view
    METRIC(int, stackedBarPartMinimum, 3)
    METRIC(int, stackedBarLabelInset, 10)
    METRIC(int, indeterminateHeight, 4)
    METRIC(int, tipMaximumWidth, 320)
    METRIC(int, fileIconSize, 16)
    METRIC(int, headerFileIconSize, 18)
    METRIC(int, pillFileIconSize, 22)
    METRIC(int, appIconSize, 26)
    METRIC(int, bundleIconSize, 32)
    METRIC(int, alertBundleIconSize, 48)

    // --- Shares of a whole.
    METRIC(double, disabledOpacity, 0.5)
    METRIC(double, disabledPlainOpacity, 0.55)
    METRIC(double, protectedOpacity, 0.4)
    METRIC(float, stackedBarOtherOpacity, 0.34F) // of a bar's other parts while one is current
    METRIC(double, badgeOpacity, 0.13)           // the tint behind a badge's glyph
    METRIC(double, nestedRowOpacity, 0.45)       // of the hover ground behind nested rows
    METRIC(double, sizeBarMinimum, 0.015)        // of the bar's width
    METRIC(double, indeterminatePart, 0.28)      // of the bar's width
    METRIC(double, sheetCentre, 0.46)            // of the window's height

    // --- Durations, in milliseconds; those of movements go through `motion`
    METRIC(int, fastDuration, 90)
    METRIC(int, baseDuration, 140)
    METRIC(int, expandDuration, 180)
    METRIC(int, panelDuration, 220)
    METRIC(int, mapDuration, 240)
    METRIC(int, figuresDuration, 300)
    METRIC(int, spinnerTurnDuration, 900)
    METRIC(int, indeterminateSweepDuration, 1400)
    METRIC(int, toastStayDuration, 5000)
    METRIC(int, toastStayWarningDuration, 10000)
    METRIC(int, pillDelayDuration, 80)
    METRIC(int, tipDelayDuration, 600)

    /// Follows the desktop's light or dark setting, or the application's palette if `setting` is null or has no
    /// preference. `desktop` tells whether motion is reduced. For tests; everything else uses `instance`.
    Theme(Desktop &desktop, std::unique_ptr<ColorSchemeSetting> setting);
    ~Theme() override;

    static Theme *create(QQmlEngine *, QJSEngine *);
    /// Created on first use for the current system; requires a QGuiApplication.
    static Theme *instance();

    [[nodiscard]] bool isDark() const { return m_dark; }
    [[nodiscard]] bool reducedMotion() const { return m_reducedMotion; }
    /// Override the system's settings from now on; for tests and screenshots.
    void setDark(bool dark);
    void setReducedMotion(bool reduced);
    /// The duration of an animation: `duration`, or 0 if motion is reduced.
    Q_INVOKABLE [[nodiscard]] int motion(int duration) const { return m_reducedMotion ? 0 : duration; }

    /// The background of a solid badge: the colour, darkened in steps of 2 % until white has a contrast of 3.1 : 1.
    Q_INVOKABLE [[nodiscard]] QColor solidFill(const QColor &color) const;
    /// The colour with another opacity, from 0 to 1.
    Q_INVOKABLE [[nodiscard]] static QColor withAlpha(const QColor &color, double alpha);
    /// The font for text that contains emoji; see `fontWithEmoji`.
    Q_INVOKABLE [[nodiscard]] QFont withEmoji(const QFont &font) const;

signals:
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// `alpha` is the opacity, from 0 to 1.
    [[nodiscard]] static QColor translucent(int red, int green, int blue, double alpha);
    /// The translucent colour that equals one translucent colour over another.
    [[nodiscard]] static QColor overlaid(const QColor &above, const QColor &below);
    /// A translucent colour over itself.
    [[nodiscard]] static QColor twice(const QColor &color) { return overlaid(color, color); }
    [[nodiscard]] static QColor darkened(const QColor &color, float share);
    /// The font of ordinary text. Without `letterSpacing`, in pixels, it has the usual spacing.
    [[nodiscard]] static QFont font(int pixelSize, QFont::Weight weight, Figures figures = Figures::proportional,
                                    std::optional<double> letterSpacing = std::nullopt);
    [[nodiscard]] static QFont sized(QFont font, int pixelSize, QFont::Weight weight, double letterSpacing);
    [[nodiscard]] static QFont fontOfTerminal();
    void followSystem();

    Desktop &m_desktop;
    const std::unique_ptr<ColorSchemeSetting> m_setting;
    bool m_dark = false;
    bool m_reducedMotion = false;
    bool m_darkIsFixed = false;
    bool m_reducedMotionIsFixed = false;
};

#undef COLOR
#undef MIXED_COLOR
#undef FIXED

} // namespace corvane
