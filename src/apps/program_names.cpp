#include "apps/program_names.h"

#include <algorithm>
#include <array>

#include "apps/name_pieces.h"
#include "core/words/lower_case.h"
#include "platform/path.h"

namespace corvane {

namespace {

bool isSeparator(char each)
{
    return std::string_view(" -_.").find(each) != std::string_view::npos;
}

} // namespace

bool isAppImage(std::string_view path)
{
    return lowerCase(nameExtension(lastPathComponent(path))) == "appimage";
}

std::string_view programName(std::string_view path)
{
    std::string_view name = lastPathComponent(path);
    if (isAppImage(name))
        name.remove_suffix(nameExtension(name).size() + 1);
    return name;
}

std::string_view withoutVersion(std::string_view name)
{
    constexpr std::string_view separators = " -_";
    constexpr std::string_view digits = "0123456789";
    constexpr std::array<std::string_view, 6> machines{"x86", "i686", "amd64", "arm64", "aarch64", "linux"};
    const std::string lowered = lowerCase(name);
    for (std::size_t at = name.find_first_of(separators, 1); at != std::string_view::npos;
         at = name.find_first_of(separators, at + 1)) {
        std::string_view part = std::string_view(lowered).substr(at + 1);
        const bool isMachine =
            std::ranges::any_of(machines, [&](std::string_view machine) { return part.starts_with(machine); });
        part.remove_prefix(part.starts_with('v') ? 1 : 0);
        if (isMachine || part.find_first_of(digits) == 0)
            return name.substr(0, at);
    }
    return name;
}

bool bearsName(std::string_view folder, std::string_view name)
{
    constexpr std::size_t shortest = 3;
    const std::string lowered = lowerCase(folder);
    std::string letters = lowerCase(name);
    std::erase_if(letters, isSeparator);
    if (letters.size() < shortest)
        return false;
    std::size_t taken = 0;
    std::size_t at = 0;
    for (; at < lowered.size() && taken < letters.size(); ++at) {
        if (lowered[at] == letters[taken])
            ++taken;
        else if (!isSeparator(lowered[at]))
            return false;
    }
    const bool isWhole = at == lowered.size() || isSeparator(lowered[at]) || (lowered[at] >= '0' && lowered[at] <= '9');
    return taken == letters.size() && isWhole;
}

std::string versionIn(std::string_view name)
{
    for (std::size_t start = 0; start < name.size();) {
        const std::size_t end = std::min(name.find_first_of(" -_", start), name.size());
        std::string_view part = name.substr(start, end - start);
        start = end + 1;
        if (part.starts_with('v') || part.starts_with('V'))
            part.remove_prefix(1);
        const bool isNumbered = !part.empty() && part.front() >= '0' && part.front() <= '9';
        if (isNumbered && part.find('.') != std::string_view::npos && isVersion(part) && !part.ends_with('.'))
            return std::string(part);
    }
    return {};
}

} // namespace corvane
