#include "apps/package_records.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "apps/folder_listing.h"
#include "apps/name_pieces.h"
#include "apps/package_databases.h"
#include "apps/package_files.h"
#include "core/concurrent_perform.h"
#include "platform/path.h"
#include "platform/patient_open.h"
#include "platform/text.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

constexpr std::string_view debianFolder = "/var/lib/dpkg";
constexpr std::string_view pacmanFolder = "/var/lib/pacman/local";

// Far beyond real systems: a database of two thousand packages has ten megabytes, the longest file list of a package a
// few.
constexpr std::size_t longestDatabase = 256UL * 1024 * 1024;
constexpr std::size_t longestList = 64UL * 1024 * 1024;
constexpr std::size_t longestDescription = 1024UL * 1024;
constexpr std::size_t mostPackages = 100'000;

std::string textOf(const std::string &path, std::size_t most, FileSystem &files)
{
    const WalkConditions conditions;
    return openPatiently([&] { return files.readFile(path, most); }).value_or(std::string());
}

/// Puts the main entry first: the one with the package's name, otherwise the shortest.
void sortEntries(std::vector<DesktopEntry> &entries, const std::string &package)
{
    std::ranges::sort(entries, [&](const DesktopEntry &a, const DesktopEntry &b) {
        if ((a.id == package) != (b.id == package))
            return a.id == package;
        return std::pair(a.id.size(), a.id) < std::pair(b.id.size(), b.id);
    });
}

/// Completes the record from the package's files. If none of them can be read, the database's size is used.
PackageRecord completed(PackageRecord record, std::int64_t toldSize, const PackageFiles &installed,
                        const StopFlag &stop)
{
    record.size = installed.size(stop);
    if (record.size == 0)
        record.size = toldSize;
    record.programs = installed.programs(record.entries);
    sortEntries(record.entries, record.name);
    return record;
}

std::string wholeLine(std::string_view line)
{
    return std::string(line);
}

/// Reads packages in parallel, each independently; leaves out those without an application.
std::vector<PackageRecord> readEach(std::size_t count,
                                    const std::function<std::optional<PackageRecord>(std::size_t)> &read,
                                    const StopFlag &stop)
{
    std::vector<std::optional<PackageRecord>> found(std::min(count, mostPackages));
    concurrentPerform(found.size(), [&](std::size_t i) {
        if (!stop)
            found[i] = read(i);
    });
    std::vector<PackageRecord> records;
    for (std::optional<PackageRecord> &record : found) {
        if (record)
            records.push_back(*std::move(record));
    }
    return records;
}

// --- Debian

std::vector<PackageRecord> readDebian(FileSystem &files, const StopFlag &stop)
{
    constexpr std::string_view listEnding = ".list";
    const std::string folder = joined(debianFolder, "info");
    std::vector<std::string> names = namesIn(folder, files, stop).value_or(std::vector<std::string>());
    std::erase_if(names, [&](const std::string &name) { return !name.ends_with(listEnding); });
    if (names.empty())
        return {};
    std::ranges::sort(names);
    const auto packages = debianPackages(textOf(joined(debianFolder, "status"), longestDatabase, files));
    const auto tool = packages.find("dpkg");
    const std::string native = tool == packages.end() ? std::string() : tool->second.architecture;
    return readEach(
        names.size(),
        [&](std::size_t i) -> std::optional<PackageRecord> {
            const std::string whole = names[i].substr(0, names[i].size() - listEnding.size());
            const auto package = packages.find(whole);
            if (package == packages.end())
                return std::nullopt;
            const PackageFiles installed(textOf(joined(folder, names[i]), longestList, files), wholeLine, files);
            PackageRecord record{.name = whole.substr(0, whole.find(':')),
                                 .version = package->second.version,
                                 .removeCommand = {},
                                 .entries = installed.entries()};
            if (record.entries.empty())
                return std::nullopt;
            record.removeCommand = "sudo apt remove " + record.name;
            // Given only the name, apt takes the package for the native architecture.
            const std::string &built = package->second.architecture;
            if (!native.empty() && built != native && built != "all" && isPlainName(built))
                record.removeCommand += ":" + built;
            return completed(std::move(record), package->second.size, installed, stop);
        },
        stop);
}

// --- pacman

