#include <chrono>
#include <initializer_list>
#include <utility>

#include <QFile>

#include "screenshots/photographer.h"
#include "screenshots/shaped_disk.h"

namespace corvane {

namespace {

QByteArray recorded(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        giveUp(QStringLiteral("cannot read %1").arg(path));
    return file.readAll();
}

/// Overrides the output of a tool on the Mac-shaped disk while this object lives.
class OtherAnswer {
public:
    explicit OtherAnswer(const char *file)
        : m_path(QStringLiteral("/System/Volumes/recorded/") + QLatin1String(file)), m_usual(recorded(m_path))
    {
    }
    OtherAnswer(const OtherAnswer &) = delete;
    OtherAnswer &operator=(const OtherAnswer &) = delete;
    ~OtherAnswer() { set(m_usual); }

    void set(const QByteArray &text) const
    {
        QFile file(m_path);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("cannot write %s", qPrintable(m_path));
    }
    /// Sets the usual output with figures replaced: in each pair, the first by the second.
    void setFigures(std::initializer_list<std::pair<const char *, const char *>> figures) const
    {
        QByteArray text = m_usual;
        for (const auto &[usual, other] : figures)
            text.replace(usual, other);
        set(text);
    }

private:
    QString m_path;
    QByteArray m_usual;
};

constexpr const char *snapshots = "tmutil-listlocalsnapshots.txt";
constexpr const char *containers = "diskutil-apfs-list.plist";

QByteArray snapshotList(int count)
{
    QByteArray list = "Snapshots for disk /:\n";
    for (int i = 0; i < count; ++i) {
        // One of them was made by another program and has no date.
        list += i == 2 ? QByteArray("com.apple.os.update-MSUPrepareUpdate\n")
                       : "com.apple.TimeMachine.2025-11-1" + QByteArray::number(i) + "-081502.local\n";
    }
    return list;
}

} // namespace

void Photographer::refreshBreakdown()
{
    m_store.refreshBreakdown();
    m_driver.waitFor([&] { return !m_store.breakdownLoading(); }, QStringLiteral("the breakdown"));
}

void Photographer::takeBothEnds(const QString &name)
{
    take(name);
    QQuickItem &page = m_driver.item(QStringLiteral("breakdown.page"));
    page.setProperty("contentY", page.property("contentHeight").toReal() - page.height());
    take(name + QStringLiteral("-end"));
    page.setProperty("contentY", 0);
}

void Photographer::pointAtPart(double share)
{
    const QQuickItem &bar = m_driver.item(QStringLiteral("breakdown.bar"));
    m_driver.pointAt(bar, QPointF(bar.width() * share, bar.height() / 2));
}

void Photographer::takeBreakdownBeforeScan()
{
    slowDownListings(std::chrono::milliseconds(300));
    show(StorageStore::SidebarItem::breakdown);
    takeMoving(QStringLiteral("breakdown-measuring"));
    slowDownListings(std::chrono::milliseconds(0));
    m_driver.waitFor([&] { return !m_store.breakdownLoading(); }, QStringLiteral("the breakdown"));

    takeBothEnds(QStringLiteral("breakdown-unscanned"));
    takeMinimum(QStringLiteral("breakdown-unscanned-min"));
    if (m_example.kind == SystemKind::mac)
        takeOtherAnswers();
    show(StorageStore::SidebarItem::explorer);
}

void Photographer::takeOtherAnswers()
{
    for (const int count : {0, 1, 9}) {
        const OtherAnswer answer(snapshots);
        answer.set(snapshotList(count));
        refreshBreakdown();
        takeBothEnds(QStringLiteral("breakdown-snapshots-%1").arg(count));
    }
    {
        const OtherAnswer answer(containers);
        answer.set("");
        refreshBreakdown();
        takeBothEnds(QStringLiteral("breakdown-no-container"));
    }
}

void Photographer::takeBreakdown()
{
    m_driver.waitFor([&] { return !m_store.breakdownLoading(); }, QStringLiteral("the breakdown"));
    show(StorageStore::SidebarItem::breakdown);
    takeBothEnds(QStringLiteral("breakdown"));
    pointAtPart(0.67);
    take(QStringLiteral("breakdown-hover"));
    pointAtPart(0.95);
    take(QStringLiteral("breakdown-hover-free"));
    m_driver.pointAtNothing();

    tabTo(m_driver.item(QStringLiteral("breakdown.bar")));
    for (int part = 0; part < 3; ++part)
        m_driver.press(Qt::Key_Right);
    take(QStringLiteral("breakdown-keyboard"));
    if (m_example.kind == SystemKind::mac) {
        tabTo(m_driver.item(QStringLiteral("snapshots.copyThin")));
        m_driver.press(Qt::Key_Space);
        take(QStringLiteral("breakdown-copied"));
    }

    m_driver.item(QStringLiteral("breakdown.page")).setProperty("contentY", 0);
    takeMinimum(QStringLiteral("breakdown-min"));
    slowDownListings(std::chrono::milliseconds(300));
    m_store.refreshBreakdown();
    takeMoving(QStringLiteral("breakdown-refreshing"));
    slowDownListings(std::chrono::milliseconds(0));
    m_driver.waitFor([&] { return !m_store.breakdownLoading(); }, QStringLiteral("the breakdown"));
    if (m_example.kind == SystemKind::mac) {
        const OtherAnswer answer(containers);
        // Moves bytes from the data volume to the free space, so that the volumes still add up to the total.
        answer.setFigures({{"788935835648", "739345835648"}, {"183371001856", "232961001856"}});
        refreshBreakdown();
        takeBothEnds(QStringLiteral("breakdown-overcount"));
    }
    refreshBreakdown();
    show(StorageStore::SidebarItem::explorer);
}

} // namespace corvane
