#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include <QTest>

#include "apps/apps_ui_fixture.h"
#include "core/store/qt_words.h"
#include "shell/screen_scene.h"
#include "support/patience.h"

namespace corvane {

inline const QString deckRow = QStringLiteral("Signal Deck, app 740 MB + data 6.4 GB, 7.14 GB");
inline const QString atlasRow = QStringLiteral("Atlas, app 900 MB, 900 MB");
inline const QString kiteRow = QStringLiteral("Kite Mail, app 330 MB, 330 MB");
inline const QString orphansRow = QStringLiteral("Left behind by deleted apps, 2 items, 6 MB");
inline const QString deckID = QStringLiteral("com.signaldeck.desktop");

/// The whole screen in its own window, operated by mouse and keyboard.
class UninstallerScreenTest : public test::AppsFixture {
protected:
    void addThree()
    {
        addSignalDeck();
        addApp("Kite Mail", 330'000'000, "com.kitemail.app");
        addApp("Atlas", 900'000'000, "com.starchart.atlas");
        addOrphan("com.lathe.cadpro", "Application Support/com.lathe.cadpro", 4'000'000);
        addOrphan("com.lathe.cadpro", "Caches/com.lathe.cadpro", 2'000'000);
    }
    void show(QSize size = {1064, 744})
    {
        scene = std::make_unique<ScreenScene>("Apps/UninstallerScreen", size);
        ASSERT_TRUE(scene->isShown()) << scene->errors().toStdString();
    }
    void publishAndShow()
    {
        addThree();
        publish();
        show();
    }
    void openSignalDeck()
    {
        publishAndShow();
        choose(deckRow);
    }
    void openQuestion()
    {
        openSignalDeck();
        scene->click(button(QStringLiteral("Uninstall…")));
        ASSERT_TRUE(QTest::qWaitFor([&] { return isAsking(); }, patience));
    }

    void choose(const QString &description)
    {
        scene->click(row(description));
        settle();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        scene->key(key, modifiers);
        settle();
    }
    static void settle() { ScreenScene::settle(); }

    [[nodiscard]] QQuickItem *row(const QString &description) const
    {
        return scene->named(description, QAccessible::ListItem);
    }
    [[nodiscard]] QQuickItem *button(const QString &name) const { return scene->named(name, QAccessible::Button); }
    [[nodiscard]] QQuickItem *textItem(const QString &text) const
    {
        return scene->find([&](QQuickItem *item) { return item->property("text").toString() == text; });
    }
    [[nodiscard]] bool shows(const QString &text) const { return textItem(text) != nullptr; }
    [[nodiscard]] bool isVisible(const char *objectName) const { return scene->visibleItem(objectName) != nullptr; }
    [[nodiscard]] bool isAsking() const { return scene->isOpen("uninstallConfirm"); }
    [[nodiscard]] bool isChosen(const QString &description) const
    {
        QQuickItem *const found = row(description);
        return found != nullptr && QuickScene::accessible(found)->state().selected;
    }
    /// The check boxes with this accessible name, from the top.
    [[nodiscard]] std::vector<QQuickItem *> checkBoxes(const QString &name) const
    {
        std::vector<QQuickItem *> found;
        scene->visit([&](QQuickItem &item) {
            if (QuickScene::accessibleRole(&item) == QAccessible::CheckBox && QuickScene::accessibleName(&item) == name)
                found.push_back(&item);
        });
        std::ranges::sort(found, {}, [](QQuickItem *item) { return item->mapToScene({}).y(); });
        return found;
    }
    [[nodiscard]] static bool isChecked(QQuickItem *item) { return QuickScene::accessible(item)->state().checked; }
    [[nodiscard]] QStringList appNames() const
    {
        std::vector<QQuickItem *> rows;
        scene->visit([&](QQuickItem &item) {
            // Skip delegates that the list keeps for reuse.
            if (item.property("unused").isValid() && !item.property("orphans").toBool() &&
                item.property("index").toInt() >= 0)
                rows.push_back(&item);
        });
        std::ranges::sort(rows, {}, [](QQuickItem *item) { return item->mapToScene({}).y(); });
        QStringList names;
        for (const QQuickItem *item : rows)
            names << item->property("name").toString();
        return names;
    }
    void tabTo(const char *objectName) { ASSERT_TRUE(scene->tabTo(scene->item(objectName))); }
    void type(const QString &text)
    {
        for (const QChar letter : text)
            QTest::keyClick(scene->window(), letter.toLatin1());
    }
    void clickSegment(const QString &name) { scene->click(scene->named(name, QAccessible::RadioButton)); }
    void waitForToast()
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return store.toast().has_value(); }, patience));
    }

    std::unique_ptr<ScreenScene> scene;
};

} // namespace corvane
