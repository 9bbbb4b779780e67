#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace corvane {

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
    // Fixed colours.
    Q_PROPERTY(QColor brandA READ brandA CONSTANT)
    Q_PROPERTY(QColor brandB READ brandB CONSTANT)
    Q_PROPERTY(QColor onFill READ onFill CONSTANT)             // text and glyphs on accentFill, dangerFill, toast
    Q_PROPERTY(QColor toastOk READ toastOk CONSTANT)
    Q_PROPERTY(QColor toastWarning READ toastWarning CONSTANT)
    Q_PROPERTY(QColor folderIcon READ folderIcon CONSTANT)

    // Type, by role; the *Figures fonts have figures of one width, for columns.
    Q_PROPERTY(QFont heroFont READ heroFont CONSTANT)
    Q_PROPERTY(QFont figureFont READ figureFont CONSTANT)
    Q_PROPERTY(QFont title1Font READ title1Font CONSTANT)
    Q_PROPERTY(QFont statFont READ statFont CONSTANT)
    Q_PROPERTY(QFont title2Font READ title2Font CONSTANT)
    Q_PROPERTY(QFont bodyFont READ bodyFont CONSTANT)
    Q_PROPERTY(QFont bodyMediumFont READ bodyMediumFont CONSTANT)
    Q_PROPERTY(QFont bodySemiboldFont READ bodySemiboldFont CONSTANT)
    Q_PROPERTY(QFont bodyFiguresFont READ bodyFiguresFont CONSTANT)
    Q_PROPERTY(QFont bodyMediumFiguresFont READ bodyMediumFiguresFont CONSTANT)
    Q_PROPERTY(QFont secondaryFont READ secondaryFont CONSTANT)
    Q_PROPERTY(QFont secondarySemiboldFont READ secondarySemiboldFont CONSTANT)
    Q_PROPERTY(QFont secondaryFiguresFont READ secondaryFiguresFont CONSTANT)
    Q_PROPERTY(QFont captionFont READ captionFont CONSTANT)
    Q_PROPERTY(QFont captionMediumFont READ captionMediumFont CONSTANT)
    Q_PROPERTY(QFont captionSemiboldFont READ captionSemiboldFont CONSTANT)
    Q_PROPERTY(QFont captionFiguresFont READ captionFiguresFont CONSTANT)

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
    Q_PROPERTY(int copiedStayDuration MEMBER m_copiedStayDuration CONSTANT)
    Q_PROPERTY(int pillDelayDuration MEMBER m_pillDelayDuration CONSTANT)

public:
    static Theme *create(QQmlEngine *, QJSEngine *);
    static Theme *instance();

    [[nodiscard]] bool isDark() const { return m_dark; }
    [[nodiscard]] bool reducedMotion() const { return m_reducedMotion; }
    /// Overrides what the system says, for tests and pictures.
    void setDark(bool dark);
    void setReducedMotion(bool reduced);
    /// A movement's duration: as given, or 0 under reduced motion.
    Q_INVOKABLE [[nodiscard]] int motion(int duration) const { return m_reducedMotion ? 0 : duration; }

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
    [[nodiscard]] QColor brandA() const;
    [[nodiscard]] QColor brandB() const;
    [[nodiscard]] QColor onFill() const;
    [[nodiscard]] QColor toastOk() const;
    [[nodiscard]] QColor toastWarning() const;
    [[nodiscard]] QColor folderIcon() const;
    [[nodiscard]] QFont heroFont() const;
    [[nodiscard]] QFont figureFont() const;
    [[nodiscard]] QFont title1Font() const;
    [[nodiscard]] QFont statFont() const;
    [[nodiscard]] QFont title2Font() const;
    [[nodiscard]] QFont bodyFont() const;
    [[nodiscard]] QFont bodyMediumFont() const;
    [[nodiscard]] QFont bodySemiboldFont() const;
    [[nodiscard]] QFont bodyFiguresFont() const;
    [[nodiscard]] QFont bodyMediumFiguresFont() const;
    [[nodiscard]] QFont secondaryFont() const;
    [[nodiscard]] QFont secondarySemiboldFont() const;
    [[nodiscard]] QFont secondaryFiguresFont() const;
    [[nodiscard]] QFont captionFont() const;
    [[nodiscard]] QFont captionMediumFont() const;
    [[nodiscard]] QFont captionSemiboldFont() const;
    [[nodiscard]] QFont captionFiguresFont() const;

signals:
    void changed();

private:
    Theme();
    void followSystem();

    bool m_dark = false;
    bool m_reducedMotion = false;
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
    const int m_copiedStayDuration = 1600;
    const int m_pillDelayDuration = 80;
};

} // namespace corvane
