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

/// A test that uses the program's window like a person. The home folder is initially empty and private to the test, as
/// is the Trash. Items are identified by their visible text.
class Journey : public testing::Test {
protected:
    static constexpr std::int64_t mebibyte = 1 << 20;

    Journey();
    ~Journey() override;

    // --- The disk. Paths are relative to the home folder.
    /// Adds a file that occupies this many mebibytes.
    std::string addFile(const std::string &relative, std::int64_t mebibytes) const;
    std::string addFolder(const std::string &relative) const { return folder().makeFolder("home/" + relative); }
    [[nodiscard]] std::string at(const std::string &relative) const { return home() + "/" + relative; }
    [[nodiscard]] bool exists(const std::string &relative) const { return folder().has("home/" + relative); }
    [[nodiscard]] const std::string &home() const { return Sandbox::instance().home(); }
    /// The folder that contains the home folder.
    [[nodiscard]] const TemporaryFolder &folder() const { return Sandbox::instance().folder(); }

    /// Sets a key in the settings that the program will read.
    void setDefault(const std::string &key, const std::string &value) const;

    // --- The program
    /// Opens the window of a program that is not run for the first time.
    void open();
    /// Opens the window without changing the settings.
    void launch();
    /// Sets the server for programs opened later.
    void setSite(const QUrl &site) { m_site = site; }
    /// Sets the update feed for programs opened later.
    void setUpdates(const UpdateConfiguration &updates) { m_updates = updates; }
    /// Ends the program as its main() does after the last window is closed.
    void quit() { m_program.reset(); }
    /// Opens the window and goes to the Space Map.
    void openSpaceMap();
    /// The same, then scans the home folder with the button there.
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
    /// The names of the items that satisfy the condition, in visual order.
    [[nodiscard]] std::vector<std::string> namesFromTheTop(const std::function<bool(const QQuickItem &)> &condition);
    void waitForText(const QString &text);
    /// Processes events until the condition holds; fails the test with `what` on timeout.
    void waitUntil(const std::function<bool()> &condition, const QString &what) { driver().waitFor(condition, what); }
    [[nodiscard]] TreemapView &map();
    /// The rows of a list that fits without scrolling, from the top: "Movies 12.6 MB".
    [[nodiscard]] std::vector<std::string> rows();
    /// The folders of the breadcrumb, from the root: "home/Movies".
    [[nodiscard]] std::string way();
    /// The names of the current folder's items in the map, largest first.
    [[nodiscard]] std::vector<std::string> tiles();
    /// Whether the command is enabled in the open menu.
    [[nodiscard]] bool isEnabledInMenu(const QString &text);
    /// The text of the current toast; empty for none.
    [[nodiscard]] std::string toast();
    void waitForToast();

    // --- What a person does
    void click(const QString &objectName) { driver().click(driver().item(objectName)); }
    void clickText(const QString &text);
    void clickCrumb(const QString &name);
    [[nodiscard]] QQuickItem &row(const QString &name);
    /// Clicks a row's check box.
    void tick(const QString &name);
    /// The middle of a tile's label band, which its nested tiles do not cover.
    [[nodiscard]] QPointF tile(const std::string &name);
    void clickTile(const std::string &name, Qt::MouseButton button = Qt::LeftButton);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { driver().press(key, modifiers); }
    /// Presses Tab until the item has the focus.
    void tabTo(const QQuickItem &item);
    /// Waits until the folder is shown and the map has stopped moving.
    void waitForWay(const std::string &way);
    /// Waits until the selection bar is in its final position.
    void waitForSelectionBar();
    /// Waits until a sheet or menu is open.
    void waitForPopup(const QString &objectName);
    void waitForPopupClosed(const QString &objectName);
    void drop(const QList<QUrl> &urls);
    /// Chooses a command in the window's own menu.
    void chooseInMenu(const QString &objectName);

private:
    QUrl m_site = AppInfo::site();
    UpdateConfiguration m_updates;
    std::optional<CorvaneApp> m_program;
    std::optional<WindowDriver> m_driver;
};

} // namespace corvane
