#include "lists/listed_files.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "core/checked_add.h"
#include "core/concurrent_perform.h"

namespace corvane {

namespace {

/// The first eight bytes of a text as a number with the same order: most names already differ there.
std::uint64_t startOf(std::string_view text)
{
    std::uint64_t start = 0;
    for (std::size_t i = 0; i < sizeof start; ++i)
        start = start << 8U | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
    return start;
}

} // namespace

ListedFiles::ListedFiles(FileList files, Casing casing, std::string home)
    : m_files(std::move(files)), m_casing(casing), m_home(std::move(home))
{
    m_sizes.reserve(m_files.size());
    m_dates.reserve(m_files.size());
    for (const auto &file : m_files) {
        m_sizes.push_back(file->size);
        m_dates.push_back(file->modified);
    }
}

void ListedFiles::prepare()
{
    concurrentPerform(fileColumnCount, [this](std::size_t column) {
        Order &order = m_orders[column];
        switch (static_cast<FileColumn>(column)) {
        case FileColumn::name:
            m_names = SearchableNames(m_files, m_casing);
            order = orderByName();
            break;
        case FileColumn::size:
            order = orderBy([this](std::uint32_t a, std::uint32_t b) { return m_sizes[a] < m_sizes[b]; });
            break;
        case FileColumn::kind:
            m_types.resize(m_files.size());
            std::ranges::transform(m_files, m_types.begin(), [](const auto &file) { return typeOf(*file); });
            order = orderByRank(kindRanks());
            break;
        case FileColumn::modified:
            order = orderBy([this](std::uint32_t a, std::uint32_t b) { return m_dates[a] < m_dates[b]; });
            break;
        case FileColumn::location:
            order = orderByRank(locationRanks());
            break;
        }
    });
}

// --- The orders

ListedFiles::Order ListedFiles::orderBy(const std::function<bool(std::uint32_t, std::uint32_t)> &isLess) const
{
    Order order;
    order.places.resize(m_files.size());
    std::iota(order.places.begin(), order.places.end(), 0U);
    std::ranges::stable_sort(order.places, isLess);
    order.startsGroup.resize(order.places.size());
    for (std::size_t i = 0; i < order.places.size(); ++i)
        order.startsGroup[i] = i == 0 || isLess(order.places[i - 1], order.places[i]);
    return order;
}

ListedFiles::Order ListedFiles::orderByName() const
{
    std::vector<std::uint64_t> starts(m_files.size());
    for (std::size_t i = 0; i < starts.size(); ++i)
        starts[i] = startOf(m_names.at(i));
    return orderBy([&](std::uint32_t a, std::uint32_t b) {
        return starts[a] != starts[b] ? starts[a] < starts[b] : m_names.at(a) < m_names.at(b);
    });
}

ListedFiles::Order ListedFiles::orderByRank(const std::vector<std::uint32_t> &ranks) const
{
    return orderBy([&](std::uint32_t a, std::uint32_t b) { return ranks[a] < ranks[b]; });
}

std::vector<std::uint32_t> ListedFiles::kindRanks() const
{
    std::array<FileType, FileType::count> types = FileType::allCases();
    std::ranges::sort(types, {}, [](FileType type) { return type.label(); });
    std::array<std::uint32_t, FileType::count> rankOfType{};
    for (std::uint32_t i = 0; i < types.size(); ++i)
        rankOfType[types[i]] = i;
    std::vector<std::uint32_t> ranks(m_files.size());
    std::ranges::transform(m_types, ranks.begin(), [&](FileType type) { return rankOfType[type]; });
    return ranks;
}

std::vector<std::uint32_t> ListedFiles::locationRanks() const
{
    // There are far fewer folders than files.
    std::unordered_map<std::string, std::uint32_t> folders;
    std::vector<std::uint32_t> ranks;
    ranks.reserve(m_files.size());
    for (const auto &file : m_files)
        ranks.push_back(folders.try_emplace(file->parentPath(m_home), folders.size()).first->second);

    std::vector<std::pair<std::string, std::uint32_t>> sorted;
    sorted.reserve(folders.size());
    for (const auto &[path, number] : folders)
        sorted.emplace_back(searchable(path, m_casing), number);
    std::ranges::sort(sorted);
    std::vector<std::uint32_t> rankOfFolder(sorted.size());
    std::uint32_t rank = 0;
    for (const auto &[path, number] : sorted)
        rankOfFolder[number] = rank++;
    for (std::uint32_t &place : ranks)
        place = rankOfFolder[place];
    return ranks;
}

// --- The rows

template <typename Passes>
FileRows ListedFiles::rows(const std::string &query, FileSort sort, const Passes &passes) const
{
    const std::string part = searchable(query, m_casing);
    std::vector<bool> isListed(m_files.size());
    FileRows rows;
    std::size_t count = 0;
    for (std::size_t i = 0; i < m_files.size(); ++i) {
        if (!passes(i) || !(part.empty() || m_names.holds(i, part)))
            continue;
        isListed[i] = true;
        ++count;
        rows.total = checkedAdd(rows.total, m_sizes[i]);
    }

    rows.files.reserve(count);
    const Order &order = m_orders[static_cast<std::size_t>(sort.column)];
    const auto take = [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) {
            if (isListed[order.places[i]])
                rows.files.push_back(m_files[order.places[i]].get());
        }
    };
    if (!sort.descending)
        take(0, order.places.size());
    for (std::size_t end = sort.descending ? order.places.size() : 0; end > 0;) {
        std::size_t begin = end - 1;
        while (!order.startsGroup[begin])
            --begin;
        take(begin, end);
        end = begin;
    }
    return rows;
}

FileRows ListedFiles::large(const LargeFilesFilter &filter, FileSort sort) const
{
    return rows(filter.query, sort, [&](std::size_t i) { return passes(filter, m_sizes[i], m_types[i]); });
}

FileRows ListedFiles::old(const OldFilesFilter &filter, Time cutoff, FileSort sort) const
{
    return rows(filter.query, sort, [&](std::size_t i) { return passes(filter, m_sizes[i], m_dates[i], cutoff); });
}

} // namespace corvane
