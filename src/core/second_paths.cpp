#include "core/second_paths.h"

#include <algorithm>

#include "platform/path.h"

namespace corvane {
namespace {

/// The innermost mount point at or above the path.
std::string mountPointOf(const std::string &path, const std::vector<std::string> &mountPoints)
{
    std::string innermost = "/";
    for (const std::string &point : mountPoints) {
        if (point.size() > innermost.size() && isOrLiesBeneath(path, point))
            innermost = point;
    }
    return innermost;
}

} // namespace

bool SecondPaths::leadToProtected(const std::string &realPath, const std::vector<std::string> &mountPoints)
{
    if (m_mountOfHome.empty() || mountPoints != m_mountPoints) {
        m_mountPoints = mountPoints;
        m_mountOfHome = mountPointOf(m_locations.realHome(), mountPoints);
        m_areMountsLearnt = false;
    }
    // If case is ignored, so are different encodings of accented letters, so text comparison is not sufficient.
    if (!m_locations.ignoresCase() && m_mountOfHome == "/" && mountPointOf(realPath, mountPoints) == "/")
        return false;
    if (!m_areMountsLearnt)
        learnMounts(mountPoints);

    const std::string folder(containingFolder(realPath));
    if (folder != m_folder)
        learnFolder(folder);
    std::vector<Alias> itself;
    addAliases(realPath, itself);
    if (leadsToProtected(realPath, itself) || leadsToProtected(realPath, m_aliasesAround))
        return true;
    // Items deeper inside a protected folder are in no table, so check their other paths. Only paths in the home folder
    // count: some systems mount the whole disk, user files included, inside a protected folder.
    return std::ranges::any_of(m_mounts.otherPathsOf(realPath), [&](const std::string &other) {
        return liesBeneath(other, m_locations.realHome()) && m_locations.isProtectedReally(other);
    });
}

void SecondPaths::learnMounts(const std::vector<std::string> &mountPoints)
{
    m_places.clear();
    for (const std::string &place : m_locations.places()) {
        const std::string mount = mountPointOf(place, mountPoints);
        if (mount != "/" && mount != m_mountOfHome)
            continue;
        if (const Expected<ItemFacts> facts = m_files.facts(place); facts && facts->identity.isKnown())
            m_places.emplace_back(facts->identity, &place);
    }
    m_mounts = MountMap(m_files.mounts());
    m_folder.clear();
    m_areMountsLearnt = true;
}

void SecondPaths::learnFolder(const std::string &folder)
{
    m_folder = folder;
    m_aliasesAround.clear();
    for (std::string around = folder; around.size() > 1; around.resize(containingFolder(around).size()))
        addAliases(around, m_aliasesAround);
}

void SecondPaths::addAliases(const std::string &path, std::vector<Alias> &aliases) const
{
    const Expected<ItemFacts> facts = m_files.facts(path);
    if (!facts || facts->type == EntryType::symbolicLink)
        return;
    for (const auto &[identity, place] : m_places) {
        if (identity == facts->identity && *place != path)
            aliases.push_back({place, path});
    }
}

bool SecondPaths::leadsToProtected(const std::string &realPath, const std::vector<Alias> &aliases) const
{
    return std::ranges::any_of(aliases, [&](const Alias &alias) {
        const std::string inside = realPath.substr(alias.path.size());
        return m_locations.isProtected(*alias.place == "/" ? inside : *alias.place + inside);
    });
}

} // namespace corvane
