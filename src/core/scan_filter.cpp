#include "core/scan_filter.h"

#include <algorithm>

#include <fnmatch.h>

#include "platform/path.h"

namespace corvane {

namespace {

bool matches(const std::string &pattern, const std::string &text)
{
    return ::fnmatch(pattern.c_str(), text.c_str(), FNM_PATHNAME) == 0;
}

} // namespace

bool ScanFilter::leavesOut(std::string_view name, Kind kind, std::string_view folder, std::string_view root) const
{
    return std::ranges::any_of(excluded, [&](std::string pattern) {
        if (pattern.size() > 1 && pattern.ends_with('/')) {
            if (kind == Kind::file)
                return false;
            pattern.pop_back();
        }
        if (pattern.find('/') == std::string::npos)
            return matches(pattern, std::string(name));
        const std::string path = joined(folder, name);
        return matches(pattern, pattern.starts_with('/') ? path : path.substr(root == "/" ? 1 : root.size() + 1));
    });
}

} // namespace corvane
