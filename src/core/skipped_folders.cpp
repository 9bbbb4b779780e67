#include "core/skipped_folders.h"

#include <algorithm>
#include <vector>

#include "core/scanner.h"
#include "platform/protected_places.h"

namespace corvane {

namespace {

struct Holder {
    std::string_view path;
    std::vector<std::string_view> names;
};

std::vector<Holder> makeHolders()
{
    std::vector<Holder> holders;
    const auto add = [&](std::string_view path) {
        const std::size_t slash = path.rfind('/');
        const std::string_view holder = path.substr(0, std::max<std::size_t>(slash, 1));
        auto found = std::ranges::find(holders, holder, &Holder::path);
        if (found == holders.end())
            found = holders.insert(found, {holder, {}});
        found->names.push_back(path.substr(slash + 1));
    };
    std::ranges::for_each(Scanner::skipPaths, add);
    std::ranges::for_each(systemVirtualFolders(), add);
    return holders;
}

} // namespace

std::span<const std::string_view> skippedNames(std::string_view folder)
{
    static const std::vector<Holder> holders = makeHolders();
    const auto found = std::ranges::find(holders, folder, &Holder::path);
    return found == holders.end() ? std::span<const std::string_view>{} : std::span(found->names);
}

} // namespace corvane
