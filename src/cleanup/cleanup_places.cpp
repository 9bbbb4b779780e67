#include "cleanup/cleanup_places.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <utility>

#include "cleanup/cleanup_catalog.h"
#include "core/scanner.h"
#include "platform/path.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

constexpr std::string_view trashFolder = ".Trash";

} // namespace

CleanupPlaces::CleanupPlaces(FileSystem &files) : m_files(files), m_rule(files), m_mounts(files.mounts())
{
    const WalkConditions conditions;
    const CleanupTable &table = cleanupTableOf(files.systemKind());
    for (const CleanupDefinition &definition : CleanupCatalog::definitions)
        m_rows.push_back(find(definition));
    for (const CleanupDefinition &definition : table.rows)
        m_rows.push_back(find(definition));
    if (table.countsOnce)
        makeDisjoint();
}

const CleanupPlaces::Row &CleanupPlaces::rowOf(const CleanupDefinition &definition) const
{
    return *std::ranges::find(m_rows, &definition, &Row::def);
}

CleanupPlaces::Row CleanupPlaces::find(const CleanupDefinition &definition) const
{
    Row row;
    row.def = &definition;
    add(definition.relativePath, row);
    for (const std::string_view path : definition.morePaths) {
        if (!path.empty())
            add(path, row);
    }
    if (definition.relativePath == trashFolder) {
        for (std::string &trash : m_rule.trashesOfVolumes())
            addPlace(std::move(trash), {}, row);
    }
    if (!row.places.empty() && row.places.front().name.empty())
        row.path = row.places.front().path;
    return row;
}

void CleanupPlaces::add(std::string_view path, Row &row) const
{
    constexpr std::string_view everyFolder = "/*/";
    const std::size_t position = path.find(everyFolder);
    if (position != std::string_view::npos) {
        addEvery(path.substr(0, position), path.substr(position + everyFolder.size()), row);
        return;
    }
    std::optional<std::string> place = m_rule.placeFor(path);
    if (!place)
        return;
    if (row.path.empty())
        row.path = *place;
    addPlace(*std::move(place), {}, row);
}

void CleanupPlaces::addEvery(std::string_view folder, std::string_view inEach, Row &row) const
{
    const std::optional<std::string> around = m_rule.placeFor(folder);
    if (!around)
        return;
    if (row.path.empty())
        row.path = *around;
    if (!m_files.exists(*around))
        return;
    std::vector<std::string> names;
    auto opened = m_files.openFolder(*around);
    if (!opened || !(*opened)->list([&](const DirectoryEntry &entry) {
            if (entry.type == EntryType::directory)
                names.emplace_back(entry.name);
            return names.size() > Scanner::keptEntriesLimit ? Listing::stop : Listing::goOn;
        })) {
        row.isListed = false;
        return;
    }
    for (std::string &name : names) {
        // Check each one separately: any of them may be mounted, or be behind a link.
        std::optional<std::string> place = m_rule.placeFor(joined(joined(folder, name), inEach));
        if (!place)
            continue;
        const auto facts = m_files.facts(*place);
        if (facts && facts->type == EntryType::directory)
            addPlace(*std::move(place), std::move(name), row);
    }
}

void CleanupPlaces::addPlace(std::string path, std::string name, Row &row) const
{
    if (!m_files.exists(path))
        return;
    std::string realPath = m_files.realPath(path).value_or(path);
    row.places.push_back({std::move(path), std::move(realPath), std::move(name)});
}

void CleanupPlaces::makeDisjoint()
{
    struct Owner {
        std::size_t row;
        std::size_t place;
    };
    const auto isReview = [&](const Row &row) { return row.def->risk == CleanupRisk::review; };
    // A folder that is mounted twice has several paths; the alphabetically first one represents it.
    std::map<std::string, Owner> owners;
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        for (std::size_t place = 0; place < m_rows[row].places.size(); ++place) {
            const std::string &path = m_rows[row].places[place].realPath;
            std::string first = path;
            m_countedElsewhere.add(path);
            for (const std::string &other : m_mounts.otherPathsOf(path)) {
                m_countedElsewhere.add(other);
                first = std::min(first, other);
            }
            const auto [owner, isNew] = owners.try_emplace(first, Owner{row, place});
            // A folder that needs review must never be offered as safe. Otherwise later rows are more specific.
            if (!isNew && owner->second.row != row && (isReview(m_rows[row]) || !isReview(m_rows[owner->second.row])))
                owner->second = {row, place};
        }
    }
    std::vector<std::vector<Place>> kept(m_rows.size());
    for (auto &[path, owner] : owners)
        kept[owner.row].push_back(std::move(m_rows[owner.row].places[owner.place]));
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        m_rows[row].places = std::move(kept[row]);
}

} // namespace corvane
