#include "apps/package_files.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <utility>

#include "core/foreign_sum.h"
#include "core/size_walk.h"
#include "platform/path.h"
#include "platform/text.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

constexpr std::string_view entriesFolder = "/usr/share/applications/";
constexpr std::size_t mostEntries = 200; // of one package

/// Whether everything in a folder belongs to one package, as in "/usr/lib/firefox" and "/opt/maker/program".
bool isFolderOfItsOwn(std::string_view folder)
{
    constexpr std::array<std::string_view, 6> around{"/opt",         "/usr/lib",   "/usr/lib64",
                                                     "/usr/libexec", "/usr/share", "/usr/local/lib"};
    // "/usr/lib/x86_64-linux-gnu" is shared.
    return !folder.ends_with("-linux-gnu") &&
           std::ranges::any_of(around, [&](std::string_view each) { return liesBeneath(folder, each); });
}

} // namespace

std::vector<DesktopEntry> PackageFiles::entries() const
{
    std::vector<DesktopEntry> found;
    for (std::string_view rest = m_list; !rest.empty() && found.size() < mostEntries;) {
        const std::string_view line = takeLine(rest);
        const std::string path = line.find(entriesFolder.substr(1)) <= 1 ? m_pathOf(line) : std::string();
        if (!path.starts_with(entriesFolder) || containingFolder(path).size() + 1 != entriesFolder.size())
            continue;
        if (std::optional<DesktopEntry> entry = DesktopEntry::read(path, m_files); entry && entry->isShown)
            found.push_back(*std::move(entry));
    }
    return found;
}

std::vector<std::string> PackageFiles::programs(const std::vector<DesktopEntry> &entries) const
{
    std::set<std::string_view> names;
    for (const DesktopEntry &entry : entries)
        names.insert(lastPathComponent(entry.program));
    names.erase(std::string_view());
    std::set<std::string> linked; // link targets, possibly of another package
    for (const std::string_view name : names) {
        // The administrator may have chosen which of several programs has the name.
        if (const Expected<std::string> real = m_files.realPath(joined("/usr/bin", name)))
            linked.insert(*real);
    }
    std::set<std::string> found;
    for (std::string_view rest = m_list; !rest.empty();) {
        const std::string_view line = takeLine(rest);
        if (!names.contains(lastPathComponent(line)))
            continue;
        const std::string path = m_pathOf(line);
        if (!path.starts_with('/'))
            continue;
        const Expected<ItemFacts> facts = m_files.facts(path);
        const Expected<std::string> real = m_files.realPath(path);
        if (facts && real && facts->type != EntryType::directory)
            (facts->type == EntryType::symbolicLink ? linked : found).insert(*real);
    }
    for (std::string_view rest = m_list; !rest.empty() && !linked.empty();) {
        std::string path = m_pathOf(takeLine(rest));
        if (!linked.contains(path))
            continue;
        // A list also contains shared folders.
        if (const Expected<ItemFacts> facts = m_files.facts(path); facts && facts->type == EntryType::file)
            found.insert(std::move(path));
    }
    std::set<std::string> all = found;
    for (const std::string &program : found) {
        if (const std::string_view folder = containingFolder(program); isFolderOfItsOwn(folder))
            all.emplace(folder);
    }
    return {all.begin(), all.end()};
}

std::int64_t PackageFiles::size(const StopFlag &stop) const
{
    const WalkConditions conditions;
    ForeignSum sum;
    std::int64_t size = 0;
    std::set<std::pair<std::uint64_t, std::uint64_t>> counted;
    for (std::string_view rest = m_list; !rest.empty() && !stop;) {
        const std::string path = m_pathOf(takeLine(rest));
        if (!path.starts_with('/'))
            continue;
        const Expected<ItemFacts> facts = m_files.facts(path);
        if (!facts || facts->type != EntryType::file)
            continue;
        if (facts->identity.isKnown() && !counted.emplace(facts->identity.device, facts->identity.inode).second)
            continue;
        size += sum.counted(fileSize(*facts));
    }
    return size;
}

} // namespace corvane
