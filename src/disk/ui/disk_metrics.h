#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// The lengths, in points, that only the breakdown has.
class DiskMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(int pageTop READ pageTop CONSTANT)
    Q_PROPERTY(int pageBottom READ pageBottom CONSTANT)
    Q_PROPERTY(int heroFigureLine READ heroFigureLine CONSTANT)
    Q_PROPERTY(int heroBarHeight READ heroBarHeight CONSTANT)
    Q_PROPERTY(int heroBarRadius READ heroBarRadius CONSTANT)
    Q_PROPERTY(int legendGap READ legendGap CONSTANT)
    Q_PROPERTY(int swatchGap READ swatchGap CONSTANT)
    Q_PROPERTY(int rowPadding READ rowPadding CONSTANT)
    Q_PROPERTY(int rowGap READ rowGap CONSTANT)
    Q_PROPERTY(int detailTop READ detailTop CONSTANT)
    Q_PROPERTY(int detailWidth READ detailWidth CONSTANT)
    Q_PROPERTY(int childrenTop READ childrenTop CONSTANT)
    Q_PROPERTY(int figureWidth READ figureWidth CONSTANT)
    Q_PROPERTY(int snapshotTextWidth READ snapshotTextWidth CONSTANT)
    Q_PROPERTY(int snapshotNameWidth READ snapshotNameWidth CONSTANT)
    Q_PROPERTY(int snapshotLine READ snapshotLine CONSTANT)
    Q_PROPERTY(int summaryHeight READ summaryHeight CONSTANT)
    Q_PROPERTY(int summaryBarWidth READ summaryBarWidth CONSTANT)
    Q_PROPERTY(int summaryBarWidthBesideRemark READ summaryBarWidthBesideRemark CONSTANT)
    Q_PROPERTY(int summaryBarHeight READ summaryBarHeight CONSTANT)

public:
    static constexpr int pageTop() { return 18; }
    static constexpr int pageBottom() { return 24; }
    static constexpr int heroFigureLine() { return 19; }
    static constexpr int heroBarHeight() { return 30; }
    static constexpr int heroBarRadius() { return 7; }
    static constexpr int legendGap() { return 19; } // between two entries
    static constexpr int swatchGap() { return 7; }
    static constexpr int rowPadding() { return 11; } // above and below
    static constexpr int rowGap() { return 13; }
    static constexpr int detailTop() { return 1; }
    static constexpr int detailWidth() { return 640; } // at most
    static constexpr int childrenTop() { return 5; }
    static constexpr int figureWidth() { return 86; }
    static constexpr int snapshotTextWidth() { return 680; } // at most
    static constexpr int snapshotNameWidth() { return 300; } // where a button stands beside it
    static constexpr int snapshotLine() { return 20; }
    static constexpr int summaryHeight() { return 44; }
    static constexpr int summaryBarWidth() { return 150; }
    static constexpr int summaryBarWidthBesideRemark() { return 100; }
    static constexpr int summaryBarHeight() { return 8; }
};

} // namespace corvane
