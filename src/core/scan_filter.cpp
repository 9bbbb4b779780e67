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

bool isLeftOutBy(std::string pattern, const std::string &path, ScanFilter::Kind kind, std::string_view root)
{
    if (pattern.size() > 1 && pattern.ends_with('/')) {
        if (kind == ScanFilter::Kind::file)
            return false;
        pattern.pop_back();
    }
    if (pattern.find('/') == std::string::npos)
        return matches(pattern, std::string(lastPathComponent(path)));
    return matches(pattern, pattern.starts_with('/') ? path : path.substr(root == "/" ? 1 : root.size() + 1));
}

} // namespace

bool ScanFilter::leavesOut(std::string_view name, Kind kind, std::string_view folder, std::string_view root) const
{
    if (excluded.empty())
        return false;
    const std::string path = joined(folder, name);
    return std::ranges::any_of(excluded,
                               [&](const std::string &pattern) { return isLeftOutBy(pattern, path, kind, root); });
}

} // namespace corvane
