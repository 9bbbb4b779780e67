#include "disk/ui/breakdown_presenter.h"

#include <algorithm>

#include <QDateTime>
#include <QGuiApplication>
#include <QLocale>

#include "core/store/qt_words.h"
#include "core/systems/disk_table.h"
#include "shell/ui/theme.h"

namespace corvane {

namespace {

constexpr qsizetype legendLength = 5;
constexpr std::size_t snapshotsShown = 6;
constexpr double unexplainedOpacity = 0.55; // in the summary

SnapshotText lineOf(const LocalSnapshot &snapshot)
{
    SnapshotText line;
    if (snapshot.date) {
        line.text =
            abbreviatedDateTime(QDateTime::fromSecsSinceEpoch(snapshot.date->time_since_epoch().count()), QLocale());
    } else {
        line.text = displayText(snapshot.name);
        line.symbol = QStringLiteral("camera.metering.unknown");
    }
    if (snapshot.size)
        line.text += QStringLiteral(" · ") + sizeText(*snapshot.size);
    line.deleteCommand = displayText(snapshot.deleteCommand);
    return line;
}

} // namespace

BreakdownPresenter::BreakdownPresenter(StorageStore &store, QObject *parent) : QObject(parent), m_store(store)
{
    // The colour of the free space comes from the theme.
    connect(Theme::instance(), &Theme::changed, this, &BreakdownPresenter::changed);
    connect(&m_store, &StorageStore::breakdownChanged, this, &BreakdownPresenter::update);
    connect(&m_store, &StorageStore::phaseChanged, this, &BreakdownPresenter::canScanChanged);
    if (!m_store.breakdown() && !m_store.breakdownLoading())
        m_store.refreshBreakdown();
    update();
}

const DiskBreakdown *BreakdownPresenter::breakdown() const
{
    return m_store.breakdown() ? &*m_store.breakdown() : nullptr;
}

void BreakdownPresenter::update()
{
    if (const DiskBreakdown *current = breakdown())
        m_segments.setSegments(current->segments, current->used());
    else
        m_segments.setSegments({}, 0);
    emit changed();
}

bool BreakdownPresenter::isLoading() const
{
    return m_store.breakdownLoading();
}

QString BreakdownPresenter::loadingText() const
{
    return QStringLiteral("Measuring your disk…");
}

bool BreakdownPresenter::needsScan() const
{
    return isAvailable() && !breakdown()->hasScan;
}

QString BreakdownPresenter::partialText() const
{
    return isAvailable() && breakdown()->scanIsPartial ? displayText(partialScanText) : QString();
}

bool BreakdownPresenter::canScan() const
{
    return m_store.phase() != StorageStore::Phase::scanning;
}

// --- The figures

QString BreakdownPresenter::percentage() const
{
    return isAvailable() ? QString::number(breakdown()->explainedPercentage()) + QLatin1Char('%') : QString();
}

QString BreakdownPresenter::used() const
{
    return isAvailable() ? sizeText(breakdown()->used()) : QString();
}

QString BreakdownPresenter::usedOf() const
{
    return isAvailable() ? QStringLiteral(" used of ") + sizeText(breakdown()->total) : QString();
}

QString BreakdownPresenter::free() const
{
    return isAvailable() ? sizeText(breakdown()->free) : QString();
}

QString BreakdownPresenter::freeOn() const
{
    return isAvailable() ? QStringLiteral(" free on ") + displayText(breakdown()->volumeName) : QString();
}

QString BreakdownPresenter::summary() const
{
    return isAvailable() ? percentage() + QStringLiteral(" of ") + used() + QStringLiteral(" explained")
                         : loadingText();
}

// --- The bar

QList<StackedBarPart> BreakdownPresenter::segmentParts() const
{
    QList<StackedBarPart> parts;
    for (int row = 0; row < m_segments.rowCount(); ++row)
        parts.append(m_segments.barPart(row));
    return parts;
}

QList<StackedBarPart> BreakdownPresenter::summaryParts() const
{
    QList<StackedBarPart> parts;
    QList<StackedBarPart> unexplained;
    for (int row = 0; row < m_segments.rowCount(); ++row) {
        StackedBarPart part = m_segments.barPart(row);
        if (m_segments.isUnexplained(row)) {
            part.color = Theme::instance()->withAlpha(part.color, unexplainedOpacity);
            unexplained.append(part);
        } else {
            parts.append(part);
        }
    }
    return parts + unexplained;
}

QList<StackedBarPart> BreakdownPresenter::parts() const
{
    QList<StackedBarPart> parts = segmentParts();
    if (isAvailable()) {
        const std::int64_t size = std::max<std::int64_t>(0, breakdown()->free);
        parts.append({freePart(), QStringLiteral("Free"), sizeText(size), Theme::instance()->track(), size});
    }
    return parts;
}

double BreakdownPresenter::rest() const
{
    if (!isAvailable())
        return 0;
    std::int64_t unexplained = breakdown()->used();
    for (const BreakdownSegment &segment : breakdown()->segments)
        unexplained -= segment.size;
    return static_cast<double>(std::max<std::int64_t>(0, unexplained));
}

QList<StackedBarPart> BreakdownPresenter::legend() const
{
    QList<StackedBarPart> legend = segmentParts().mid(0, legendLength);
    if (isAvailable() && diskTableOf(breakdown()->system).shortensLegend) {
        for (StackedBarPart &part : legend)
            part.title = part.title.left(part.title.indexOf(QStringLiteral(" (/")));
    }
    return legend;
}

QString BreakdownPresenter::legendRest() const
{
    const qsizetype rest = m_segments.rowCount() - legendLength;
    return rest > 0 ? QStringLiteral("and %1 smaller").arg(rest) : QString();
}

QList<QString> BreakdownPresenter::footnotes() const
{
    QList<QString> notes;
    if (isAvailable()) {
        for (const std::string &note : breakdown()->footnotes())
            notes.append(displayText(note));
    }
    return notes;
}

// --- The snapshots

bool BreakdownPresenter::hasSnapshots() const
{
    return isAvailable() && !breakdown()->snapshots.empty();
}

QString BreakdownPresenter::listCommand() const
{
    if (!m_store.words().listSnapshots.empty())
        return displayText(m_store.words().listSnapshots);
    QStringList commands; // one for each tool with snapshots
    if (isAvailable()) {
        for (const LocalSnapshot &snapshot : breakdown()->snapshots)
            commands.append(displayText(snapshot.listCommand));
    }
    commands.removeDuplicates();
    return commands.join(QStringLiteral("; "));
}

QString BreakdownPresenter::thinCommand() const
{
    return displayText(m_store.words().thinSnapshots);
}

QString BreakdownPresenter::snapshotsFound() const
{
    return isAvailable() ? QStringLiteral("%1 found").arg(breakdown()->snapshots.size()) : QString();
}

QList<SnapshotText> BreakdownPresenter::snapshots() const
{
    QList<SnapshotText> lines;
    if (!isAvailable())
        return lines;
    const std::vector<LocalSnapshot> &all = breakdown()->snapshots;
    for (std::size_t i = 0; i < std::min(all.size(), snapshotsShown); ++i)
        lines.append(lineOf(all[i]));
    return lines;
}

QString BreakdownPresenter::moreSnapshots() const
{
    if (!isAvailable() || breakdown()->snapshots.size() <= snapshotsShown)
        return {};
    return QStringLiteral("+ %1 more").arg(breakdown()->snapshots.size() - snapshotsShown);
}

// --- What can be done

void BreakdownPresenter::refresh()
{
    m_store.refreshBreakdown();
}

void BreakdownPresenter::scanHome()
{
    m_store.scanHome();
}

void BreakdownPresenter::rescan()
{
    m_store.rescan();
}

void BreakdownPresenter::perform(int row)
{
    if (const auto action = m_segments.action(row); action)
        m_store.perform(*action);
}

void BreakdownPresenter::openBreakdown()
{
    m_store.setSidebar(StorageStore::SidebarItem::breakdown);
}

} // namespace corvane
