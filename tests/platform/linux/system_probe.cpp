// Makes one call to the real system and prints the result, so that a test can run it in a fresh process: with a private
// home folder, on a private disk, or with something missing.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "core/removal.h"
#include "platform/host.h"
#include "platform/linux/trash_slot.h"
#include "platform/path.h"
#include "platform/protected_places.h"

namespace {

using namespace corvane;

/// One line per request: "done", or the error code and the message.
template <typename T>
int tell(const Expected<T> &result)
{
    if (result)
        std::cout << "done\n";
    else
        std::cout << result.error().code.value() << ' ' << result.error().description() << '\n';
    return 0;
}

/// The result of `call` for the item's folder and name.
template <typename Call>
auto withHeld(const Host &host, const std::string &path, const Call &call)
{
    const std::string plain = withoutDots(path);
    auto folder = host.files.holdFolder(std::string(containingFolder(plain)));
    using Answer = decltype(call(**folder, plain));
    return folder ? call(**folder, std::string(lastPathComponent(plain))) : Answer(tl::unexpected(folder.error()));
}

Expected<void> erase(HeldFolder &folder, const std::string &name)
{
    return folder.facts(name).and_then([&](const ItemFacts &facts) { return folder.removeItem(name, facts.identity); });
}

/// Removes one item completely, as the program does.
int removeItem(const Host &host, const std::string &path, bool permanently)
{
    const ProtectedLocations &locations = PathGuard::locations();
    const auto steps = Removal::plan({{path, 0}}, permanently, locations, host.trash.trashFolders());
    const RemovalOutcome outcome = Removal::perform(steps, locations, host);
    std::cout << (outcome.failures.empty() ? "done" : outcome.failures.front().line) << '\n';
    return 0;
}

/// The same for everything directly inside the folder, in one request. Prints how many were removed, why others were
/// not, and which parts of a Trash are still open afterwards.
int removeContents(const Host &host, const std::string &folder)
{
    Selection entries;
    for (const auto &each : std::filesystem::directory_iterator(folder))
        entries.emplace(each.path().string(), 0);
    const ProtectedLocations &locations = PathGuard::locations();
    const auto steps = Removal::plan(entries, false, locations, host.trash.trashFolders());
    const RemovalOutcome outcome = Removal::perform(steps, locations, host);
    std::cout << outcome.removed.size() << " done\n";
    for (const RemovalFailure &failure : outcome.failures)
        std::cout << failure.line << '\n';
    for (const auto &each : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code problem;
        const std::string open = std::filesystem::read_symlink(each, problem);
        if (open.find("Trash") != std::string::npos)
            std::cout << open << " is still open\n";
    }
    return 0;
}

/// Runs the shell script in the variable MEANWHILE.
void runMeanwhile()
{
    if (std::system(std::getenv("MEANWHILE")) != 0)
        std::cout << "the script failed\n";
}

/// Moves the items "first" and "second" of a folder to the Trash in one request, with a script run in between.
int trashTwo(const Host &host, const std::string &folder)
{
    const auto trash = [&](const char *name) {
        tell(withHeld(host, joined(folder, name),
                      [&](HeldFolder &held, const std::string &item) { return host.trash.trashItem(held, item); }));
    };
    trash("first");
    runMeanwhile();
    trash("second");
    host.trash.endRequest();
    return 0;
}

/// Prints whether the folder is a mount point before and after a script has run.
int mountMeanwhile(const Host &host, const std::string &folder)
{
    for (const bool isAfter : {false, true}) {
        if (isAfter)
            runMeanwhile();
        const std::vector<std::string> points = host.files.mountPoints().value();
        std::cout << (std::ranges::find(points, folder) != points.end() ? "a mount point" : "a folder") << '\n';
    }
    return 0;
}

/// Moves an item to the Trash and runs the script in MEANWHILE after its place in the Trash has been reserved, and
/// before it is moved there.
int trashInterrupted(const Host &host, const std::string &path)
{
    return tell(withHeld(host, path, [](HeldFolder &folder, const std::string &name) -> Expected<void> {
        Expected<TrashSlot> slot = TrashSlot::make(folder, name);
        if (!slot)
            return tl::unexpected(slot.error());
        runMeanwhile();
        return slot->fill();
    }));
}

int run(std::string_view question, const std::string &subject)
{
    const Host &host = systemHost();
    if (question == "trash")
        return tell(withHeld(host, subject, [&](HeldFolder &folder, const std::string &name) {
            return host.trash.trashItem(folder, name);
        }));
    if (question == "trash-interrupted")
        return trashInterrupted(host, subject);
    if (question == "trash-contents")
        return removeContents(host, subject);
    if (question == "trash-two")
        return trashTwo(host, subject);
    if (question == "mount-meanwhile")
        return mountMeanwhile(host, subject);
    if (question == "erase")
        return tell(withHeld(host, subject, erase));
    if (question == "remove" || question == "remove-permanently")
        return removeItem(host, subject, question == "remove-permanently");
    if (question == "recycle")
        return tell(withHeld(host, subject, [&](HeldFolder &folder, const std::string &name) {
            return host.trash.recycle(folder, name);
        }));
    if (question == "finder")
        return tell(host.trash.trashThroughFinder(subject));
    if (question == "open")
        return tell(host.desktop.openUrl(subject));
    if (question == "log") {
        host.desktop.log(subject);
        return 0;
    }
    if (question == "motion") {
        std::cout << (host.desktop.prefersReducedMotion() ? "less" : "as usual") << '\n';
        return 0;
    }
    if (question == "trash-folders") {
        for (const std::string &folder : host.trash.trashFolders())
            std::cout << folder << '\n';
        return 0;
    }
    if (question == "forget") {
        (void)withHeld(host, subject, [&](HeldFolder &folder, const std::string &name) -> Expected<void> {
            host.trash.forget(folder, name);
            return {};
        });
        return 0;
    }
    if (question == "exact-places") {
        for (const std::string &place : systemProtectedPlaces().exact)
            std::cout << place << '\n';
        return 0;
    }
    if (question == "kind") {
        std::cout << (host.files.systemKind() == SystemKind::mac ? "mac" : "linux") << '\n';
        return 0;
    }
    if (question == "disk-name") {
        std::cout << host.files.diskName().value_or("absent") << '\n';
        return 0;
    }
    if (question == "volume-trashes") {
        for (const std::string &trash : host.files.volumeTrashes())
            std::cout << trash << '\n';
        return 0;
    }
    if (question == "running") {
        std::cout
            << host.applications.running({.bundleID = {}, .bundlePath = subject, .flatpak = {}, .snap = {}}).size()
            << '\n';
        return 0;
    }
    if (question == "mounts") {
        for (const MountedFolder &mount : host.files.mounts()) {
            if (mount.path.starts_with(subject))
                std::cout << mount.path << ' ' << mount.fileSystem << ' ' << mount.shown << '\n';
        }
        return 0;
    }
    if (question == "volume") {
        const VolumeFacts facts = host.volumes.facts(subject);
        const auto tellNumber = [](const std::optional<std::int64_t> &number) {
            return number ? std::to_string(*number) : "absent";
        };
        std::cout << facts.name.value_or("absent") << ' ' << tellNumber(facts.total) << ' '
                  << tellNumber(facts.available) << ' ' << tellNumber(facts.availableForImportantUse) << '\n';
        return 0;
    }
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    return arguments.empty() ? 2 : run(arguments[0], arguments.size() > 1 ? arguments[1] : std::string());
}
