#pragma once

#include <memory>

#include <QColor>
#include <QFont>
#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace corvane {

class ColorSchemeSetting;
class Desktop;

/// Every colour, size and duration of the window. Follows the system between light and dark while the
/// program runs (`changed`). One instance, main thread only; C++ that paints asks `Theme::instance()`.
class Theme : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(bool dark READ isDark NOTIFY changed)
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY changed)

    // Colours, by role.
    Q_PROPERTY(QColor window READ window NOTIFY changed)
    Q_PROPERTY(QColor sidebar READ sidebar NOTIFY changed)
    Q_PROPERTY(QColor band READ band NOTIFY changed)
    Q_PROPERTY(QColor surface READ surface NOTIFY changed)
    Q_PROPERTY(QColor raised READ raised NOTIFY changed)
    Q_PROPERTY(QColor control READ control NOTIFY changed)
    Q_PROPERTY(QColor segOn READ segOn NOTIFY changed)
    Q_PROPERTY(QColor hairline READ hairline NOTIFY changed)
    Q_PROPERTY(QColor hairline2 READ hairline2 NOTIFY changed)
    Q_PROPERTY(QColor controlBorder READ controlBorder NOTIFY changed)
    Q_PROPERTY(QColor controlHover READ controlHover NOTIFY changed)
    Q_PROPERTY(QColor fillq READ fillq NOTIFY changed)
    Q_PROPERTY(QColor track READ track NOTIFY changed)
    Q_PROPERTY(QColor t1 READ t1 NOTIFY changed)
    Q_PROPERTY(QColor t2 READ t2 NOTIFY changed)
    Q_PROPERTY(QColor t3 READ t3 NOTIFY changed)
    Q_PROPERTY(QColor accent READ accent NOTIFY changed)
    Q_PROPERTY(QColor accentFill READ accentFill NOTIFY changed)
    Q_PROPERTY(QColor accentFillHover READ accentFillHover NOTIFY changed)
    Q_PROPERTY(QColor accentFillPress READ accentFillPress NOTIFY changed)
    Q_PROPERTY(QColor accentText READ accentText NOTIFY changed)
    Q_PROPERTY(QColor accentSoft READ accentSoft NOTIFY changed)
    Q_PROPERTY(QColor accentRow READ accentRow NOTIFY changed)
    Q_PROPERTY(QColor dangerFill READ dangerFill NOTIFY changed)
    Q_PROPERTY(QColor dangerText READ dangerText NOTIFY changed)
    Q_PROPERTY(QColor dangerSoft READ dangerSoft NOTIFY changed)
    Q_PROPERTY(QColor warnText READ warnText NOTIFY changed)
    Q_PROPERTY(QColor warnSoft READ warnSoft NOTIFY changed)
    Q_PROPERTY(QColor warnLine READ warnLine NOTIFY changed)
    Q_PROPERTY(QColor warnIcon READ warnIcon NOTIFY changed)
    Q_PROPERTY(QColor okText READ okText NOTIFY changed)
    Q_PROPERTY(QColor okSoft READ okSoft NOTIFY changed)
    Q_PROPERTY(QColor focus READ focus NOTIFY changed)
    Q_PROPERTY(QColor scrim READ scrim NOTIFY changed)
    Q_PROPERTY(QColor toast READ toast NOTIFY changed)
    // Colours made of the roles.
    Q_PROPERTY(QColor fillqPress READ fillqPress NOTIFY changed)           // fillq twice
    Q_PROPERTY(QColor accentSoftPress READ accentSoftPress NOTIFY changed) // accentSoft twice
    Q_PROPERTY(QColor dangerFillHover READ dangerFillHover NOTIFY changed)
    Q_PROPERTY(QColor dangerFillPress READ dangerFillPress NOTIFY changed)
    Q_PROPERTY(QColor accentLine READ accentLine NOTIFY changed) // around what lies on accentSoft
    Q_PROPERTY(QColor checkOutline READ checkOutline NOTIFY changed)
    Q_PROPERTY(QColor switchTrack READ switchTrack NOTIFY changed)   // of a switch that is off
    Q_PROPERTY(QColor panelOutline READ panelOutline NOTIFY changed) // around what floats
    Q_PROPERTY(QColor scrimNested READ scrimNested NOTIFY changed)   // under an alert that covers a sheet
    /// Of the cleanup catalogue's icons, in the order of its tints.
    Q_PROPERTY(QList<QColor> cleanupTints READ cleanupTints NOTIFY changed)
    // Fixed colours.
    Q_PROPERTY(QColor brandA READ brandA CONSTANT)
    Q_PROPERTY(QColor brandB READ brandB CONSTANT)
    Q_PROPERTY(QColor onFill READ onFill CONSTANT)         // text and glyphs on accentFill, dangerFill, toast
    Q_PROPERTY(QColor onFillRule READ onFillRule CONSTANT) // hairline on accentFill
    Q_PROPERTY(QColor toastOk READ toastOk CONSTANT)
    Q_PROPERTY(QColor toastWarning READ toastWarning CONSTANT)
    Q_PROPERTY(QColor folderIcon READ folderIcon CONSTANT)

    // Type, by role; the *Figures fonts have figures of one width, for columns.
    Q_PROPERTY(QFont heroFont READ heroFont CONSTANT)
    Q_PROPERTY(QFont figureFont READ figureFont CONSTANT)
    Q_PROPERTY(QFont title1Font READ title1Font CONSTANT)
    Q_PROPERTY(QFont statFont READ statFont CONSTANT)
    Q_PROPERTY(QFont statPlainFont READ statPlainFont CONSTANT)
    Q_PROPERTY(QFont title2Font READ title2Font CONSTANT)
    Q_PROPERTY(QFont bodyFont READ bodyFont CONSTANT)
    Q_PROPERTY(QFont bodyMediumFont READ bodyMediumFont CONSTANT)
    Q_PROPERTY(QFont bodySemiboldFont READ bodySemiboldFont CONSTANT)
    Q_PROPERTY(QFont bodyFiguresFont READ bodyFiguresFont CONSTANT)
    Q_PROPERTY(QFont bodyMediumFiguresFont READ bodyMediumFiguresFont CONSTANT)
    Q_PROPERTY(QFont bodySemiboldFiguresFont READ bodySemiboldFiguresFont CONSTANT)
    Q_PROPERTY(QFont secondaryFont READ secondaryFont CONSTANT)
    Q_PROPERTY(QFont secondaryMediumFont READ secondaryMediumFont CONSTANT)
    Q_PROPERTY(QFont secondarySemiboldFont READ secondarySemiboldFont CONSTANT)
    Q_PROPERTY(QFont secondaryFiguresFont READ secondaryFiguresFont CONSTANT)
    Q_PROPERTY(QFont captionFont READ captionFont CONSTANT)
    Q_PROPERTY(QFont captionMediumFont READ captionMediumFont CONSTANT)
    Q_PROPERTY(QFont captionSemiboldFont READ captionSemiboldFont CONSTANT)
    Q_PROPERTY(QFont commandFont READ commandFont CONSTANT)
    Q_PROPERTY(QFont captionFiguresFont READ captionFiguresFont CONSTANT)

    // Line heights that go with the fonts, in points.
    Q_PROPERTY(int heroLine MEMBER m_heroLine CONSTANT)
    Q_PROPERTY(int figureLine MEMBER m_figureLine CONSTANT)
    Q_PROPERTY(int title1Line MEMBER m_title1Line CONSTANT)
    Q_PROPERTY(int statLine MEMBER m_statLine CONSTANT)
    Q_PROPERTY(int title2Line MEMBER m_title2Line CONSTANT)
    Q_PROPERTY(int bodyLine MEMBER m_bodyLine CONSTANT)
    Q_PROPERTY(int secondaryLine MEMBER m_secondaryLine CONSTANT)
    Q_PROPERTY(int captionLine MEMBER m_captionLine CONSTANT)

    // Sizes, in points.
    Q_PROPERTY(int pageMargin MEMBER m_pageMargin CONSTANT)
    Q_PROPERTY(int boxGap MEMBER m_boxGap CONSTANT)
    Q_PROPERTY(int boxPadding MEMBER m_boxPadding CONSTANT)
    Q_PROPERTY(int buttonGap MEMBER m_buttonGap CONSTANT)
    Q_PROPERTY(int sidebarWidth MEMBER m_sidebarWidth CONSTANT)
    Q_PROPERTY(int sidebarRowHeight MEMBER m_sidebarRowHeight CONSTANT)
    Q_PROPERTY(int sidebarInset MEMBER m_sidebarInset CONSTANT)
    Q_PROPERTY(int gaugeHeight MEMBER m_gaugeHeight CONSTANT)
    Q_PROPERTY(int bandHeight MEMBER m_bandHeight CONSTANT)
    Q_PROPERTY(int filterBarHeight MEMBER m_filterBarHeight CONSTANT)
    Q_PROPERTY(int selectionBarHeight MEMBER m_selectionBarHeight CONSTANT)
    Q_PROPERTY(int controlHeight MEMBER m_controlHeight CONSTANT)
    Q_PROPERTY(int smallControlHeight MEMBER m_smallControlHeight CONSTANT)
    Q_PROPERTY(int checkBoxSize MEMBER m_checkBoxSize CONSTANT)
    Q_PROPERTY(int tableHeaderHeight MEMBER m_tableHeaderHeight CONSTANT)
    Q_PROPERTY(int tableRowHeight MEMBER m_tableRowHeight CONSTANT)
    Q_PROPERTY(int nodeRowHeight MEMBER m_nodeRowHeight CONSTANT)
    Q_PROPERTY(int menuRowHeight MEMBER m_menuRowHeight CONSTANT)
    Q_PROPERTY(int menuPadding MEMBER m_menuPadding CONSTANT)
    Q_PROPERTY(int iconSize MEMBER m_iconSize CONSTANT)
    Q_PROPERTY(int buttonIconSize MEMBER m_buttonIconSize CONSTANT)
    Q_PROPERTY(int emptyStateIconSize MEMBER m_emptyStateIconSize CONSTANT)
    Q_PROPERTY(int sizeBarHeight MEMBER m_sizeBarHeight CONSTANT)
    Q_PROPERTY(int nodeSizeBarHeight MEMBER m_nodeSizeBarHeight CONSTANT)
    Q_PROPERTY(int radiusNested MEMBER m_radiusNested CONSTANT)
    Q_PROPERTY(int radiusLeaf MEMBER m_radiusLeaf CONSTANT)
    Q_PROPERTY(int radiusFrame MEMBER m_radiusFrame CONSTANT)
    Q_PROPERTY(int radiusSmallControl MEMBER m_radiusSmallControl CONSTANT)
    Q_PROPERTY(double radiusSegment MEMBER m_radiusSegment CONSTANT)
    Q_PROPERTY(int radiusControl MEMBER m_radiusControl CONSTANT)
    Q_PROPERTY(int radiusPanel MEMBER m_radiusPanel CONSTANT)
    Q_PROPERTY(int radiusBox MEMBER m_radiusBox CONSTANT)
    Q_PROPERTY(int radiusSheet MEMBER m_radiusSheet CONSTANT)
    Q_PROPERTY(int minimumWidth MEMBER m_minimumWidth CONSTANT)
    Q_PROPERTY(int minimumHeight MEMBER m_minimumHeight CONSTANT)
    Q_PROPERTY(int wideContentWidth MEMBER m_wideContentWidth CONSTANT)
    Q_PROPERTY(int mapListWidth MEMBER m_mapListWidth CONSTANT)
    Q_PROPERTY(int mapListWidthNarrow MEMBER m_mapListWidthNarrow CONSTANT)
    Q_PROPERTY(int mapMargin MEMBER m_mapMargin CONSTANT)
    Q_PROPERTY(int mapListGap MEMBER m_mapListGap CONSTANT)
    Q_PROPERTY(int reviewSheetWidth MEMBER m_reviewSheetWidth CONSTANT)
    Q_PROPERTY(int alertWidth MEMBER m_alertWidth CONSTANT)

    // Sizes of single parts of the shared components, in points.
    Q_PROPERTY(int hairlineWidth MEMBER m_hairlineWidth CONSTANT)
    Q_PROPERTY(int focusRingWidth MEMBER m_focusRingWidth CONSTANT)
    Q_PROPERTY(int focusRingGap MEMBER m_focusRingGap CONSTANT)
    Q_PROPERTY(int space2 MEMBER m_space2 CONSTANT)
    Q_PROPERTY(int space4 MEMBER m_space4 CONSTANT)
    Q_PROPERTY(int space6 MEMBER m_space6 CONSTANT)
    Q_PROPERTY(int space8 MEMBER m_space8 CONSTANT)
    Q_PROPERTY(int space10 MEMBER m_space10 CONSTANT)
    Q_PROPERTY(int space12 MEMBER m_space12 CONSTANT)
    Q_PROPERTY(int space14 MEMBER m_space14 CONSTANT)
    Q_PROPERTY(int space16 MEMBER m_space16 CONSTANT)
    Q_PROPERTY(int space20 MEMBER m_space20 CONSTANT)
    Q_PROPERTY(int space24 MEMBER m_space24 CONSTANT)
    Q_PROPERTY(int space32 MEMBER m_space32 CONSTANT)
    Q_PROPERTY(int controlPadding MEMBER m_controlPadding CONSTANT)
    Q_PROPERTY(int smallControlPadding MEMBER m_smallControlPadding CONSTANT)
    Q_PROPERTY(int pillPadding MEMBER m_pillPadding CONSTANT)
    Q_PROPERTY(int smallPillPadding MEMBER m_smallPillPadding CONSTANT)
    Q_PROPERTY(int quietPadding MEMBER m_quietPadding CONSTANT)
    Q_PROPERTY(int smallBadgeSize MEMBER m_smallBadgeSize CONSTANT)
    Q_PROPERTY(int badgeSize MEMBER m_badgeSize CONSTANT)
    Q_PROPERTY(int badgeIconSize MEMBER m_badgeIconSize CONSTANT)
    Q_PROPERTY(int largeBadgeSize MEMBER m_largeBadgeSize CONSTANT)
    Q_PROPERTY(int largeBadgeIconSize MEMBER m_largeBadgeIconSize CONSTANT)
    Q_PROPERTY(int solidBadgeSize MEMBER m_solidBadgeSize CONSTANT)
    Q_PROPERTY(int checkIconSize MEMBER m_checkIconSize CONSTANT)
    Q_PROPERTY(int caretSize MEMBER m_caretSize CONSTANT)
    Q_PROPERTY(int searchIconSize MEMBER m_searchIconSize CONSTANT)
    Q_PROPERTY(int closeIconSize MEMBER m_closeIconSize CONSTANT)
    Q_PROPERTY(int alertIconSize MEMBER m_alertIconSize CONSTANT)
    Q_PROPERTY(int bannerIconSize MEMBER m_bannerIconSize CONSTANT)
    Q_PROPERTY(int swatchSize MEMBER m_swatchSize CONSTANT)
    Q_PROPERTY(int tagHeight MEMBER m_tagHeight CONSTANT)
    Q_PROPERTY(int tagPadding MEMBER m_tagPadding CONSTANT)
    Q_PROPERTY(int pointSize MEMBER m_pointSize CONSTANT)
    Q_PROPERTY(int switchWidth MEMBER m_switchWidth CONSTANT)
    Q_PROPERTY(int switchHeight MEMBER m_switchHeight CONSTANT)
    Q_PROPERTY(int bandRuleHeight MEMBER m_bandRuleHeight CONSTANT)
    Q_PROPERTY(int splitRuleHeight MEMBER m_splitRuleHeight CONSTANT)
    Q_PROPERTY(int bandIconGap MEMBER m_bandIconGap CONSTANT)
    Q_PROPERTY(int segmentPadding MEMBER m_segmentPadding CONSTANT)
    Q_PROPERTY(int checkCellWidth MEMBER m_checkCellWidth CONSTANT)
    Q_PROPERTY(int emptyStateWidth MEMBER m_emptyStateWidth CONSTANT)
    Q_PROPERTY(int emptyStateRise MEMBER m_emptyStateRise CONSTANT)
    Q_PROPERTY(int sheetFooterHeight MEMBER m_sheetFooterHeight CONSTANT)
    Q_PROPERTY(int sheetRise MEMBER m_sheetRise CONSTANT)
    Q_PROPERTY(int menuMinimumWidth MEMBER m_menuMinimumWidth CONSTANT)
    Q_PROPERTY(int popupMaximumHeight MEMBER m_popupMaximumHeight CONSTANT)
    Q_PROPERTY(int scrollBarWidth MEMBER m_scrollBarWidth CONSTANT)
    Q_PROPERTY(int scrollThumbWidth MEMBER m_scrollThumbWidth CONSTANT)
    Q_PROPERTY(int indeterminateHeight MEMBER m_indeterminateHeight CONSTANT)
    Q_PROPERTY(int tipMaximumWidth MEMBER m_tipMaximumWidth CONSTANT)
    Q_PROPERTY(int fileIconSize MEMBER m_fileIconSize CONSTANT)
    Q_PROPERTY(int headerFileIconSize MEMBER m_headerFileIconSize CONSTANT)
    Q_PROPERTY(int pillFileIconSize MEMBER m_pillFileIconSize CONSTANT)
    Q_PROPERTY(int appIconSize MEMBER m_appIconSize CONSTANT)
    Q_PROPERTY(int bundleIconSize MEMBER m_bundleIconSize CONSTANT)
    Q_PROPERTY(int alertBundleIconSize MEMBER m_alertBundleIconSize CONSTANT)

    // Shares of a whole.
    Q_PROPERTY(double disabledOpacity MEMBER m_disabledOpacity CONSTANT)
    Q_PROPERTY(double disabledPlainOpacity MEMBER m_disabledPlainOpacity CONSTANT)
    Q_PROPERTY(double protectedOpacity MEMBER m_protectedOpacity CONSTANT)
    Q_PROPERTY(double badgeOpacity MEMBER m_badgeOpacity CONSTANT)           // the tint behind a badge's glyph
    Q_PROPERTY(double nestedRowOpacity MEMBER m_nestedRowOpacity CONSTANT)   // of the hover ground behind nested rows
    Q_PROPERTY(double sizeBarMinimum MEMBER m_sizeBarMinimum CONSTANT)       // of the bar's width
    Q_PROPERTY(double indeterminatePart MEMBER m_indeterminatePart CONSTANT) // of the bar's width
    Q_PROPERTY(double sheetCentre MEMBER m_sheetCentre CONSTANT)             // of the window's height

    // Durations, in milliseconds. Movements are 0 under reduced motion: see motion().
    Q_PROPERTY(int fastDuration MEMBER m_fastDuration CONSTANT)
    Q_PROPERTY(int baseDuration MEMBER m_baseDuration CONSTANT)
    Q_PROPERTY(int expandDuration MEMBER m_expandDuration CONSTANT)
    Q_PROPERTY(int panelDuration MEMBER m_panelDuration CONSTANT)
    Q_PROPERTY(int mapDuration MEMBER m_mapDuration CONSTANT)
    Q_PROPERTY(int figuresDuration MEMBER m_figuresDuration CONSTANT)
    Q_PROPERTY(int spinnerTurnDuration MEMBER m_spinnerTurnDuration CONSTANT)
    Q_PROPERTY(int indeterminateSweepDuration MEMBER m_indeterminateSweepDuration CONSTANT)
    Q_PROPERTY(int toastStayDuration MEMBER m_toastStayDuration CONSTANT)
    Q_PROPERTY(int toastStayWarningDuration MEMBER m_toastStayWarningDuration CONSTANT)
    Q_PROPERTY(int pillDelayDuration MEMBER m_pillDelayDuration CONSTANT)
    Q_PROPERTY(int tipDelayDuration MEMBER m_tipDelayDuration CONSTANT)

