#include "apps/package_databases.h"

#include <charconv>
#include <optional>
#include <system_error>
#include <utility>

#include "apps/name_pieces.h"
#include "core/foreign_sum.h"
#include "platform/text.h"

namespace corvane {

namespace {

constexpr std::int64_t bytesOfUnit = 1024; // unit of the sizes in Debian packages

} // namespace

std::string upstreamVersion(std::string_view version)
{
    const std::size_t colon = version.find(':');
    if (colon != std::string_view::npos)
        version.remove_prefix(colon + 1);
    return std::string(version.substr(0, version.rfind('-')));
}

std::int64_t sizeIn(std::string_view text)
{
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && isPlausibleSize(value) ? value : 0;
}

std::unordered_map<std::string, DebianPackage> debianPackages(std::string_view status)
{
    std::unordered_map<std::string, DebianPackage> packages;
    std::string name;
    bool isInstalled = false;
    DebianPackage package;
    const auto take = [&] {
        if (isInstalled && isPlainName(name)) {
            packages.emplace(name + ":" + package.architecture, package);
            packages.emplace(name, package);
        }
        name.clear();
        isInstalled = false;
        package = {};
    };
    while (!status.empty()) {
        const std::string_view line = takeLine(status);
        const auto value = [&](std::string_view key) -> std::optional<std::string_view> {
            return line.starts_with(key) ? std::optional(line.substr(key.size())) : std::nullopt;
        };
        if (line.empty())
            take();
        else if (const auto named = value("Package: "))
            name = *named;
        else if (const auto state = value("Status: "))
            isInstalled = state->ends_with(" installed");
        else if (const auto built = value("Architecture: "))
            package.architecture = *built;
        else if (const auto version = value("Version: "))
            package.version = upstreamVersion(*version);
        else if (const auto size = value("Installed-Size: "))
            package.size = sizeIn(*size) <= foreignSumLimit / bytesOfUnit ? sizeIn(*size) * bytesOfUnit : 0;
    }
    take();
    return packages;
}

std::string_view fieldOf(std::string_view description, std::string_view heading)
{
    bool isNext = false;
    std::string_view value;
    while (!description.empty()) {
        const std::string_view line = takeLine(description);
        if (std::exchange(isNext, line == heading) && value.empty())
            value = line;
    }
    return value;
}

std::vector<RpmPackage> rpmPackagesIn(std::string_view output)
{
    std::vector<RpmPackage> packages;
    while (!output.empty()) {
        const std::string_view line = takeLine(output);
        if (line.starts_with('/')) {
            if (!packages.empty())
                packages.back().list.append(line).append("\n");
            continue;
        }
        const std::size_t first = line.find('\t');
        const std::size_t second = first == std::string_view::npos ? first : line.find('\t', first + 1);
        if (second != std::string_view::npos)
            packages.push_back({.name = std::string(line.substr(0, first)),
                                .version = std::string(line.substr(first + 1, second - first - 1)),
                                .size = sizeIn(line.substr(second + 1)),
                                .list = {}});
    }
    return packages;
}

} // namespace corvane
