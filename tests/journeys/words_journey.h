#pragma once

#include <algorithm>
#include <ctime>
#include <set>
#include <string>
#include <vector>

#include <QQmlComponent>
#include <QQmlEngine>

#include "journeys/journey.h"
#include "journeys/shown_texts.h"

namespace corvane {

using Item = StorageStore::SidebarItem;

constexpr std::time_t day = 86'400; // seconds
constexpr QSize smallest(1'040, 660);

/// Checks every text that the program can show on Linux for macOS terms.
class WordsJourney : public Journey {
protected:
    void SetUp() override
    {
        if (systemHost().files.systemKind() == SystemKind::mac)
            GTEST_SKIP() << "the tests run on a root that is a Mac's";
    }

    /// Checks the whole window, and expects these texts to be visible at this moment.
    void read(const QString &place, const QStringList &expected = {})
    {
        driver().rest();
        std::set<QString> texts;
        for (const ShownText &shown : textsOf(window()))
            texts.insert(shown.text);
        for (const QString &text : expected)
            EXPECT_TRUE(texts.contains(text)) << "not read on " << place.toStdString() << ": " << text.toStdString();
        for (const std::string &found : macWordsOfOurs())
            ADD_FAILURE() << place.toStdString() << ": " << found;
    }
    /// The macOS terms in the window, except in names of applications installed on this machine.
    std::vector<std::string> macWordsOfOurs()
    {
        std::vector<std::string> found = macWordsIn(window());
        std::erase_if(found, [this](const std::string &text) { return isNameOfAnApp(text); });
        return found;
    }
    void show(Item screen)
    {
        store().setSidebar(screen);
        driver().rest();
    }
    void scanHome()
    {
        store().scanHome();
        waitUntil([&] { return isScanned() && !store().cleanupLoading() && !store().breakdownLoading(); },
                  QStringLiteral("the scan's end"));
    }
    void waitForFigures()
    {
        waitUntil([&] { return store().breakdown() && !store().breakdownLoading() && !store().cleanupLoading(); },
                  QStringLiteral("the disk to be measured"));
    }
    void showApps()
    {
        show(Item::uninstaller);
        waitUntil([&] { return store().appsLoaded() && !store().appsLoading(); }, QStringLiteral("the inventory"));
    }
    void close(const QString &sheet)
    {
        press(Qt::Key_Escape);
        waitForPopupClosed(sheet);
    }
    void chooseApp(const QString &name)
    {
        driver().click(driver().itemWhere(
            [&](const QQuickItem &item) {
                return item.property("unused").isValid() && item.property("index").toInt() >= 0 &&
                       item.property("name").toString() == name;
            },
            name));
        driver().rest();
    }
    void waitForRemoval()
    {
        waitUntil([&] { return !store().isRemoving() && !store().appsLoading() && !toast().empty(); },
                  QStringLiteral("the removal's message"));
    }
    /// Adds a QML item to the window, as if a developer had left it there.
    void put(const QByteArray &body)
    {
        QQmlComponent component(qmlEngine(&window()));
        component.setData("import QtQuick\nimport QtQuick.Controls.Basic\n" + body,
                          QUrl(QStringLiteral("qrc:/forgotten.qml")));
        QObject *const made = component.create(qmlContext(&window()));
        ASSERT_NE(made, nullptr) << component.errorString().toStdString();
        made->setParent(window().contentItem());
        if (auto *const item = qobject_cast<QQuickItem *>(made))
            item->setParentItem(window().contentItem());
    }
    void addOldFolder(const std::string &place) const
    {
        folder().writeFile(place + "/data", mebibyte);
        for (const std::string &item : {place + "/data", place})
            folder().setModified(item, std::time(nullptr) - 60 * day);
    }
    void addLauncher(const std::string &id, const std::string &name, const std::string &program) const
    {
        folder().writeText("data/applications/" + id + ".desktop",
                           "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=\"" + program + "\"\n");
    }

private:
    /// Installed programs on this machine can have any name.
    [[nodiscard]] bool isNameOfAnApp(const std::string &found)
    {
        return std::ranges::any_of(store().apps(), [&](const InstalledApp &app) {
            return !app.path.starts_with(folder().path()) && found.find(app.name) != std::string::npos;
        });
    }
};

} // namespace corvane