public:
    /// Follows the application's palette and, where there is one, the desktop's own setting of light and dark;
    /// asks `desktop` about movement. Tests make their own; everything else takes the instance.
    Theme(Desktop &desktop, std::unique_ptr<ColorSchemeSetting> setting);
    ~Theme() override;

    static Theme *create(QQmlEngine *, QJSEngine *);
    /// Made on first use, from the system that the program runs on; needs a QGuiApplication.
    static Theme *instance();

    [[nodiscard]] bool isDark() const { return m_dark; }
    [[nodiscard]] bool reducedMotion() const { return m_reducedMotion; }
    /// Overrides what the system says from now on, for tests and pictures.
    void setDark(bool dark);
    void setReducedMotion(bool reduced);
    /// A movement's duration: as given, or 0 under reduced motion.
    Q_INVOKABLE [[nodiscard]] int motion(int duration) const { return m_reducedMotion ? 0 : duration; }

    /// The ground of a solid badge: the colour, darkened in steps of 2 % until white stands out by 3.1 : 1.
    Q_INVOKABLE [[nodiscard]] QColor solidFill(const QColor &color) const;
    /// The colour with another opacity, from 0 to 1.
    Q_INVOKABLE [[nodiscard]] QColor withAlpha(const QColor &color, double alpha) const;
    /// The font for text that holds emoji; see `fontWithEmoji`.
    Q_INVOKABLE [[nodiscard]] QFont withEmoji(const QFont &font) const;

    [[nodiscard]] QColor window() const;
    [[nodiscard]] QColor sidebar() const;
    [[nodiscard]] QColor band() const;
    [[nodiscard]] QColor surface() const;
    [[nodiscard]] QColor raised() const;
    [[nodiscard]] QColor control() const;
    [[nodiscard]] QColor segOn() const;
    [[nodiscard]] QColor hairline() const;
    [[nodiscard]] QColor hairline2() const;
    [[nodiscard]] QColor controlBorder() const;
    [[nodiscard]] QColor controlHover() const;
    [[nodiscard]] QColor fillq() const;
    [[nodiscard]] QColor track() const;
    [[nodiscard]] QColor t1() const;
    [[nodiscard]] QColor t2() const;
    [[nodiscard]] QColor t3() const;
    [[nodiscard]] QColor accent() const;
    [[nodiscard]] QColor accentFill() const;
    [[nodiscard]] QColor accentFillHover() const;
    [[nodiscard]] QColor accentFillPress() const;
    [[nodiscard]] QColor accentText() const;
    [[nodiscard]] QColor accentSoft() const;
    [[nodiscard]] QColor accentRow() const;
    [[nodiscard]] QColor dangerFill() const;
    [[nodiscard]] QColor dangerText() const;
    [[nodiscard]] QColor dangerSoft() const;
    [[nodiscard]] QColor warnText() const;
    [[nodiscard]] QColor warnSoft() const;
    [[nodiscard]] QColor warnLine() const;
    [[nodiscard]] QColor warnIcon() const;
    [[nodiscard]] QColor okText() const;
    [[nodiscard]] QColor okSoft() const;
    [[nodiscard]] QColor focus() const;
    [[nodiscard]] QColor scrim() const;
    [[nodiscard]] QColor toast() const;
    [[nodiscard]] QColor fillqPress() const;
    [[nodiscard]] QColor accentSoftPress() const;
    [[nodiscard]] QColor dangerFillHover() const;
    [[nodiscard]] QColor dangerFillPress() const;
    [[nodiscard]] QColor accentLine() const;
    [[nodiscard]] QColor checkOutline() const;
    [[nodiscard]] QColor switchTrack() const;
    [[nodiscard]] QColor panelOutline() const;
    [[nodiscard]] QColor scrimNested() const;
    [[nodiscard]] QList<QColor> cleanupTints() const;
    [[nodiscard]] QColor brandA() const;
    [[nodiscard]] QColor brandB() const;
    [[nodiscard]] QColor onFill() const;
    [[nodiscard]] QColor onFillRule() const;
    [[nodiscard]] QColor toastOk() const;
    [[nodiscard]] QColor toastWarning() const;
    [[nodiscard]] QColor folderIcon() const;
    [[nodiscard]] QFont heroFont() const;
    [[nodiscard]] QFont figureFont() const;
    [[nodiscard]] QFont title1Font() const;
    [[nodiscard]] QFont statFont() const;
    [[nodiscard]] QFont statPlainFont() const;
    [[nodiscard]] QFont title2Font() const;
    [[nodiscard]] QFont bodyFont() const;
    [[nodiscard]] QFont bodyMediumFont() const;
    [[nodiscard]] QFont bodySemiboldFont() const;
    [[nodiscard]] QFont bodyFiguresFont() const;
    [[nodiscard]] QFont bodyMediumFiguresFont() const;
    [[nodiscard]] QFont bodySemiboldFiguresFont() const;
    [[nodiscard]] QFont secondaryFont() const;
    [[nodiscard]] QFont secondaryMediumFont() const;
    [[nodiscard]] QFont secondarySemiboldFont() const;
    [[nodiscard]] QFont secondaryFiguresFont() const;
    [[nodiscard]] QFont captionFont() const;
    [[nodiscard]] QFont captionMediumFont() const;
    [[nodiscard]] QFont captionSemiboldFont() const;
    [[nodiscard]] QFont captionFiguresFont() const;
    /// Of what is typed into a terminal.
    [[nodiscard]] QFont commandFont() const;

