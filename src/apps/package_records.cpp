#include "apps/package_records.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <optional>
#include <set>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "apps/library_listings.h"
#include "apps/name_pieces.h"
#include "core/concurrent_perform.h"
#include "core/foreign_sum.h"
#include "core/size_walk.h"
#include "platform/path.h"
#include "platform/patient_open.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

constexpr std::string_view debianFolder = "/var/lib/dpkg";
constexpr std::string_view pacmanFolder = "/var/lib/pacman/local";
constexpr std::string_view entriesFolder = "/usr/share/applications/";

// What real systems come nowhere near: a database of two thousand packages has ten megabytes, the longest list of a
// package's files a few.
constexpr std::size_t longestDatabase = 256UL * 1024 * 1024;
constexpr std::size_t longestList = 64UL * 1024 * 1024;
constexpr std::size_t longestDescription = 1024UL * 1024;
constexpr std::size_t mostPackages = 100'000;
constexpr std::size_t mostEntries = 200;   // of one package
constexpr std::int64_t bytesOfUnit = 1024; // in which Debian's packages tell their size

std::string textOf(const std::string &path, std::size_t most, FileSystem &files)
{
    const WalkConditions conditions;
    return openPatiently([&] { return files.readFile(path, most); }).value_or(std::string());
}

/// Calls `take` with each line of a text.
void forEachLine(std::string_view text, const std::function<void(std::string_view)> &take)
{
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        take(text.substr(start, end - start));
        start = end + 1;
    }
}

/// "1:5.4.1-2" without what the distribution has put around the application's own version.
std::string upstreamVersion(std::string_view version)
{
    const std::size_t colon = version.find(':');
    if (colon != std::string_view::npos)
        version.remove_prefix(colon + 1);
    return std::string(version.substr(0, version.rfind('-')));
}

std::int64_t number(std::string_view text)
{
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && isPlausibleSize(value) ? value : 0;
}

/// What a package has installed: the paths of its list, absolute.
class InstalledFiles {
public:
    explicit InstalledFiles(std::string list) : m_list(std::move(list)) {}

    /// The applications that it brings along.
    [[nodiscard]] std::vector<DesktopEntry> entries(const std::function<std::string(std::string_view)> &pathOf,
                                                    FileSystem &files) const
    {
        std::vector<DesktopEntry> found;
        forEachLine(m_list, [&](std::string_view line) {
            const std::string path = line.find(entriesFolder.substr(1)) <= 1 ? pathOf(line) : std::string();
            if (found.size() >= mostEntries || !path.starts_with(entriesFolder) ||
                containingFolder(path).size() + 1 != entriesFolder.size())
                return;
            if (std::optional<DesktopEntry> entry = DesktopEntry::read(path, files); entry && entry->isShown)
                found.push_back(*std::move(entry));
        });
        return found;
    }

    /// What they take on the disk, a file of several names once.
    [[nodiscard]] std::int64_t size(const std::function<std::string(std::string_view)> &pathOf, FileSystem &files,
                                    const StopFlag &stop) const
    {
        const WalkConditions conditions;
        ForeignSum sum;
        std::int64_t size = 0;
        std::set<std::pair<std::uint64_t, std::uint64_t>> counted;
        forEachLine(m_list, [&](std::string_view line) {
            const std::string path = stop ? std::string() : pathOf(line);
            if (!path.starts_with('/'))
                return;
            const Expected<ItemFacts> facts = files.facts(path);
            if (!facts || facts->type != EntryType::file)
                return;
            if (facts->identity.isKnown() && !counted.emplace(facts->identity.device, facts->identity.inode).second)
                return;
            size += sum.counted(fileSize(*facts));
        });
        return size;
    }

private:
    std::string m_list;
};

/// The entry that the package is known by comes first: one of its own name, else the shortest.
void sortEntries(std::vector<DesktopEntry> &entries, const std::string &package)
{
    std::ranges::sort(entries, [&](const DesktopEntry &a, const DesktopEntry &b) {
        if ((a.id == package) != (b.id == package))
            return a.id == package;
        return std::pair(a.id.size(), a.id) < std::pair(b.id.size(), b.id);
    });
}

