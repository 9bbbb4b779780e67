#include <algorithm>
#include <chrono>
#include <filesystem>

#include <QProcess>

#include "screenshots/photographer.h"
#include "screenshots/shaped_disk.h"

namespace corvane {

namespace {

using std::chrono::days;

/// Keeps an application of the Mac-shaped disk running while this object lives.
class RunningApp {
public:
    explicit RunningApp(const std::string &name) : m_folder("/Applications/" + name + ".app/Contents/MacOS")
    {
        std::filesystem::create_directories(m_folder);
        const std::filesystem::path program = m_folder / "sleeper";
        std::filesystem::copy_file("/System/Volumes/linux/usr/bin/sleep", program,
                                   std::filesystem::copy_options::overwrite_existing);
        m_process.start(QString::fromStdString(program), {QStringLiteral("600")});
        if (!m_process.waitForStarted())
            giveUp(QStringLiteral("%1 cannot be started").arg(QString::fromStdString(name)));
    }
    RunningApp(const RunningApp &) = delete;
    RunningApp &operator=(const RunningApp &) = delete;
    ~RunningApp()
    {
        m_process.kill();
        m_process.waitForFinished();
        std::error_code ignored;
        std::filesystem::remove(m_folder / "sleeper", ignored);
    }

private:
    const std::filesystem::path m_folder;
    QProcess m_process;
};

} // namespace

void Photographer::waitForInventory() const
{
    m_driver.waitFor([&] { return m_store.appsLoaded() && !m_store.appsLoading(); }, QStringLiteral("the inventory"));
}

void Photographer::chooseApp(const QString &name)
{
    m_driver.click(m_driver.itemWhere(
        [&](const QQuickItem &item) {
            return item.property("unused").isValid() && item.property("name").toString() == name;
        },
        name));
    m_driver.pointAtNothing();
}

void Photographer::publishApps(const AppInventory::Result &inventory)
{
    m_store.setApps(inventory, m_store.appsToken());
}

void Photographer::takeUninstaller()
{
    slowDownListings(std::chrono::milliseconds(300));
    show(StorageStore::SidebarItem::uninstaller);
    takeMoving(QStringLiteral("uninstaller-measuring"));
    slowDownListings(std::chrono::milliseconds(0));
    waitForInventory();

    AppInventory::Result inventory{m_store.apps(), m_store.orphanGroups()};
    if (m_example.kind == SystemKind::mac)
        takeMacsApp(inventory);
    else
        takeLinuxApps();
    takeAppsByKeyboard();
    takeOrphans();
    takeUninstallerWithoutApps();
    publishApps(inventory);
    show(StorageStore::SidebarItem::explorer);
}

void Photographer::takeMacsApp(AppInventory::Result &inventory)
{
    // A machine that takes screenshots has no dates of last use.
    const auto setUnusedFor = [&](const std::string &name, days age) {
        const auto app = std::ranges::find(inventory.apps, name, &InstalledApp::name);
        if (app != inventory.apps.end())
            app->lastUsed = currentTime() - age;
    };
    setUnusedFor("Wavetable Live", days(400));
    setUnusedFor("Old Mill Layout", days(1'200));
    setUnusedFor("Lumen Edit", days(285));
    setUnusedFor("Star Atlas", days(500));
    setUnusedFor("Fontwell", days(225));
    publishApps(inventory);
    take(QStringLiteral("uninstaller-none"));
    {
        const RunningApp running(m_example.app.toStdString());
        chooseApp(m_example.app);
        take(QStringLiteral("uninstaller"));
        takeMinimum(QStringLiteral("uninstaller-min"));
        setUnusedFor(m_example.app.toStdString(), days(2));
        publishApps(inventory);
        m_driver.click(m_driver.item(QStringLiteral("uninstaller.uninstall")));
        m_driver.pointAtNothing();
        take(QStringLiteral("uninstall-confirm"));
        dismiss();
    }
}

void Photographer::takeLinuxApps()
{
    take(QStringLiteral("uninstaller-none"));
    chooseApp(m_example.app);
    take(QStringLiteral("uninstaller"));
    takeMinimum(QStringLiteral("uninstaller-min"));
    chooseApp(m_example.otherApp); // for data alone there would be no confirmation
    m_driver.click(m_driver.item(QStringLiteral("uninstaller.uninstall")));
    m_driver.pointAtNothing();
    take(QStringLiteral("uninstall-confirm"));
    dismiss();
    for (const char *kind : {"Signal Deck", "Code Harbor"}) {
        const QString name = QString::fromLatin1(kind);
        chooseApp(name);
        take(QStringLiteral("uninstaller-") + name.toLower().replace(QLatin1Char(' '), QLatin1Char('-')));
    }
}

void Photographer::takeAppsByKeyboard()
{
    chooseApp(m_example.otherApp);
    take(QStringLiteral("uninstaller-") + m_example.otherAppMark);
    tabTo(m_driver.item(QStringLiteral("uninstaller.list")));
    m_driver.press(Qt::Key_Down);
    take(QStringLiteral("uninstaller-keyboard-list"));
    chooseApp(m_example.app);
    tabTo(m_driver.item(QStringLiteral("uninstaller.leftovers")));
    m_driver.press(Qt::Key_Down);
    m_driver.press(Qt::Key_Space);
    take(QStringLiteral("uninstaller-keyboard"));

    QQuickItem &search = m_driver.item(QStringLiteral("uninstaller.search"));
    search.setProperty("text", QStringLiteral("studio"));
    take(QStringLiteral("uninstaller-search"));
    search.setProperty("text", QStringLiteral("nothing has this name"));
    take(QStringLiteral("uninstaller-nomatch"));
    search.setProperty("text", QString());

    const AppInventory::Result found{m_store.apps(), m_store.orphanGroups()};
    AppInventory::Result tidy = found;
    std::ranges::find(tidy.apps, m_example.app.toStdString(), &InstalledApp::name)->leftovers.clear();
    publishApps(tidy);
    take(QStringLiteral("uninstaller-tidy"));
    publishApps(found);
}

void Photographer::takeOrphans()
{
    chooseApp(QStringLiteral("Left behind by deleted apps"));
    if (!m_store.orphanGroups().empty()) {
        std::vector<SelectedEntry> chosen;
        for (const Leftover &item : m_store.orphanGroups().front().items)
            chosen.push_back({item.path, item.size});
        m_store.setSelected(chosen, true);
    }
    take(QStringLiteral("orphans"));
    takeMinimum(QStringLiteral("orphans-min"));
    m_store.clearSelection();
    tabTo(m_driver.item(QStringLiteral("uninstaller.orphanList")));
    take(QStringLiteral("orphans-keyboard"));
    publishApps({m_store.apps(), {}});
    take(QStringLiteral("orphans-none"));
}

void Photographer::takeUninstallerWithoutApps()
{
    publishApps({});
    take(QStringLiteral("uninstaller-empty"));
}

} // namespace corvane
