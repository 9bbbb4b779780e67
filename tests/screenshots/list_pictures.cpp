#include "screenshots/photographer.h"

namespace corvane {

void Photographer::takeLists()
{
    takeLargeFiles();
    takeOldFiles();
    show(StorageStore::SidebarItem::explorer);
}

void Photographer::takeLargeFiles()
{
    show(StorageStore::SidebarItem::large);
    for (const char *name : {"Linux Dev.qcow2", "client-rushes (1).zip", "Interview A-cam 02.mov"})
        tickFile(QString::fromLatin1(name));
    m_driver.pointAt(fileRow(QStringLiteral("Interview A-cam 01.mov")), QPointF(500, 14));
    take(QStringLiteral("large"));
    takeMinimum(QStringLiteral("large-min"));
    m_store.clearSelection();

    m_driver.click(m_driver.item(QStringLiteral("lists.type")));
    m_driver.pointAtNothing();
    take(QStringLiteral("large-types"));
    dismiss();

    tabTo(m_driver.item(QStringLiteral("lists.table")));
    m_driver.press(Qt::Key_Down);
    m_driver.press(Qt::Key_Down, Qt::ShiftModifier);
    m_driver.press(Qt::Key_Down, Qt::ShiftModifier);
    take(QStringLiteral("large-keyboard"));
    m_driver.press(Qt::Key_Menu);
    take(QStringLiteral("large-menu"));
    dismiss();
    // Items inside a selected folder.
    const FileNode &folder = *m_store.node(m_example.home + "/" + m_example.videos + "/Interviews");
    m_store.setSelected(folder.path(), folder.size, true);
    take(QStringLiteral("large-covered"));
    m_store.clearSelection();
    m_driver.press(Qt::Key_End);
    take(QStringLiteral("large-end"));

    m_driver.item(QStringLiteral("lists.search")).setProperty("text", QStringLiteral("nothing has this name"));
    take(QStringLiteral("large-empty"));
}

void Photographer::takeOldFiles()
{
    show(StorageStore::SidebarItem::old);
    take(QStringLiteral("old"));
    m_driver.click(m_driver.item(QStringLiteral("lists.modified")));
    m_driver.pointAtNothing();
    take(QStringLiteral("old-sorted"));
    takeMinimum(QStringLiteral("old-min"));
    m_driver.item(QStringLiteral("lists.search")).setProperty("text", QStringLiteral("nothing has this name"));
    take(QStringLiteral("old-empty"));
}

QQuickItem &Photographer::fileRow(const QString &name) const
{
    return m_driver.itemWhere(
        [&](const QQuickItem &item) {
            return item.property("highlighted").isValid() && item.property("checkState").isValid() &&
                   item.property("name").toString() == name;
        },
        name);
}

void Photographer::tickFile(const QString &name)
{
    QQuickItem &row = fileRow(name);
    m_driver.clickAt(row, QPointF(32, row.height() / 2));
}

} // namespace corvane
