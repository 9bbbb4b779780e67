#include "cleanup/cleanup_catalog.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

constexpr auto safe = CleanupRisk::safe;
constexpr auto review = CleanupRisk::review;
constexpr auto systemGroup = CleanupGroup::system;
constexpr auto developer = CleanupGroup::developer;
constexpr auto personal = CleanupGroup::personal;
using Tint = CleanupTint;

// The texts are part of the product: every change must be intentional.
TEST(CleanupCatalogTable, IsExactlyThis)
{
    const CleanupDefinition expected[] = {
        {"caches", "App Caches",
         "Temporary data apps rebuild automatically. Apps may feel a bit slower on first launch.", "archivebox",
         Tint::blue, safe, systemGroup, "Library/Caches"},
        {"logs", "Logs", "Diagnostic logs written by apps and the system.", "doc.text.magnifyingglass", Tint::gray,
         safe, systemGroup, "Library/Logs"},
        {"mail", "Mail Attachments", "Attachments Mail downloaded when you opened them. They stay available in Mail.",
         "paperclip", Tint::cyan, safe, systemGroup, "Library/Containers/com.apple.mail/Data/Library/Mail Downloads"},
        {"trash", "Trash", "Items already in your Trash. Removing them here deletes them permanently.", "trash",
         Tint::red, safe, systemGroup, ".Trash"},
        {"deriveddata", "Xcode DerivedData", "Build products & indexes. Xcode regenerates them on the next build.",
         "hammer", Tint::blue, safe, developer, "Library/Developer/Xcode/DerivedData"},
        {"devicesupport", "iOS Device Support",
         "Debug symbols for devices you've connected. Re-downloaded when needed.", "iphone", Tint::indigo, safe,
         developer, "Library/Developer/Xcode/iOS DeviceSupport"},
        {"archives", "Xcode Archives", "Old app archives. Keep the ones you may need to re-symbolicate crashes.",
         "shippingbox", Tint::purple, review, developer, "Library/Developer/Xcode/Archives"},
        {"simcaches", "Simulator Caches", "CoreSimulator caches, safe to clear.", "ipad.and.iphone", Tint::teal, safe,
         developer, "Library/Developer/CoreSimulator/Caches"},
        {"simdevices", "Simulator Devices",
         "Simulators and their app data. Tip: `xcrun simctl delete unavailable` removes only stale ones.",
         "rectangle.on.rectangle", Tint::teal, review, developer, "Library/Developer/CoreSimulator/Devices"},
        {"gradlecaches", "Gradle Caches", "Downloaded dependencies & transforms. Re-downloaded on the next build.",
         "cube.box", Tint::green, safe, developer, ".gradle/caches"},
        {"gradlewrapper", "Gradle Wrapper Distributions", "Old Gradle versions downloaded by projects' wrappers.",
         "square.stack.3d.down.right", Tint::green, safe, developer, ".gradle/wrapper/dists"},
        {"androidimages", "Android System Images",
         "Emulator system images in your Android SDK. Remove versions you don't test on.", "cpu", Tint::mint, review,
         developer, "Library/Android/sdk/system-images"},
        {"avd", "Android Virtual Devices", "Emulator devices and their disks/snapshots.", "smartphone", Tint::mint,
         review, developer, ".android/avd"},
        {"npm", "npm Cache", "npm's download cache. Safe to clear; packages re-download on install.",
         "shippingbox.circle", Tint::red, safe, developer, ".npm/_cacache"},
        {"pnpm", "pnpm Store", "Shared pnpm package store.", "shippingbox.circle", Tint::orange, safe, developer,
         "Library/pnpm/store"},
        {"docker", "Docker Disk",
         "Docker's VM disk. Deleting wipes all images & containers — prefer `docker system prune`.", "externaldrive",
         Tint::blue, review, developer, "Library/Containers/com.docker.docker/Data/vms"},
        {"downloads", "Downloads", "Everything in your Downloads folder — installers and one-off files pile up here.",
         "arrow.down.circle", Tint::blue, review, personal, "Downloads"},
        {"backups", "iPhone & iPad Backups",
         "Local device backups made by Finder. Make sure you have a newer backup elsewhere.", "iphone.gen3", Tint::gray,
         review, personal, "Library/Application Support/MobileSync/Backup"},
    };
    ASSERT_EQ(CleanupCatalog::definitions.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const CleanupDefinition &row = CleanupCatalog::definitions[i];
        EXPECT_EQ(row.id, expected[i].id);
        EXPECT_EQ(row.title, expected[i].title) << row.id;
        EXPECT_EQ(row.detail, expected[i].detail) << row.id;
        EXPECT_EQ(row.symbol, expected[i].symbol) << row.id;
        EXPECT_EQ(row.tint, expected[i].tint) << row.id;
        EXPECT_EQ(row.risk, expected[i].risk) << row.id;
        EXPECT_EQ(row.group, expected[i].group) << row.id;
        EXPECT_EQ(row.relativePath, expected[i].relativePath) << row.id;
    }
}

} // namespace
} // namespace corvane
