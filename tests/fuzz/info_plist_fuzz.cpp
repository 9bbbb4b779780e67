// A bundle's Info.plist. For any input, the result is nothing or a bundle with an identifier whose leftovers can be
// found.

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/app_inventory.h"
#include "apps/leftover_rules.h"
#include "core/words/lower_case.h"
#include "fuzz/expect.h"
#include "platform/protected_places.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using corvane::AppInventory;
    const std::string_view bytes(reinterpret_cast<const char *>(data), size);
    const std::optional<corvane::BundleInfo> bundle = corvane::BundleInfo::parse("/Applications/Sea Chart.app", bytes);
    if (!bundle)
        return 0;
    corvane::fuzz::expect(!bundle->bundleID.empty() && bundle->name == "Sea Chart" && !bundle->isAppStore);

    const std::string id = corvane::lowerCase(bundle->bundleID);
    const std::vector<std::string> ids = AppInventory::allIDs({*bundle});
    corvane::fuzz::expect(ids == std::vector{id} && corvane::vendorsOf(ids).size() == 1);
    constexpr std::size_t longestName = 255;
    if (id == "." || id == ".." || id.find('/') != std::string::npos || id.size() > longestName) // not a file name
        return 0;

    // None of these paths exist; the items' attributes do not matter here.
    static const corvane::ProtectedLocations locations("/nowhere/home", corvane::ProtectedPlaces{});
    const corvane::SearchContext context{
        .files = corvane::systemHost().files, .locations = locations, .now = corvane::Time{}};
    corvane::LibraryListings listings{.library = "/nowhere/home/Library"};
    // One location for each naming scheme.
    constexpr std::size_t used[] = {0, 3, 4, 6};
    for (const std::size_t i : used) {
        listings.listings[i] = corvane::LibraryListings::make(
            i, {bundle->bundleID, id + ".PLIST", "group." + id, id + ".savedState", bundle->altName, "Sea Chart"});
    }
    const std::vector<corvane::Leftover> found = AppInventory::findLeftovers(*bundle, ids, listings, context);
    corvane::fuzz::expect(found.size() >= std::size(used));
    return 0;
}