std::vector<PackageRecord> readPacman(FileSystem &files, const StopFlag &stop)
{
    std::vector<std::string> names =
        namesIn(std::string(pacmanFolder), files, stop).value_or(std::vector<std::string>());
    std::ranges::sort(names);
    // Its paths have no leading slash, and it contains headings.
    const auto pathOf = [](std::string_view line) {
        return line.empty() || line.starts_with('%') ? std::string() : "/" + std::string(line);
    };
    return readEach(
        names.size(),
        [&](std::size_t i) -> std::optional<PackageRecord> {
            const std::string folder = joined(pacmanFolder, names[i]);
            const PackageFiles installed(textOf(joined(folder, "files"), longestList, files), pathOf, files);
            std::vector<DesktopEntry> entries = installed.entries();
            if (entries.empty())
                return std::nullopt;
            const std::string description = textOf(joined(folder, "desc"), longestDescription, files);
            PackageRecord record{.name = std::string(fieldOf(description, "%NAME%")),
                                 .version = upstreamVersion(fieldOf(description, "%VERSION%")),
                                 .removeCommand = {},
                                 .entries = std::move(entries)};
            if (!isPlainName(record.name))
                return std::nullopt;
            record.removeCommand = "sudo pacman -R " + record.name;
            return completed(std::move(record), sizeIn(fieldOf(description, "%SIZE%")), installed, stop);
        },
        stop);
}

// --- rpm

constexpr std::string_view rpm = "/usr/bin/rpm";

/// The removal command of the installed package manager.
std::string rpmRemoval(const std::string &package, FileSystem &files)
{
    for (const std::string manager : {"dnf", "zypper", "yum"}) {
        if (files.exists("/usr/bin/" + manager))
            return "sudo " + manager + " remove " + package;
    }
    return "sudo rpm -e " + package;
}

/// The names of the packages that own a file named like a desktop file.
std::vector<std::string> rpmNames(const ToolRunner &runTool)
{
    const std::optional<std::string> output =
        runTool(std::string(rpm), {"-qa", "--queryformat", "[%{=NAME}\\t%{BASENAMES}\\n]"});
    std::set<std::string> names;
    for (std::string_view rest = output ? *output : std::string_view(); !rest.empty();) {
        const std::string_view line = takeLine(rest);
        const std::size_t tab = line.find('\t');
        if (tab == std::string_view::npos || !desktopFileID(line.substr(tab + 1)))
            continue;
        if (std::string name(line.substr(0, tab)); isPlainName(name) && names.size() < mostPackages)
            names.insert(std::move(name));
    }
    return {names.begin(), names.end()};
}

std::vector<PackageRecord> readRpm(FileSystem &files, const ToolRunner &runTool, const StopFlag &stop)
{
    // Limit for one command line.
    constexpr std::size_t mostAtOnce = 500;
    if (!files.exists(std::string(rpm)) || (!files.exists("/var/lib/rpm") && !files.exists("/usr/lib/sysimage/rpm")))
        return {};
    std::vector<RpmPackage> packages;
    const std::vector<std::string> names = rpmNames(runTool);
    for (std::size_t start = 0; start < names.size() && !stop; start += mostAtOnce) {
        std::vector<std::string> arguments{"-q", "--queryformat",
                                           "%{NAME}\\t%{VERSION}\\t%{LONGSIZE}\\n[%{FILENAMES}\\n]"};
        arguments.insert(arguments.end(), names.begin() + static_cast<std::ptrdiff_t>(start),
                         names.begin() + static_cast<std::ptrdiff_t>(std::min(start + mostAtOnce, names.size())));
        std::ranges::move(rpmPackagesIn(runTool(std::string(rpm), arguments).value_or(std::string())),
                          std::back_inserter(packages));
    }
    return readEach(
        packages.size(),
        [&](std::size_t i) -> std::optional<PackageRecord> {
            RpmPackage &package = packages[i];
            const PackageFiles installed(std::move(package.list), wholeLine, files);
            std::vector<DesktopEntry> entries = installed.entries();
            if (entries.empty() || !isPlainName(package.name))
                return std::nullopt;
            return completed({.name = package.name,
                              .version = package.version,
                              .removeCommand = rpmRemoval(package.name, files),
                              .entries = std::move(entries)},
                             package.size, installed, stop);
        },
        stop);
}

} // namespace

std::vector<PackageRecord> readPackages(FileSystem &files, const ToolRunner &runTool, const StopFlag &stop)
{
    std::vector<PackageRecord> records = readDebian(files, stop);
    std::ranges::move(readPacman(files, stop), std::back_inserter(records));
    std::ranges::move(readRpm(files, runTool, stop), std::back_inserter(records));
    // A package installed for two architectures owns its desktop file twice.
    std::set<std::string> taken;
    std::erase_if(records,
                  [&](const PackageRecord &record) { return !taken.insert(record.entries.front().path).second; });
    return records;
}

} // namespace corvane
