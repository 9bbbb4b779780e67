#include "disk/disk_places.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <set>
#include <string_view>
#include <utility>

#include "core/foreign_sum.h"
#include "core/scan_bounds.h"
#include "core/size_walk.h"
#include "core/told_size.h"
#include "platform/path.h"
#include "platform/text.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

constexpr std::size_t childrenShown = 3;

} // namespace

std::optional<std::int64_t> DiskPlaces::sizeIn(const std::string &output, SizeTool::Answer answer)
{
    constexpr int decimal = 1'000;
    constexpr int binary = 1'024;
    if (answer == SizeTool::Answer::journalUsage) {
        // "Archived and active journals take up 512.0M in the file system."
        constexpr std::string_view before = "take up ";
        const std::size_t position = output.find(before);
        return position == std::string::npos
                   ? std::nullopt
                   : toldSize(std::string_view(output).substr(position + before.size()), binary);
    }
    std::int64_t sum = 0; // one line each for images, containers, volumes and the build cache
    for (std::string_view rest = output; !rest.empty();) {
        const std::optional<std::int64_t> size = toldSize(takeLine(rest), decimal);
        if (!size || !addForeign(sum, *size))
            return std::nullopt;
    }
    return output.empty() ? std::nullopt : std::optional(sum);
}

/// One measurement of all places.
class DiskPlaces::Measurement {
public:
    Measurement(const DiskPlaces &places, const std::optional<std::string> &root)
        : m_places(places), m_files(places.m_host.files), m_home(m_files.homeFolder())
    {
        if (root)
            m_root = m_files.realPath(*root).value_or(*root);
        m_realHome = m_files.realPath(m_home).value_or(m_home);
        m_skipped = ScanBounds::of("/", m_files).skippedPaths();
        for (const std::string &path : m_skipped)
            m_excluded.add(path);
        for (const DiskPlace &place : places.m_table.places) {
            for (const std::string_view folder : place.folders) {
                if (!folder.empty())
                    m_excluded.add(pathOf(folder));
            }
        }
        if (m_root)
            m_excluded.add(*m_root);
        keepToTheDisk();
        if (places.m_table.swap != nullptr) {
            m_swapFiles = places.m_host.volumes.swapFiles();
            std::erase_if(m_swapFiles, [this](const SwapFile &file) { return !isThere(file); });
            for (const SwapFile &file : m_swapFiles)
                m_excluded.add(file.path);
        }
    }

    [[nodiscard]] std::vector<BreakdownSegment> run()
    {
        std::vector<BreakdownSegment> segments;
        for (const DiskPlace &place : m_places.m_table.places)
            segments.push_back(measured(place));
        if (const DiskPlace *const swap = m_places.m_table.swap)
            segments.push_back(ofSwap(*swap));
        if (const DiskPlace *const deleted = m_places.m_table.deletedFiles)
            segments.push_back(ofDeletedFiles(*deleted));
        return segments;
    }

    [[nodiscard]] std::int64_t denied() const { return m_denied + m_walk.unreadable(); }

private:
    /// If the mounts are unknown, restricts the walk to the devices of "/" and of the home folder.
    void keepToTheDisk()
    {
        if (!m_files.mounts().empty())
            return;
        std::set<std::uint64_t> devices;
        for (const std::string &path : {std::string("/"), m_realHome}) {
            if (const auto facts = m_files.facts(path); facts && facts->identity.isKnown())
                devices.insert(facts->identity.device);
        }
        m_walk.keepTo(std::move(devices));
    }

    [[nodiscard]] std::string pathOf(std::string_view folder) const
    {
        return folder == "~" ? m_realHome : std::string(folder);
    }

    [[nodiscard]] bool isScanned(std::string_view path) const { return m_root && isOrLiesBeneath(path, *m_root); }

