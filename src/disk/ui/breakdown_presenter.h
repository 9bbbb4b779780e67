#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "disk/ui/segment_model.h"
#include "shell/ui/stacked_bar.h"
#include "shell/ui/store_registration.h"

namespace corvane {

/// One line of the snapshots card; a value type for QML.
struct SnapshotText {
    Q_GADGET
    QML_VALUE_TYPE(snapshotText)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString deleteCommand MEMBER deleteCommand)

public:
    QString text;
    QString symbol;        ///< empty if the date is known
    QString deleteCommand; ///< empty if the system thins its snapshots itself

    friend bool operator==(const SnapshotText &, const SnapshotText &) = default;
};

/// The breakdown of the disk as texts, figures and rows, for its screen and for its summary on the overview. Requests a
/// breakdown from the store if there is none. Main thread only.
class BreakdownPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// Whether there is a breakdown to show.
    Q_PROPERTY(bool available READ isAvailable NOTIFY changed)
    Q_PROPERTY(bool loading READ isLoading NOTIFY changed)
    /// Shown while there is no breakdown.
    Q_PROPERTY(QString loadingText READ loadingText CONSTANT)
    /// Whether the breakdown lacks a scan.
    Q_PROPERTY(bool needsScan READ needsScan NOTIFY changed)
    /// The note that the scan behind the breakdown was stopped; otherwise empty.
    Q_PROPERTY(QString partialText READ partialText NOTIFY changed)
    /// Whether a scan can be started because none is running.
    Q_PROPERTY(bool canScan READ canScan NOTIFY canScanChanged)
    Q_PROPERTY(QString percentage READ percentage NOTIFY changed)
    Q_PROPERTY(QString used READ used NOTIFY changed)
    Q_PROPERTY(QString usedOf READ usedOf NOTIFY changed)
    Q_PROPERTY(QString free READ free NOTIFY changed)
    Q_PROPERTY(QString freeOn READ freeOn NOTIFY changed)
    Q_PROPERTY(QString summary READ summary NOTIFY changed)
    /// The explained segments, and after them what is not explained, paler.
    Q_PROPERTY(QList<corvane::StackedBarPart> summaryParts READ summaryParts NOTIFY changed)
    /// The segments followed by the free space.
    Q_PROPERTY(QList<corvane::StackedBarPart> parts READ parts NOTIFY changed)
    Q_PROPERTY(QString freePart READ freePart CONSTANT)
    /// Used bytes that no segment explains.
    Q_PROPERTY(double rest READ rest NOTIFY changed)
    /// The largest segments, and how many more there are.
    Q_PROPERTY(QList<corvane::StackedBarPart> legend READ legend NOTIFY changed)
    Q_PROPERTY(QString legendRest READ legendRest NOTIFY changed)
    Q_PROPERTY(corvane::SegmentModel *segments READ segments CONSTANT)
    Q_PROPERTY(QList<QString> footnotes READ footnotes NOTIFY changed)

    Q_PROPERTY(bool hasSnapshots READ hasSnapshots NOTIFY changed)
    Q_PROPERTY(QString snapshotsFound READ snapshotsFound NOTIFY changed)
    Q_PROPERTY(QList<corvane::SnapshotText> snapshots READ snapshots NOTIFY changed)
    Q_PROPERTY(QString moreSnapshots READ moreSnapshots NOTIFY changed)
    Q_PROPERTY(QString listCommand READ listCommand NOTIFY changed)
    /// Empty if each snapshot has a command of its own.
    Q_PROPERTY(QString thinCommand READ thinCommand NOTIFY changed)

public:
    explicit BreakdownPresenter(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] bool isAvailable() const { return breakdown() != nullptr; }
    [[nodiscard]] bool isLoading() const;
    [[nodiscard]] QString loadingText() const;
    [[nodiscard]] bool needsScan() const;
    [[nodiscard]] QString partialText() const;
    [[nodiscard]] bool canScan() const;
    /// "95%"
    [[nodiscard]] QString percentage() const;
    /// "811.29 GB" and " used of 994.66 GB"
    [[nodiscard]] QString used() const;
    [[nodiscard]] QString usedOf() const;
    /// "183.37 GB" and " free on Macintosh HD"
    [[nodiscard]] QString free() const;
    [[nodiscard]] QString freeOn() const;
    /// "95% of 811.29 GB explained"
    [[nodiscard]] QString summary() const;
    [[nodiscard]] QList<StackedBarPart> summaryParts() const;
    [[nodiscard]] QList<StackedBarPart> parts() const;
    /// The id of the free space's part.
    [[nodiscard]] QString freePart() const { return QStringLiteral("free"); }
    [[nodiscard]] double rest() const;
    [[nodiscard]] QList<StackedBarPart> legend() const;
    /// "and 4 smaller", or empty
    [[nodiscard]] QString legendRest() const;
    [[nodiscard]] SegmentModel *segments() { return &m_segments; }
    [[nodiscard]] QList<QString> footnotes() const;

    [[nodiscard]] bool hasSnapshots() const;
    /// "3 found"
    [[nodiscard]] QString snapshotsFound() const;
    [[nodiscard]] QList<SnapshotText> snapshots() const;
    /// "+ 3 more", or empty
    [[nodiscard]] QString moreSnapshots() const;
    [[nodiscard]] QString listCommand() const;
    [[nodiscard]] QString thinCommand() const;

    Q_INVOKABLE void refresh();
    Q_INVOKABLE void scanHome();
    /// Repeats the last scan.
    Q_INVOKABLE void rescan();
    /// Performs the action of a row.
    Q_INVOKABLE void perform(int row);
    /// Shows the breakdown's screen.
    Q_INVOKABLE void openBreakdown();

signals:
    void changed();
    void canScanChanged();

private:
    void update();
    [[nodiscard]] const DiskBreakdown *breakdown() const;
    [[nodiscard]] QList<StackedBarPart> segmentParts() const;

    StorageStore &m_store;
    SegmentModel m_segments;
};

} // namespace corvane
