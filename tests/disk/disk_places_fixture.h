#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "disk/disk_places.h"
#include "platform/fake_host.h"

namespace corvane {

constexpr std::int64_t mb = 1'000'000;

/// A fake Linux system whose places are measured as on a real one.
class DiskPlacesTest : public testing::Test {
protected:
    DiskPlacesTest()
    {
        fake.files.setSystemKind(SystemKind::linuxSystem);
        fake.files.setHome("/home/me");
    }

    void measure(const std::optional<std::string> &root = {})
    {
        DiskPlaces places(
            diskTableOf(SystemKind::linuxSystem), fake.host(),
            [this](const std::string &tool, const std::vector<std::string> &arguments) -> std::optional<std::string> {
                asked.push_back(tool);
                const bool asksForPlace = std::ranges::find(arguments, "info") != arguments.end();
                const auto answer = answers.find(tool + (asksForPlace ? " place" : ""));
                return answer == answers.end() ? std::nullopt : std::optional(answer->second);
            },
            neverStopped);
        segments = places.measure(root);
        denied = places.denied();
    }

    /// In MB; -1 if there is no such segment.
    [[nodiscard]] std::int64_t size(std::string_view id) const
    {
        const auto found = std::ranges::find(segments, id, &BreakdownSegment::id);
        return found == segments.end() ? -1 : found->size / mb;
    }
    [[nodiscard]] const BreakdownSegment &segment(std::string_view id) const
    {
        return *std::ranges::find(segments, id, &BreakdownSegment::id);
    }
    void add(const std::string &path, std::int64_t megabytes) { fake.files.addFile(path, megabytes * mb); }

    FakeHost fake;
    /// Keyed by the tool's path, followed by " place" for the question where it stores things.
    std::map<std::string, std::string> answers{{"/usr/bin/docker place", "/var/lib/docker\n"},
                                               {"/usr/bin/podman place", "/var/lib/containers/storage\n"}};
    std::vector<std::string> asked;
    std::vector<BreakdownSegment> segments;
    std::int64_t denied = 0;
};

} // namespace corvane