    /// Whether the path is on the disk, and not inside a folder that a walk of the disk skips.
    [[nodiscard]] bool isOnDisk(std::string_view path) const
    {
        return std::ranges::none_of(m_skipped,
                                    [&](const std::string &skipped) { return isOrLiesBeneath(path, skipped); });
    }

    BreakdownSegment measured(const DiskPlace &place)
    {
        BreakdownSegment segment = segmentOf(place);
        for (const std::string_view named : place.folders) {
            const std::string folder = named.empty() ? std::string() : pathOf(named);
            // The home folder may be one of the other places, as root's is.
            if (folder.empty() || (named != "~" && folder == m_realHome) || !isOnDisk(folder))
                continue;
            std::vector<NamedSize> children;
            std::int64_t size = isScanned(folder) ? 0 : sizeOf(folder, children);
            size = plus(size, toldByTools(folder, children));
            if (size == 0)
                continue;
            if (!segment.action)
                segment.action = BreakdownAction{BreakdownAction::Kind::reveal, folder};
            if (named == place.folders.front())
                std::ranges::move(children, std::back_inserter(segment.children));
            else
                segment.children.push_back({folder, size});
            segment.size = plus(segment.size, size);
        }
        if (segment.action)
            segment.actionTitle = m_places.m_table.revealTitle;
        if (place.scansHome && segment.action) {
            segment.action = BreakdownAction{BreakdownAction::Kind::scanHome, {}};
            segment.actionTitle = "Scan Home Folder";
        }
        keepLargest(segment.children);
        return segment;
    }

    /// The size of a folder without the places inside it; also returns the items directly inside.
    std::int64_t sizeOf(const std::string &path, std::vector<NamedSize> &children)
    {
        const auto facts = m_files.facts(path);
        if (!facts || facts->type != EntryType::directory)
            return 0;
        const WalkConditions conditions;
        auto folder = m_files.openFolder(path);
        if (!folder) {
            ++m_denied;
            return 0;
        }
        const SizeWalk::Contents contents =
            m_walk.contentsOf(**folder, path, [&](std::string_view name, std::int64_t bytes) {
                if (bytes > 0)
                    children.push_back({std::string(name), bytes});
            });
        std::int64_t size = contents.size;
        for (const std::string &name : contents.subfolders) {
            auto child = (*folder)->openChild(name);
            if (!child) {
                ++m_denied;
                continue;
            }
            const std::int64_t bytes = m_walk.walk(std::move(*child), joined(path, name));
            if (bytes > 0)
                children.push_back({name, bytes});
            size = plus(size, bytes);
        }
        return size;
    }

    std::int64_t toldByTools(const std::string &place, std::vector<NamedSize> &children)
    {
        std::int64_t told = 0;
        for (const SizeTool &tool : m_places.m_table.tools) {
            const std::string folder(tool.folder);
            if (!isOrLiesBeneath(folder, place) || !belongsTo(folder, place) || !isOnDisk(folder))
                continue;
            const auto facts = m_files.facts(folder);
            if ((facts && facts->type != EntryType::directory) || (!facts && !isDenied(facts.error())))
                continue;
            if (const auto opened = m_files.openFolder(folder); opened || !isDenied(opened.error()))
                continue;
            if (!keepsThingsIn(folder, tool))
                continue;
            const std::optional<std::string> output = run(tool, tool.arguments);
            const std::int64_t size = output ? sizeIn(*output, tool.answer).value_or(0) : 0;
            if (size <= 0)
                continue;
            told = plus(told, size);
            if (folder != place)
                children.push_back({std::string(lastPathComponent(folder)), size});
        }
        return told;
    }

    [[nodiscard]] std::optional<std::string> run(const SizeTool &tool, const SizeTool::Arguments &arguments) const
    {
        std::vector<std::string> words(arguments.begin(), arguments.end());
        std::erase(words, std::string());
        return m_places.m_stop ? std::nullopt : m_places.m_runTool(std::string(tool.path), words);
    }

