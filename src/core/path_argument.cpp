#include "core/path_argument.h"

#include <filesystem>
#include <system_error>

#include <fmt/format.h>

#include "core/path_guard.h"

namespace corvane {

namespace {

bool isDots(std::string_view component)
{
    return component == "." || component == "..";
}

bool hasParentComponent(std::string_view path)
{
    return path.starts_with("../") || path.ends_with("/..") || path.find("/../") != std::string_view::npos;
}

std::string unreachable(const std::string &path, const Error &error)
{
    return fmt::format("cannot access {}: {}", path, error.description());
}

std::string missing(const std::string &path, FileSystem &files)
{
    std::string ancestor(containingFolder(path));
    while (ancestor != "/" && !files.exists(ancestor))
        ancestor.resize(containingFolder(ancestor).size());
    return fmt::format("{} does not exist; the nearest folder that does is {}", path, ancestor);
}

std::string failed(const std::string &path, const Error &error, FileSystem &files)
{
    const bool isMissing =
        error.code == std::errc::no_such_file_or_directory || error.code == std::errc::not_a_directory;
    return isMissing ? missing(path, files) : unreachable(path, error);
}

} // namespace

Judged<std::string> withCurrentFolder(std::string_view argument)
{
    if (argument.empty())
        return tl::unexpected(std::string(emptyPathText));
    if (argument.starts_with('/'))
        return std::string(argument);
    std::error_code error;
    const std::filesystem::path current = std::filesystem::current_path(error);
    if (error)
        return tl::unexpected<std::string>("the current folder does not exist any more; give an absolute path");
    return joined(current.string(), argument);
}

Judged<std::string> absolutePath(std::string_view argument, FileSystem &files)
{
    const Judged<std::string> whole = withCurrentFolder(argument);
    if (!whole)
        return tl::unexpected(whole.error());
    std::string path = *whole;
    if (!hasParentComponent(path))
        return standardizedPath(path, {});

    // After a link to a folder, ".." is the parent of the link's target: only the system can resolve it.
    path.erase(path.find_last_not_of('/') + 1);
    const std::string name(lastPathComponent(path));
    const std::string toResolve = isDots(name) ? path : std::string(containingFolder(path));
    const Expected<std::string> resolved = files.realPath(toResolve);
    if (!resolved)
        return tl::unexpected(failed(standardizedPath(path, {}), resolved.error(), files));
    return isDots(name) ? *resolved : joined(*resolved, name);
}

Judged<ExistingItem> existingItem(std::string_view argument, FileSystem &files)
{
    const Judged<std::string> path = absolutePath(argument, files);
    if (!path)
        return tl::unexpected(path.error());
    const Expected<ItemFacts> facts = files.facts(*path);
    if (!facts)
        return tl::unexpected(failed(*path, facts.error(), files));
    return ExistingItem{*path, *facts};
}

Judged<std::string> existingFolder(std::string_view argument, FileSystem &files)
{
    Judged<ExistingItem> item = existingItem(argument, files);
    if (!item)
        return tl::unexpected(item.error());
    EntryType type = item->facts.type;
    if (type == EntryType::symbolicLink) {
        const Expected<std::string> target = files.realPath(item->path);
        if (!target)
            return tl::unexpected(
                fmt::format("{} is a link to something that does not exist; give an existing folder", item->path));
        const Expected<ItemFacts> facts = files.facts(*target);
        if (!facts)
            return tl::unexpected(unreachable(*target, facts.error()));
        type = facts->type;
    }
    if (type == EntryType::file)
        return tl::unexpected(
            fmt::format("{} is a file, not a folder; its folder is {}", item->path, containingFolder(item->path)));
    return item->path;
}

} // namespace corvane