/// Reads packages at once, each on its own; those that bring no application along are left out.
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

struct DebianPackage {
    std::string version;
    std::int64_t size = 0;
};

/// The installed packages by their names, and by their names with their architectures.
std::unordered_map<std::string, DebianPackage> debianPackages(std::string_view status)
{
    std::unordered_map<std::string, DebianPackage> packages;
    std::string name;
    std::string architecture;
    bool isInstalled = false;
    DebianPackage package;
    const auto take = [&] {
        if (isInstalled && isPlainName(name)) {
            packages.emplace(name + ":" + architecture, package);
            packages.emplace(name, package);
        }
        name.clear();
        architecture.clear();
        isInstalled = false;
        package = {};
    };
    forEachLine(status, [&](std::string_view line) {
        const auto value = [&](std::string_view key) -> std::optional<std::string_view> {
            return line.starts_with(key) ? std::optional(line.substr(key.size())) : std::nullopt;
        };
        if (line.empty())
            take();
        else if (const auto named = value("Package: "))
            name = *named;
        else if (const auto state = value("Status: "))
            isInstalled = state->ends_with(" installed");
        else if (const auto built = value("Architecture: "))
            architecture = *built;
        else if (const auto version = value("Version: "))
            package.version = upstreamVersion(*version);
        else if (const auto size = value("Installed-Size: "))
            package.size = number(*size) <= foreignSumLimit / bytesOfUnit ? number(*size) * bytesOfUnit : 0;
    });
    take();
    return packages;
}

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
    const auto pathOf = [](std::string_view line) { return std::string(line); };
    return readEach(
        names.size(),
        [&](std::size_t i) -> std::optional<PackageRecord> {
            const std::string whole = names[i].substr(0, names[i].size() - listEnding.size());
            const auto package = packages.find(whole);
            if (package == packages.end())
                return std::nullopt;
            const InstalledFiles installed(textOf(joined(folder, names[i]), longestList, files));
            PackageRecord record{.name = whole.substr(0, whole.find(':')),
                                 .version = package->second.version,
                                 .removeCommand = {},
                                 .entries = installed.entries(pathOf, files)};
            if (record.entries.empty())
                return std::nullopt;
            record.removeCommand = "sudo apt remove " + record.name;
            record.size = installed.size(pathOf, files, stop);
            if (record.size == 0)
                record.size = package->second.size;
            sortEntries(record.entries, record.name);
            return record;
        },
        stop);
}

// --- pacman

/// The value below a heading such as "%NAME%".
std::string_view fieldOf(std::string_view description, std::string_view heading)
{
    bool isNext = false;
    std::string_view value;
    forEachLine(description, [&](std::string_view line) {
        if (std::exchange(isNext, line == heading) && value.empty())
            value = line;
    });
    return value;
}

std::vector<PackageRecord> readPacman(FileSystem &files, const StopFlag &stop)
{
    std::vector<std::string> names =
        namesIn(std::string(pacmanFolder), files, stop).value_or(std::vector<std::string>());
    std::ranges::sort(names);
    // Its paths begin without a slash; headings stand between them.
    const auto pathOf = [](std::string_view line) {
        return line.empty() || line.starts_with('%') ? std::string() : "/" + std::string(line);
    };
    return readEach(
        names.size(),
        [&](std::size_t i) -> std::optional<PackageRecord> {
            const std::string folder = joined(pacmanFolder, names[i]);
            const InstalledFiles installed(textOf(joined(folder, "files"), longestList, files));
            std::vector<DesktopEntry> entries = installed.entries(pathOf, files);
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
            record.size = installed.size(pathOf, files, stop);
            if (record.size == 0)
                record.size = number(fieldOf(description, "%SIZE%"));
            sortEntries(record.entries, record.name);
            return record;
        },
        stop);
}

} // namespace

std::vector<PackageRecord> readPackages(FileSystem &files, const StopFlag &stop)
{
    std::vector<PackageRecord> records = readDebian(files, stop);
    for (PackageRecord &record : readPacman(files, stop))
        records.push_back(std::move(record));
    return records;
}

} // namespace corvane