    [[nodiscard]] bool keepsThingsIn(const std::string &folder, const SizeTool &tool) const
    {
        if (tool.placeArguments.front().empty())
            return true;
        const std::string place = run(tool, tool.placeArguments).value_or(std::string());
        return isOrLiesBeneath(std::string_view(place).substr(0, place.find('\n')), folder);
    }

    /// Whether no other place lies between a place and a folder inside it.
    [[nodiscard]] bool belongsTo(std::string_view folder, std::string_view place) const
    {
        for (const DiskPlace &other : m_places.m_table.places) {
            for (const std::string_view inner : other.folders) {
                if (!inner.empty() && liesBeneath(inner, place) && isOrLiesBeneath(folder, inner))
                    return false;
            }
        }
        return true;
    }

    static bool isDenied(const Error &error)
    {
        return error.code == std::errc::permission_denied || error.code == std::errc::operation_not_permitted;
    }

    /// In a container, the kernel lists the host's swap files. A deleted swap file is still in use.
    [[nodiscard]] bool isThere(const SwapFile &file) const
    {
        const auto facts = m_files.facts(file.path);
        return facts ? facts->type == EntryType::file : isDenied(facts.error()) || file.path.ends_with(" (deleted)");
    }

    BreakdownSegment ofSwap(const DiskPlace &place) const
    {
        BreakdownSegment segment = segmentOf(place);
        for (const SwapFile &file : m_swapFiles) {
            if (isScanned(file.path) || !isOnDisk(file.path) || !isPlausibleSize(file.size))
                continue;
            segment.size = plus(segment.size, file.size);
            segment.children.push_back({file.path, file.size});
        }
        keepLargest(segment.children);
        return segment;
    }

    BreakdownSegment ofDeletedFiles(const DiskPlace &place) const
    {
        BreakdownSegment segment = segmentOf(place);
        for (const OpenDeletedFiles &held : m_places.m_host.volumes.deletedFiles(m_realHome)) {
            if (!isPlausibleSize(held.size))
                continue;
            segment.size = plus(segment.size, held.size);
            segment.children.push_back({held.program, held.size});
        }
        keepLargest(segment.children);
        return segment;
    }

    static void keepLargest(std::vector<NamedSize> &children)
    {
        std::ranges::stable_sort(children, std::ranges::greater(), &NamedSize::size);
        children.resize(std::min(children.size(), childrenShown));
    }

    static std::int64_t plus(std::int64_t sum, std::int64_t more)
    {
        static_cast<void>(addForeign(sum, more));
        return sum;
    }

    const DiskPlaces &m_places;
    FileSystem &m_files;
    const std::string m_home;
    std::string m_realHome;
    std::optional<std::string> m_root;
    std::vector<std::string> m_skipped;
    std::vector<SwapFile> m_swapFiles;
    ExcludedItems m_excluded;
    SizeWalk m_walk{SizeWalk::Counting::asTheDisk, m_excluded, m_places.m_stop};
    std::int64_t m_denied = 0;
};

BreakdownSegment DiskPlaces::segmentOf(const DiskPlace &place, BreakdownSegment::Kind kind, std::int64_t size)
{
    return {std::string(place.id),
            kind,
            std::string(place.title),
            std::string(place.detail),
            std::string(place.symbol),
            place.color,
            size,
            {},
            {},
            {}};
}

DiskPlaces::DiskPlaces(const DiskTable &table, const Host &host, ToolRunner runTool, const StopFlag &stop)
    : m_table(table), m_host(host), m_runTool(std::move(runTool)), m_stop(stop)
{
}

std::vector<BreakdownSegment> DiskPlaces::measure(const std::optional<std::string> &scannedRoot)
{
    Measurement measurement(*this, scannedRoot);
    std::vector<BreakdownSegment> segments = measurement.run();
    m_denied = measurement.denied();
    return segments;
}

} // namespace corvane
