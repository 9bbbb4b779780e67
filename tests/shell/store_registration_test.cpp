#include <gtest/gtest.h>

#include "shell/quick_scene.h"
#include "shell/ui/store_registration.h"

namespace corvane {
namespace {

TEST(StoreRegistration, QmlSeesTheStoreThatWasSet)
{
    StorageStore store(systemHost(), PathGuard::locations());
    StoreRegistration::setStore(&store);
    const QuickScene scene("property bool waits: Store.phase === Store.Phase.idle\n"
                           "property int screen: Store.sidebar");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    EXPECT_TRUE(scene.window()->property("waits").toBool());

    store.setSidebar(StorageStore::SidebarItem::cleanup);
    EXPECT_EQ(scene.window()->property("screen").toInt(), static_cast<int>(StorageStore::SidebarItem::cleanup));
}

TEST(StoreRegistration, QmlSetsTheScreenByItsName)
{
    StorageStore store(systemHost(), PathGuard::locations());
    StoreRegistration::setStore(&store);
    const QuickScene scene("Component.onCompleted: Store.sidebar = Store.SidebarItem.duplicates");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::duplicates);
}

TEST(StoreRegistration, StoreOutlivesTheEngine)
{
    StorageStore store(systemHost(), PathGuard::locations());
    bool destroyed = false;
    QObject::connect(&store, &QObject::destroyed, [&destroyed] { destroyed = true; });
    StoreRegistration::setStore(&store);
    {
        const QuickScene scene("property int screen: Store.sidebar");
        ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    }
    EXPECT_FALSE(destroyed);
}

TEST(StoreRegistration, WithoutAStoreNoPresenterIsMade)
{
    StoreRegistration::setStore(nullptr);
    EXPECT_DEATH(static_cast<void>(StoreRegistration::store()), "setStore was not called");
}

} // namespace
} // namespace corvane