signals:
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Colors;
    static const Colors &lightColors();
    static const Colors &darkColors();
    [[nodiscard]] const Colors &colors() const { return m_dark ? darkColors() : lightColors(); }
    void followSystem();

    Desktop &m_desktop;
    const std::unique_ptr<ColorSchemeSetting> m_setting;
    bool m_dark = false;
    bool m_reducedMotion = false;
    bool m_darkIsFixed = false;
    bool m_reducedMotionIsFixed = false;
    const int m_heroLine = 52;
    const int m_figureLine = 28;
    const int m_title1Line = 26;
    const int m_statLine = 22;
    const int m_title2Line = 20;
    const int m_bodyLine = 18;
    const int m_secondaryLine = 16;
    const int m_captionLine = 14;
    const int m_pageMargin = 24;
    const int m_boxGap = 14;
    const int m_boxPadding = 16;
    const int m_buttonGap = 8;
    const int m_sidebarWidth = 216;
    const int m_sidebarRowHeight = 30;
    const int m_sidebarInset = 10;
    const int m_gaugeHeight = 54;
    const int m_bandHeight = 56;
    const int m_filterBarHeight = 44;
    const int m_selectionBarHeight = 60;
    const int m_controlHeight = 28;
    const int m_smallControlHeight = 24;
    const int m_checkBoxSize = 16;
    const int m_tableHeaderHeight = 28;
    const int m_tableRowHeight = 28;
    const int m_nodeRowHeight = 38;
    const int m_menuRowHeight = 24;
    const int m_menuPadding = 5;
    const int m_iconSize = 16;
    const int m_buttonIconSize = 14;
    const int m_emptyStateIconSize = 44;
    const int m_sizeBarHeight = 4;
    const int m_nodeSizeBarHeight = 3;
    const int m_radiusNested = 2;
    const int m_radiusLeaf = 3;
    const int m_radiusFrame = 4;
    const int m_radiusSmallControl = 5;
    const double m_radiusSegment = 4.5;
    const int m_radiusControl = 6;
    const int m_radiusPanel = 8;
    const int m_radiusBox = 10;
    const int m_radiusSheet = 12;
    const int m_minimumWidth = 1040;
    const int m_minimumHeight = 660;
    const int m_wideContentWidth = 900;
    const int m_mapListWidth = 324;
    const int m_mapListWidthNarrow = 284;
    const int m_mapMargin = 12;
    const int m_mapListGap = 8;
    const int m_reviewSheetWidth = 640;
    const int m_alertWidth = 420;
    const int m_hairlineWidth = 1;
    const int m_focusRingWidth = 2;
    const int m_focusRingGap = 1;
    const int m_space2 = 2;
    const int m_space4 = 4;
    const int m_space6 = 6;
    const int m_space8 = 8;
    const int m_space10 = 10;
    const int m_space12 = 12;
    const int m_space14 = 14;
    const int m_space16 = 16;
    const int m_space20 = 20;
    const int m_space24 = 24;
    const int m_space32 = 32;
    const int m_controlPadding = 12;
    const int m_smallControlPadding = 9;
    const int m_pillPadding = 14;
    const int m_smallPillPadding = 11;
    const int m_quietPadding = 10;
    const int m_smallBadgeSize = 28;
    const int m_badgeSize = 32;
    const int m_badgeIconSize = 18;
    const int m_largeBadgeSize = 40;
    const int m_largeBadgeIconSize = 22;
    const int m_solidBadgeSize = 30;
    const int m_checkIconSize = 10;
    const int m_caretSize = 10;
    const int m_searchIconSize = 13;
    const int m_closeIconSize = 16;
    const int m_alertIconSize = 36;
    const int m_bannerIconSize = 22;
    const int m_swatchSize = 10;
    const int m_tagHeight = 18;
    const int m_tagPadding = 7;
    const int m_pointSize = 6;
    const int m_switchWidth = 32;
    const int m_switchHeight = 18;
    const int m_bandRuleHeight = 20;
    const int m_splitRuleHeight = 16;
    const int m_bandIconGap = 11;
    const int m_segmentPadding = 2;
    const int m_checkCellWidth = 30;
    const int m_emptyStateWidth = 420;
    const int m_emptyStateRise = 20;
    const int m_sheetFooterHeight = 60;
    const int m_sheetRise = 12;
    const int m_menuMinimumWidth = 200;
    const int m_popupMaximumHeight = 320;
    const int m_scrollBarWidth = 11;
    const int m_scrollThumbWidth = 7;
    const int m_indeterminateHeight = 4;
    const int m_tipMaximumWidth = 320;
    const int m_fileIconSize = 16;
    const int m_headerFileIconSize = 18;
    const int m_pillFileIconSize = 22;
    const int m_appIconSize = 26;
    const int m_bundleIconSize = 32;
    const int m_alertBundleIconSize = 48;
    const double m_disabledOpacity = 0.5;
    const double m_disabledPlainOpacity = 0.55;
    const double m_protectedOpacity = 0.4;
    const double m_badgeOpacity = 0.13;
    const double m_nestedRowOpacity = 0.45;
    const double m_sizeBarMinimum = 0.015;
    const double m_indeterminatePart = 0.28;
    const double m_sheetCentre = 0.46;
    const int m_fastDuration = 90;
    const int m_baseDuration = 140;
    const int m_expandDuration = 180;
    const int m_panelDuration = 220;
    const int m_mapDuration = 240;
    const int m_figuresDuration = 300;
    const int m_spinnerTurnDuration = 900;
    const int m_indeterminateSweepDuration = 1400;
    const int m_toastStayDuration = 5000;
    const int m_toastStayWarningDuration = 10000;
    const int m_pillDelayDuration = 80;
    const int m_tipDelayDuration = 600;
};

} // namespace corvane
