#include "apps/bundle_info.h"

#include "platform/path.h"
#include "platform/property_list.h"

namespace corvane {

std::optional<BundleInfo> BundleInfo::parse(std::string_view path, std::string_view infoPlist)
{
    constexpr std::string_view suffix = ".app";
    const std::optional<PropertyList> list = PropertyList::parse(infoPlist);
    if (!list)
        return std::nullopt;
    const auto text = [&](const std::string &key) {
        const PropertyList *const value = list->find(key);
        return value != nullptr ? value->string() : nullptr;
    };
    const std::string *const identifier = text("CFBundleIdentifier");
    if (identifier == nullptr || identifier->empty())
        return std::nullopt;
    std::string_view name = lastPathComponent(path);
    if (name.ends_with(suffix))
        name.remove_suffix(suffix.size());
    BundleInfo info{.path = std::string(path),
                    .name = std::string(name),
                    .altName = std::string(name),
                    .bundleID = *identifier,
                    .version = {}};
    if (const std::string *const value = text("CFBundleName"))
        info.altName = *value;
    if (const std::string *const value = text("CFBundleShortVersionString"))
        info.version = *value;
    return info;
}

} // namespace corvane
