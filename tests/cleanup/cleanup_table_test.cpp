#include "cleanup/cleanup_catalog.h"

#include <array>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "core/systems/linux_cleanup.h"

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

// A misspelled place measures nothing, or something else.
TEST(CleanupCatalogTable, OfALinuxSystemIsExactlyThis)
{
    const struct {
        std::string_view id;
        std::string_view title;
        CleanupRisk risk;
        CleanupGroup group;
        std::string_view place;
        std::array<std::string_view, 3> morePlaces = {};
    } expected[] = {
        {"thumbnails", "Thumbnails", safe, systemGroup, ".cache/thumbnails", {".thumbnails"}},
        {"flatpakcaches", "Flatpak App Caches", safe, systemGroup, ".var/app/*/cache"},
        {"snapcaches", "Snap App Caches", safe, systemGroup, "snap/*/common/.cache"},
        {"shadercaches",
         "Game Shader Caches",
         safe,
         systemGroup,
         ".local/share/Steam/steamapps/shadercache",
         {".steam/steam/steamapps/shadercache",
          ".var/app/com.valvesoftware.Steam/.local/share/Steam/steamapps/shadercache"}},
        {"crashdumps",
         "Crash Dumps",
         safe,
         systemGroup,
         ".cache/drkonqi",
         {".cache/abrt", ".mozilla/firefox/Crash Reports", ".config/google-chrome/Crash Reports"}},
        {"yarn", "Yarn Cache", safe, developer, ".cache/yarn", {".yarn/berry/cache"}},
        {"pip", "pip Cache", safe, developer, ".cache/pip"},
        {"uv", "uv Cache", safe, developer, ".cache/uv"},
        {"cargo", "Cargo Registry", safe, developer, ".cargo/registry"},
        {"gobuild", "Go Build Cache", safe, developer, ".cache/go-build"},
        {"gomodules", "Go Module Cache", safe, developer, "go/pkg/mod"},
        {"maven", "Maven Repository", safe, developer, ".m2/repository"},
        {"ccache", "ccache", safe, developer, ".cache/ccache", {".ccache"}},
        {"sccache", "sccache", safe, developer, ".cache/sccache"},
        {"conda",
         "Conda Packages",
         safe,
         developer,
         ".conda/pkgs",
         {"miniconda3/pkgs", "anaconda3/pkgs", "miniforge3/pkgs"}},
        {"jetbrains", "JetBrains Caches", safe, developer, ".cache/JetBrains"},
        {"containers", "Podman Containers", review, developer, ".local/share/containers/storage"},
        {"hfmodels", "Hugging Face Models", review, developer, ".cache/huggingface", {".cache/huggingface/hub"}},
        {"ollama", "Ollama Models", review, developer, ".ollama/models"},
        {"vmdisks",
         "Virtual Machine Disks",
         review,
         personal,
         ".local/share/gnome-boxes/images",
         {".local/share/libvirt/images", ".var/app/org.gnome.Boxes/data/gnome-boxes/images"}},
        {"virtualbox", "VirtualBox Machines", review, personal, "VirtualBox VMs"},
    };
    std::vector<std::string_view> ids;
    for (const CleanupDefinition &row : linuxCleanup.rows)
        ids.push_back(row.id);
    std::vector<std::string_view> expectedIds;
    for (const auto &row : expected)
        expectedIds.push_back(row.id);
    ASSERT_EQ(ids, expectedIds);
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const CleanupDefinition &row = linuxCleanup.rows[i];
        EXPECT_EQ(row.id, expected[i].id);
        EXPECT_EQ(row.title, expected[i].title) << row.id;
        EXPECT_EQ(row.risk, expected[i].risk) << row.id;
        EXPECT_EQ(row.group, expected[i].group) << row.id;
        EXPECT_EQ(row.relativePath, expected[i].place) << row.id;
        EXPECT_EQ(row.morePaths, expected[i].morePlaces) << row.id;
    }
}

} // namespace
} // namespace corvane
