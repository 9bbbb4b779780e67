#include <chrono>

#include "screenshots/photographer.h"
#include "screenshots/shaped_disk.h"

namespace corvane {

void Photographer::takeDuplicates()
{
    show(StorageStore::SidebarItem::duplicates);
    take(QStringLiteral("duplicates-idle"));

    slowDownReads(std::chrono::milliseconds(5));
    m_driver.click(m_driver.item(QStringLiteral("duplicates.search")));
    m_driver.pointAtNothing();
    m_driver.waitFor([&] { return m_store.duplicateProgress() > 0.2; }, QStringLiteral("a search under way"));
    takeMoving(QStringLiteral("duplicates-scanning"));
    slowDownReads(std::chrono::milliseconds(0));
    m_driver.waitFor([&] { return m_store.duplicatePhase() == StorageStore::Phase::ready; },
                     QStringLiteral("the search's end"));

    m_driver.click(m_driver.item(QStringLiteral("duplicates.autoSelect")));
    take(QStringLiteral("duplicates-menu"));
    m_driver.click(m_driver.item(QStringLiteral("duplicates.keepNewest")));
    m_driver.pointAtNothing();
    take(QStringLiteral("duplicates"));
    takeMinimum(QStringLiteral("duplicates-min"));
    m_store.clearSelection();
    takeDuplicatesByKeyboard();
    show(StorageStore::SidebarItem::explorer);
}

void Photographer::takeDuplicatesByKeyboard()
{
    tabTo(m_driver.item(QStringLiteral("duplicateList")));
    m_driver.press(Qt::Key_Home);
    m_driver.press(Qt::Key_Left);
    take(QStringLiteral("duplicates-folded"));
    m_driver.press(Qt::Key_Down);
    m_driver.press(Qt::Key_Down);
    m_driver.press(Qt::Key_Down);
    m_driver.press(Qt::Key_Space);
    take(QStringLiteral("duplicates-keyboard"));
    m_store.clearSelection();
    // Items inside a selected folder.
    const FileNode &folder = *m_store.node(m_example.duplicatesFolder);
    m_store.setSelected(folder.path(), folder.size, true);
    m_driver.press(Qt::Key_End);
    take(QStringLiteral("duplicates-covered"));
    m_store.clearSelection();
}

void Photographer::takeNoDuplicates()
{
    show(StorageStore::SidebarItem::duplicates);
    m_driver.click(m_driver.item(QStringLiteral("duplicates.search")));
    m_driver.pointAtNothing();
    m_driver.waitFor([&] { return m_store.duplicatePhase() == StorageStore::Phase::ready; },
                     QStringLiteral("the search's end"));
    take(QStringLiteral("duplicates-none"));
}

} // namespace corvane
