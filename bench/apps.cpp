// Times the search for the leftovers of installed applications: bench_apps [ROUNDS]
//
// 400 applications against 20,000 items in each of three locations, as on a Mac whose owner has tried many programs for
// years; Caches and Preferences do grow like that. Names follow the system's conventions, with as many vendors as
// applications; a tenth of the applications have a helper whose identifier begins with theirs, and one item in ten
// belongs to an installed application. None of the paths exist, so that the disk only affects the figure through the
// checks of matching items.

#include <chrono>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "apps/app_inventory.h"
#include "apps/search_context.h"
#include "platform/protected_places.h"
#include "support.h"

namespace {

using corvane::AppInventory;
using corvane::BundleInfo;

constexpr std::size_t apps = 400;
constexpr std::size_t items = 20'000;
constexpr double limit = 1000; // milliseconds

std::vector<BundleInfo> makeBundles()
{
    std::vector<BundleInfo> bundles;
    for (std::size_t i = 0; bundles.size() < apps; ++i) {
        const std::string name = fmt::format("Program {}", i);
        const std::string id = fmt::format("com.Vendor{}.Program{}", i, i);
        bundles.push_back(
            {.path = "/nowhere/" + name + ".app", .name = name, .altName = name, .bundleID = id, .version = "1.0"});
        if (i % 10 == 0 && bundles.size() < apps)
            bundles.push_back({.path = "/nowhere/" + name + " Helper.app",
                               .name = name + " Helper",
                               .altName = name,
                               .bundleID = id + ".Helper",
                               .version = "1.0"});
    }
    return bundles;
}

/// One name in ten derived from an application's identifier, the others from identifiers of removed programs.
template <typename Naming>
std::vector<std::string> makeNames(const std::vector<BundleInfo> &bundles, std::mt19937 &random, const Naming &naming)
{
    std::vector<std::string> names;
    for (std::size_t i = 0; i < items; ++i) {
        if (i % 10 == 0)
            names.push_back(naming(bundles[random() % bundles.size()].bundleID, i));
        else
            names.push_back(naming(fmt::format("org.Maker{}.Tool{}", random() % 2000, random() % 5), i));
    }
    return names;
}

std::string plainName(std::string_view id, std::size_t number)
{
    return fmt::format("{}.part{}", id, number);
}

std::string groupName(std::string_view id, std::size_t number)
{
    return fmt::format("TEAM{}.{}", number, id);
}

std::string listName(std::string_view id, std::size_t number)
{
    return fmt::format("{}.part{}.plist", id, number);
}

} // namespace

int main(int argc, char **argv)
{
    const int rounds = roundsFrom(argc, argv, 7);
    const std::vector<BundleInfo> bundles = makeBundles();
    std::mt19937 random(7);
    const std::vector<std::string> support = makeNames(bundles, random, plainName);
    const std::vector<std::string> groups = makeNames(bundles, random, groupName);
    const std::vector<std::string> preferences = makeNames(bundles, random, listName);
    const corvane::ProtectedLocations locations("/nowhere", corvane::ProtectedPlaces{});
    const corvane::SearchContext context{
        .files = corvane::systemHost().files, .locations = locations, .now = corvane::Time{}};

    std::vector<double> indexing;
    std::vector<double> matching;
    std::size_t leftovers = 0;
    for (int round = -1; round < rounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        corvane::LibraryListings listings{.library = "/nowhere/Library"};
        listings.listings[0] = corvane::LibraryListings::make(0, support);
        listings.listings[3] = corvane::LibraryListings::make(3, groups);
        listings.listings[4] = corvane::LibraryListings::make(4, preferences);
        const auto indexed = std::chrono::steady_clock::now();
        const std::vector<std::string> ids = AppInventory::allIDs(bundles);
        leftovers = 0;
        for (const BundleInfo &bundle : bundles)
            leftovers += AppInventory::findLeftovers(bundle, ids, listings, context).size();
        const std::chrono::duration<double, std::milli> whole = std::chrono::steady_clock::now() - start;
        if (round < 0)
            continue;
        indexing.push_back(std::chrono::duration<double, std::milli>(indexed - start).count());
        matching.push_back(whole.count());
    }
    const double taken = median(matching);
    fmt::print("  {} applications, {} items in each of three locations, {} leftovers found, on one thread\n", apps,
               items, leftovers);
    fmt::print("    {:.1f} ms, of which putting the names in order {:.1f} ms (medians of {} rounds)\n", taken,
               median(indexing), rounds);
    fmt::print("    {}\n", goalAtMost(limit, "ms", taken));
    return EXIT_SUCCESS;
}
