#include "journeys/journey.h"

#include <algorithm>
#include <map>

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QSettings>
#include <QtTest/QTest>

#include "shell/ui/theme.h"

namespace corvane {

namespace {

bool isRow(const QQuickItem &item)
{
    return item.property("checkState").isValid() && item.property("sizeText").isValid();
}

template <typename Visit>
void visitVisible(QQuickItem &from, const Visit &visit)
{
    if (!from.isVisible())
        return;
    visit(from);
    for (QQuickItem *child : from.childItems())
        visitVisible(*child, visit);
}

QObject *popup(QQuickWindow &window, const QString &objectName)
{
    auto *const found = window.findChild<QObject *>(objectName);
    if (found == nullptr)
        giveUp(QStringLiteral("no sheet or menu %1").arg(objectName));
    return found;
}

} // namespace

Journey::Journey()
{
    Sandbox::instance().insist();
    Sandbox::instance().clear();
    Theme::instance()->setDark(false);
    Theme::instance()->setReducedMotion(false);
}

Journey::~Journey()
{
    m_driver.reset();
    m_program.reset();
    Sandbox::instance().clear();
}

// --- The disk

std::string Journey::addFile(const std::string &relative, std::int64_t mebibytes) const
{
    return folder().writeFile("home/" + relative, mebibytes * mebibyte);
}

void Journey::setDefault(const std::string &key, const std::string &value) const
{
    QSettings settings(QString::fromStdString(folder() / "config/Corvane/Corvane.conf"), QSettings::NativeFormat);
    settings.setValue(QString::fromStdString(key), QString::fromStdString(value));
}

// --- The program

void Journey::open()
{
    setDefault("didOnboard", "true");
    launch();
}

void Journey::launch()
{
    m_driver.reset();
    m_program.emplace(m_site, m_updates);
    if (!m_program->openWindow())
        giveUp(QStringLiteral("the window was not made"));
    QQuickWindow *const window = m_program->window();
    m_driver.emplace(*window);
    waitUntil([&] { return window->isActive() && window->isExposed(); }, QStringLiteral("the window"));
    driver().pointAtNothing();
}

void Journey::openSpaceMap()
{
    open();
    store().setSidebar(StorageStore::SidebarItem::explorer);
}

void Journey::openAndScan()
{
    openSpaceMap();
    click(QStringLiteral("requiresScan.scan"));
    waitUntil([&] { return isScanned() && isShown(QStringLiteral("contents")); }, QStringLiteral("the scan's end"));
    driver().pointAtNothing();
}

// --- Window contents

QQuickItem *Journey::textItem(const QString &text)
{
    return driver().find([&](const QQuickItem &item) {
        return item.property("textFormat").isValid() && item.property("text").toString() == text;
    });
}

std::vector<std::string> Journey::namesFromTheTop(const std::function<bool(const QQuickItem &)> &condition)
{
    std::vector<const QQuickItem *> rows;
    static_cast<void>(driver().find([&](const QQuickItem &item) {
        if (condition(item))
            rows.push_back(&item);
        return false;
    }));
    std::ranges::sort(rows, {}, [](const QQuickItem *item) { return item->mapToScene({}).y(); });
    std::vector<std::string> names;
    for (const QQuickItem *item : rows)
        names.push_back(item->property("name").toString().toStdString());
    return names;
}

bool Journey::isShown(const QString &objectName)
{
    return driver().find([&](const QQuickItem &item) { return item.objectName() == objectName; }) != nullptr;
}

void Journey::waitForText(const QString &text)
{
    waitUntil([&] { return shows(text); }, text);
}

TreemapView &Journey::map()
{
    return *qobject_cast<TreemapView *>(&driver().item(QStringLiteral("map")));
}

std::vector<std::string> Journey::rows()
{
    // The list creates its delegates on the next frame.
    QQuickItem &list = driver().item(QStringLiteral("contents"));
    std::map<int, std::string> byIndex;
    const auto read = [&] {
        byIndex.clear();
        visitVisible(list, [&](const QQuickItem &item) {
            // Skip delegates that the list keeps for reuse.
            if (isRow(item) && item.property("index").toInt() >= 0) {
                const QString text =
                    item.property("name").toString() + QLatin1Char(' ') + item.property("sizeText").toString();
                byIndex[item.property("index").toInt()] = text.toStdString();
            }
        });
        return static_cast<int>(byIndex.size()) == list.property("count").toInt();
    };
    waitUntil(read, QStringLiteral("the rows of the list"));
    std::vector<std::string> rows;
    for (const auto &[index, text] : byIndex)
        rows.push_back(text);
    return rows;
}

std::string Journey::way()
{
    QStringList names;
    visitVisible(*window().contentItem(), [&](const QQuickItem &item) {
        if (item.property("ellipsisBefore").isValid())
            names << item.property("name").toString();
    });
    return names.join(QLatin1Char('/')).toStdString();
}

std::vector<std::string> Journey::tiles()
{
    std::vector<std::string> names;
    for (const TreemapTile &tile : map().layout().tiles()) {
        if (tile.depth == 0)
            names.push_back(tile.label);
    }
    return names;
}

bool Journey::isEnabledInMenu(const QString &text)
{
    return driver()
        .itemWhere(
            [&](const QQuickItem &item) {
                return item.property("highlighted").isValid() && item.property("text").toString() == text;
            },
            text)
        .isEnabled();
}

std::string Journey::toast()
{
    const QQuickItem *const item =
        driver().find([](const QQuickItem &each) { return each.objectName() == QStringLiteral("toast"); });
    return item != nullptr && item->isEnabled() ? item->property("text").toString().toStdString() : std::string();
}

void Journey::waitForToast()
{
    waitUntil([&] { return !toast().empty(); }, QStringLiteral("a message"));
}

// --- User actions

void Journey::clickText(const QString &text)
{
    waitForText(text);
    driver().click(*textItem(text));
}

void Journey::clickCrumb(const QString &name)
{
    QQuickItem &crumb = driver().itemWhere(
        [&](const QQuickItem &item) {
            return item.property("ellipsisBefore").isValid() && item.property("name").toString() == name;
        },
        QStringLiteral("the crumb of %1").arg(name));
    driver().clickAt(crumb, QPointF(crumb.width() - 4, crumb.height() / 2));
}

QQuickItem &Journey::row(const QString &name)
{
    return driver().itemWhere(
        [&](const QQuickItem &item) { return isRow(item) && item.property("name").toString() == name; },
        QStringLiteral("the row of %1").arg(name));
}

void Journey::tick(const QString &name)
{
    constexpr double checkBoxAt = 22;
    QQuickItem &item = row(name);
    driver().clickAt(item, QPointF(checkBoxAt, item.height() / 2));
}

QPointF Journey::tile(const std::string &name)
{
    constexpr double labelAt = 11;
    const std::vector<TreemapTile> &all = map().layout().tiles();
    const auto found = std::ranges::find(all, name, &TreemapTile::label);
    if (found == all.end())
        giveUp(QStringLiteral("no tile of %1").arg(QString::fromStdString(name)));
    return {found->rect.x + found->rect.width / 2, found->rect.y + labelAt};
}

void Journey::clickTile(const std::string &name, Qt::MouseButton button)
{
    driver().clickAt(map(), tile(name), button);
}

void Journey::tabTo(const QQuickItem &item)
{
    constexpr int longestWay = 30;
    for (int step = 0; step < longestWay && !item.hasActiveFocus(); ++step)
        press(Qt::Key_Tab);
    if (!item.hasActiveFocus())
        giveUp(QStringLiteral("Tab does not lead to %1").arg(item.objectName()));
}

void Journey::waitForWay(const std::string &expected)
{
    waitUntil([&] { return way() == expected; }, QStringLiteral("the way ") + QString::fromStdString(expected));
    waitUntil([&] { return !map().isChangingFolder(); }, QStringLiteral("the map to come to rest"));
}

void Journey::waitForSelectionBar()
{
    waitUntil(
        [&] {
            const QQuickItem *const bar = driver().find(
                [](const QQuickItem &item) { return item.objectName() == QStringLiteral("selectionBar"); });
            return bar != nullptr && bar->property("hiddenPart").toDouble() == 0;
        },
        QStringLiteral("the selection bar"));
}

void Journey::waitForPopup(const QString &objectName)
{
    const QObject *const wanted = popup(window(), objectName);
    waitUntil([&] { return wanted->property("opened").toBool(); }, objectName);
}

void Journey::waitForPopupClosed(const QString &objectName)
{
    const QObject *const wanted = popup(window(), objectName);
    waitUntil([&] { return !wanted->property("visible").toBool(); }, objectName + QStringLiteral(" to close"));
}

void Journey::chooseInMenu(const QString &objectName)
{
    click(QStringLiteral("appMenuButton"));
    waitForPopup(QStringLiteral("appMenu"));
    click(objectName);
    waitForPopupClosed(QStringLiteral("appMenu"));
}

void Journey::drop(const QList<QUrl> &urls)
{
    QMimeData data;
    data.setUrls(urls);
    const QPoint middle = QRect(QPoint(), window().size()).center();
    QDragEnterEvent enter(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window(), &enter);
    QDragMoveEvent move(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window(), &move);
    QDropEvent event(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window(), &event);
}

} // namespace corvane
