#include "apps/installed_app.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <string_view>

#include "core/checked_add.h"
#include "core/words/lower_case.h"
#include "platform/path.h"

namespace corvane {

namespace {

constexpr int fewestMonths = 6;
constexpr std::array<std::string_view, 3> systemNames{"com.apple.", "group.com.apple.", "systemgroup.com.apple."};

} // namespace

std::int64_t InstalledApp::exactLeftoverSize() const
{
    std::int64_t sum = 0;
    for (const Leftover &leftover : leftovers) {
        if (leftover.match == Leftover::Match::exact)
            sum = checkedAdd(sum, leftover.size);
    }
    return sum;
}

std::int64_t InstalledApp::sizeWithExactLeftovers() const
{
    return checkedAdd(appSize, exactLeftoverSize());
}

std::int64_t InstalledApp::dataSize() const
{
    return std::accumulate(leftovers.begin(), leftovers.end(), std::int64_t{0},
                           [](std::int64_t sum, const Leftover &each) { return checkedAdd(sum, each.size); });
}

std::int64_t InstalledApp::totalSize() const
{
    return checkedAdd(appSize, dataSize());
}

bool InstalledApp::proposes(const Leftover &leftover) const
{
    const std::string item = lowerCase(lastPathComponent(leftover.path));
    const bool isOfSystem =
        std::ranges::any_of(systemNames, [&](std::string_view each) { return item.starts_with(each); });
    const bool isOwnName = bundleID.find('.') != std::string::npos || source == Source::snap;
    return leftover.match == Leftover::Match::exact && isOwnName && !isOfSystem;
}

ProgramMarks marksOf(const InstalledApp &app)
{
    using Source = InstalledApp::Source;
    return {.bundleID = app.bundleID,
            .bundlePath = app.path,
            .flatpak = app.source == Source::flatpak ? app.bundleID : std::string(),
            .snap = app.source == Source::snap ? app.bundleID : std::string(),
            .programs = app.programs};
}

std::string_view caseName(InstalledApp::Source source)
{
    switch (source) {
    case InstalledApp::Source::none:
        break;
    case InstalledApp::Source::flatpak:
        return "Flatpak";
    case InstalledApp::Source::snap:
        return "Snap";
    case InstalledApp::Source::package:
        return "Package";
    case InstalledApp::Source::appImage:
        return "AppImage";
    }
    return {};
}

std::optional<int> InstalledApp::unusedForMonths(Time now, const Calendar &calendar) const
{
    if (!lastUsed)
        return std::nullopt;
    const int months = calendar.wholeMonths(*lastUsed, now);
    return months >= fewestMonths ? std::optional(months) : std::nullopt;
}

} // namespace corvane
