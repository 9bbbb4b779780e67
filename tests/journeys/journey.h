#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

#include <QList>
#include <QQuickItem>
#include <QQuickWindow>
#include <QUrl>

#include "core/store/storage_store.h"
#include "journeys/sandbox.h"
#include "main/corvane_app.h"
#include "map/ui/treemap_view.h"
#include "screenshots/window_driver.h"

namespace corvane {

/// A person before the program's window. The home folder is empty and belongs to the test, as does the Trash.
/// Items are named by the text that the window shows of them.
class Journey : public testing::Test {
protected:
    static constexpr std::int64_t mebibyte = 1 << 20;

    Journey();
    ~Journey() override;

    // --- The disk. Paths are relative to the home folder.
    /// A file that occupies that many times 1,048,576 bytes.
    std::string addFile(const std::string &relative, std::int64_t mebibytes) const;
    std::string addFolder(const std::string &relative) const { return folder().makeFolder("home/" + relative); }
    [[nodiscard]] std::string at(const std::string &relative) const { return home() + "/" + relative; }
    [[nodiscard]] bool exists(const std::string &relative) const { return folder().has("home/" + relative); }
    [[nodiscard]] const std::string &home() const { return Sandbox::instance().home(); }
    /// What surrounds the home folder.
    [[nodiscard]] const TemporaryFolder &folder() const { return Sandbox::instance().folder(); }

    /// Sets a key of the settings that the program will read.
    void setDefault(const std::string &key, const std::string &value) const;

    // --- The program
    /// Opens the window of a program that has been run before.
    void open();
    /// Opens the window, whatever the settings hold.
    void launch();
    /// Where what is sent goes, of a program opened later.
    void setSite(const QUrl &site) { m_site = site; }
    /// Where updates come from, of a program opened later.
    void setUpdates(const UpdateConfiguration &updates) { m_updates = updates; }
    /// Ends the program as its main() does when the last window is gone.
    void quit() { m_program.reset(); }
    /// Opens the window and goes to the Space Map.
    void openSpaceMap();
    /// The same, and scans the home folder with the button there.
    void openAndScan();
    [[nodiscard]] bool isScanned() { return store().phase() == StorageStore::Phase::ready; }
    [[nodiscard]] CorvaneApp &program() { return *m_program; }
    [[nodiscard]] StorageStore &store() { return m_program->store(); }
    [[nodiscard]] Services &services() { return m_program->services(); }
    [[nodiscard]] QQuickWindow &window() { return *m_driver->window(); }
    [[nodiscard]] WindowDriver &driver() { return *m_driver; }

    // --- What the window shows
    [[nodiscard]] QQuickItem *textItem(const QString &text);
    [[nodiscard]] bool shows(const QString &text) { return textItem(text) != nullptr; }
    [[nodiscard]] bool isShown(const QString &objectName);
    /// The names of the items that the condition holds for, in the order in which they stand.
    [[nodiscard]] std::vector<std::string> namesFromTheTop(const std::function<bool(const QQuickItem &)> &condition);
    void waitForText(const QString &text);
    /// Lets the window live until the condition holds; the test fails with `what` when it does not come about.
    void waitUntil(const std::function<bool()> &condition, const QString &what) { driver().waitFor(condition, what); }
    [[nodiscard]] TreemapView &map();
    /// Each row of a list that needs no scrolling, from the top: "Movies 12.6 MB".
    [[nodiscard]] std::vector<std::string> rows();
    /// The folders of the breadcrumb, from the root: "home/Movies".
    [[nodiscard]] std::string way();
    /// The names on the map of the items of the folder shown, largest first.
    [[nodiscard]] std::vector<std::string> tiles();
    /// Whether the open menu offers that command.
    [[nodiscard]] bool isEnabledInMenu(const QString &text);
    /// The message at the bottom of the window; empty for none.
    [[nodiscard]] std::string toast();
    void waitForToast();

    // --- What a person does
    void click(const QString &objectName) { driver().click(driver().item(objectName)); }
    void clickText(const QString &text);
    void clickCrumb(const QString &name);
    [[nodiscard]] QQuickItem &row(const QString &name);
    /// On a row's check box.
    void tick(const QString &name);
    /// The middle of an item's tile in the band of its label, so that not what lies inside is meant.
    [[nodiscard]] QPointF tile(const std::string &name);
    void clickTile(const std::string &name, Qt::MouseButton button = Qt::LeftButton);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { driver().press(key, modifiers); }
    /// Presses Tab until the item has the keyboard.
    void tabTo(const QQuickItem &item);
    /// Waits for the folder, and for the map to have come to rest.
    void waitForWay(const std::string &way);
    /// Waits for the selection bar to stand where it belongs.
    void waitForSelectionBar();
    /// Waits for a sheet or a menu to be open.
    void waitForPopup(const QString &objectName);
    void waitForPopupClosed(const QString &objectName);
    void drop(const QList<QUrl> &urls);
    /// A command of the window's own menu.
    void chooseInMenu(const QString &objectName);

private:
    QUrl m_site = AppInfo::site();
    UpdateConfiguration m_updates;
    std::optional<CorvaneApp> m_program;
    std::optional<WindowDriver> m_driver;
};

} // namespace corvane
