#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "apps/app_inventory.h"
#include "platform/fake_host.h"

namespace corvane::test {

/// An Info.plist with these string values.
inline std::string infoPlist(const std::map<std::string, std::string> &values)
{
    std::string text = "<plist version=\"1.0\"><dict>";
    for (const auto &[key, value] : values)
        text += "<key>" + key + "</key><string>" + value + "</string>";
    return text + "</dict></plist>";
}

/// A Mac in memory with the home folder "/Users/u" and a fixed current time.
class AppFixture : public testing::Test {
protected:
    AppFixture()
    {
        fake.files.setHome(home);
        fake.files.setSystemKind(SystemKind::mac);
    }

    /// Adds an application whose bundle, including its Info.plist, has the given size.
    void addApp(const std::string &path, const std::string &bundleID, std::int64_t size = 1'000'000)
    {
        addBundle(path, infoPlist({{"CFBundleIdentifier", bundleID}}), size);
    }
    void addBundle(const std::string &path, const std::string &plist, std::int64_t size = 1'000'000)
    {
        fake.files.addText(path + "/Contents/Info.plist", plist, 1'000);
        fake.files.addFile(path + "/Contents/MacOS/program", size - 1'000);
    }
    /// Adds a file to the Library.
    void addItem(const std::string &relative, std::int64_t size = 1'000, Time modified = longAgo)
    {
        fake.files.addFile(inLibrary(relative), size, modified);
    }

    [[nodiscard]] AppInventory::Result load() { return AppInventory::load(host, locations, now); }

    /// The leftovers of the application with this identifier; fails the test if there is none.
    [[nodiscard]] std::vector<Leftover> leftoversOf(const std::string &bundleID)
    {
        AppInventory::Result result = load();
        const auto app = std::ranges::find(result.apps, bundleID, &InstalledApp::bundleID);
        if (app == result.apps.end()) {
            ADD_FAILURE() << "no application " << bundleID;
            return {};
        }
        return app->leftovers;
    }

    /// The paths of the leftovers with this match, relative to the Library, in their order.
    [[nodiscard]] std::vector<std::string> paths(const std::vector<Leftover> &leftovers, Leftover::Match match) const
    {
        std::vector<std::string> found;
        for (const Leftover &leftover : leftovers) {
            if (leftover.match == match)
                found.push_back(leftover.path.substr(inLibrary("").size()));
        }
        return found;
    }
    [[nodiscard]] std::vector<std::string> exactOf(const std::string &bundleID)
    {
        return paths(leftoversOf(bundleID), Leftover::Match::exact);
    }
    [[nodiscard]] std::vector<std::string> namedOf(const std::string &bundleID)
    {
        return paths(leftoversOf(bundleID), Leftover::Match::name);
    }

    [[nodiscard]] std::string inLibrary(const std::string &relative) const { return home + "/Library/" + relative; }

    static constexpr Time now{std::chrono::sys_days{std::chrono::year{2025} / 11 / 19} + std::chrono::hours{12}};
    static constexpr Time longAgo = now - std::chrono::days{400};

    const std::string home = "/Users/u";
    FakeHost fake;
    Host host = fake.host();
    ProtectedLocations locations{home, ProtectedPlaces{}};
};

} // namespace corvane::test
