#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "disk/disk_accountant.h"

namespace corvane {

using Kind = BreakdownSegment::Kind;

constexpr std::int64_t limit = 50'000'000;
constexpr std::int64_t gb = 1'000'000'000;

/// A disk with synthetic figures; everything that a test does not set is absent.
class DiskAccountantTest : public testing::Test {
protected:
    DiskBreakdown compute()
    {
        DiskAccountant::Sources sources;
        sources.volume = [this] { return volume; };
        sources.container = [this](std::int64_t total) {
            askedTotal = total;
            return container;
        };
        sources.snapshots = [this] { return snapshots; };
        sources.exists = [this](const std::string &path) { return sizes.contains(path); };
        sources.measure = [this](const std::string &path, const std::optional<std::string> &excluding) {
            measured.push_back(path);
            excluded = excluding;
            return DiskAccountant::Measurement{sizes.at(path), {{"child", 1}}};
        };
        sources.home = "/Users/u";
        if (!places.empty()) {
            sources.places = [this](const std::optional<std::string> &scanned) {
                excluded = scanned;
                return std::pair(places, deniedInPlaces);
            };
            sources.system = SystemKind::linuxSystem;
        }
        return DiskAccountant::compute(scan, sources);
    }
    static const BreakdownSegment *find(const DiskBreakdown &breakdown, Kind kind)
    {
        const auto position = std::ranges::find(breakdown.segments, kind, &BreakdownSegment::kind);
        return position == breakdown.segments.end() ? nullptr : &*position;
    }
    static std::int64_t sum(const DiskBreakdown &breakdown)
    {
        std::int64_t bytes = 0;
        for (const BreakdownSegment &segment : breakdown.segments)
            bytes += segment.size;
        return bytes;
    }
    void scanned(const std::string &root, std::int64_t size)
    {
        scan.rootPath = root;
        scan.rootSize = size;
    }

    VolumeFacts volume{"Disk", 100 * gb, 40 * gb, std::nullopt};
    std::optional<APFSContainerInfo> container;
    std::vector<LocalSnapshot> snapshots;
    std::map<std::string, std::int64_t> sizes;
    std::vector<BreakdownSegment> places;
    std::int64_t deniedInPlaces = 0;
    ScanContext scan;

    std::vector<std::string> measured;
    std::optional<std::string> excluded;
    std::int64_t askedTotal = -1;
};

} // namespace corvane
