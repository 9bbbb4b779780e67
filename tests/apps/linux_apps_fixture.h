#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "apps/app_inventory.h"
#include "platform/fake_host.h"

namespace corvane::test {

/// A desktop file of an application; `more` are further lines.
inline std::string entryText(const std::string &name, const std::string &exec, const std::string &more = {})
{
    return "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + exec + "\n" + more;
}

/// A Debian desktop in memory with the home folder "/home/u" and a fixed current time.
class LinuxAppsFixture : public testing::Test {
protected:
    LinuxAppsFixture()
    {
        fake.files.setHome(home);
        fake.files.setSystemKind(SystemKind::linuxSystem);
    }

    void addFlatpak(const std::string &id, const std::string &name, const std::string &exec = "flatpak run x",
                    const std::string &root = "/var/lib/flatpak")
    {
        fake.files.addFile(root + "/app/" + id + "/x86_64/stable/1/files/bin/program", 700'000);
        fake.files.addText(root + "/exports/share/applications/" + id + ".desktop", entryText(name, exec), 0);
    }
    void addSnap(const std::string &name, const std::string &title)
    {
        fake.files.addFile("/var/lib/snapd/snaps/" + name + "_1.snap", 300'000);
        fake.files.addFile("/var/lib/snapd/snaps/" + name + "_2.snap", 400'000);
        fake.files.addText("/var/lib/snapd/desktop/applications/" + name + "_" + name + ".desktop",
                           entryText(title, "env HINT=x /snap/bin/" + name), 0);
    }
    /// Adds a package to Debian's database, with a program of 500 kB and a desktop file.
    void addPackage(const std::string &name, const std::string &entry, const std::string &text,
                    const std::string &listName = {})
    {
        const std::string path = "/usr/share/applications/" + entry + ".desktop";
        fake.files.addText(path, text, 0);
        fake.files.addFile("/usr/bin/" + name, 500'000);
        status += "Package: " + name + "\nStatus: install ok installed\nInstalled-Size: 9\nArchitecture: amd64\n" +
                  "Version: 1:2.5-3\nDescription: x\n y\n\n";
        fake.files.addText("/var/lib/dpkg/info/" + (listName.empty() ? name : listName) + ".list",
                           "/.\n/usr\n/usr/bin\n/usr/bin/" + name + "\n" + path + "\n");
    }
    /// Replaces the item at this path by a file with this text.
    void setText(const std::string &path, std::string text, std::int64_t allocated = 0)
    {
        if (fake.files.has(path))
            fake.files.take(path);
        fake.files.addText(path, std::move(text), allocated);
    }
    void addItem(const std::string &relative, std::int64_t size = 1'000, Time modified = longAgo)
    {
        fake.files.addFile(at(relative), size, modified);
    }
    /// Adds a folder in the home with one file, both last modified at this time.
    void addData(const std::string &relative, std::int64_t size = 1'000, Time modified = longAgo)
    {
        fake.files.addFolder(at(relative), modified);
        addItem(relative + "/data", size, modified);
    }

    AppInventory::Result load()
    {
        if (!status.empty())
            setText("/var/lib/dpkg/status", status);
        return AppInventory::load(fake.host(), locations, now);
    }
    InstalledApp app(const std::string &name)
    {
        const AppInventory::Result result = load();
        const auto found = std::ranges::find(result.apps, name, &InstalledApp::name);
        if (found == result.apps.end()) {
            ADD_FAILURE() << "no application " << name;
            return {};
        }
        return *found;
    }
    std::vector<std::string> names()
    {
        std::vector<std::string> found;
        for (const InstalledApp &each : load().apps)
            found.push_back(each.name);
        return found;
    }
    /// The application's data with this match, relative to the home.
    std::vector<std::string> dataOf(const std::string &name, Leftover::Match match)
    {
        std::vector<std::string> found;
        for (const Leftover &leftover : app(name).leftovers) {
            if (leftover.match == match)
                found.push_back(leftover.path.substr(home.size() + 1));
        }
        return found;
    }
    std::vector<std::string> orphans()
    {
        std::vector<std::string> found;
        for (const OrphanGroup &group : load().orphanGroups) {
            for (const Leftover &item : group.items) {
                EXPECT_EQ(item.match, Leftover::Match::orphan);
                found.push_back(item.path.substr(home.size() + 1));
            }
        }
        return found;
    }
    [[nodiscard]] std::string at(const std::string &relative) const { return home + "/" + relative; }

    static constexpr Time now{std::chrono::sys_days{std::chrono::year{2025} / 11 / 19} + std::chrono::hours{12}};
    static constexpr Time longAgo = now - std::chrono::days{400};

    const std::string home = "/home/u";
    std::string status;
    FakeHost fake;
    ProtectedLocations locations{home, ProtectedPlaces{}};
};

} // namespace corvane::test
