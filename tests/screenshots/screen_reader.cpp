#include "screenshots/screen_reader.h"

#include <algorithm>

#include <QStringList>

#include "platform/host.h"

namespace corvane {

namespace {

using Screen = StorageStore::SidebarItem;

constexpr int mostSteps = 10; // for lists that are endless in practice

/// Appends the visible texts of an item and its descendants.
void addTexts(const QQuickItem &item, QStringList &texts)
{
    if (!item.isVisible())
        return;
    if (item.inherits("QQuickText") || item.inherits("QQuickTextInput")) {
        if (const QString text = item.property("text").toString(); !text.isEmpty() && item.width() > 0)
            texts.append(text);
    }
    for (const QQuickItem *child : item.childItems())
        addTexts(*child, texts);
}

/// Vertically scrollable items with content outside the viewport.
QList<QQuickItem *> scrollers(QQuickItem &item)
{
    QList<QQuickItem *> found;
    if (!item.isVisible())
        return found;
    if (item.inherits("QQuickFlickable"))
        found.append(&item);
    for (QQuickItem *child : item.childItems())
        found += scrollers(*child);
    return found;
}

qreal number(const QQuickItem &item, const char *property)
{
    return item.property(property).toReal();
}

} // namespace

QJsonObject ScreenReader::readAll()
{
    m_driver.resize(1280, 800);
    waitForMeasurements();
    QJsonObject screens{{QStringLiteral("overview"), read(Screen::overview)},
                        {QStringLiteral("breakdown"), read(Screen::breakdown)},
                        {QStringLiteral("uninstaller"), read(Screen::uninstaller)},
                        {QStringLiteral("cleanup"), read(Screen::cleanup)}};
    m_store.scan("/");
    m_driver.waitFor([&] { return m_store.phase() == StorageStore::Phase::ready; }, QStringLiteral("the scan's end"));
    screens.insert(QStringLiteral("explorerOfTheDisk"), read(Screen::explorer));
    m_store.scan(systemHost().files.homeFolder());
    m_driver.waitFor([&] { return m_store.phase() == StorageStore::Phase::ready; }, QStringLiteral("the scan's end"));
    waitForMeasurements();
    screens.insert(QStringLiteral("overviewScanned"), read(Screen::overview));
    screens.insert(QStringLiteral("breakdownScanned"), read(Screen::breakdown));
    screens.insert(QStringLiteral("cleanupScanned"), read(Screen::cleanup));
    screens.insert(QStringLiteral("large"), read(Screen::large));
    screens.insert(QStringLiteral("old"), read(Screen::old));
    screens.insert(QStringLiteral("duplicates"), read(Screen::duplicates));
    return screens;
}

QJsonArray ScreenReader::read(Screen screen)
{
    m_store.setSidebar(screen);
    m_driver.pointAtNothing();
    waitForMeasurements();
    m_driver.rest();
    QStringList texts;
    QQuickItem &all = *m_driver.window()->contentItem();
    addTexts(all, texts);
    for (QQuickItem *scroller : scrollers(all)) {
        const qreal step = scroller->height() * 0.7;
        const auto end = [&] { return number(*scroller, "originY") + number(*scroller, "contentHeight"); };
        for (int steps = 0; steps < mostSteps && number(*scroller, "contentY") + scroller->height() < end(); ++steps) {
            scroller->setProperty("contentY", number(*scroller, "contentY") + step);
            m_driver.rest();
            addTexts(all, texts);
        }
    }
    return QJsonArray::fromStringList(texts);
}

void ScreenReader::waitForMeasurements() const
{
    m_driver.waitFor(
        [&] {
            return !m_store.breakdownLoading() && !m_store.cleanupLoading() && !m_store.appsLoading() &&
                   (m_store.sidebar() != Screen::uninstaller || m_store.appsLoaded());
        },
        QStringLiteral("the measurements"));
}

} // namespace corvane
