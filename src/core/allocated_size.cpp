#include "core/allocated_size.h"

#include <utility>

#include "core/size_walk.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

const ExcludedItems nothingExcluded;

} // namespace

std::int64_t allocatedSize(const std::string &path, FileSystem &files, const StopFlag &stop)
{
    const auto facts = files.facts(path);
    if (!facts)
        return 0;
    switch (facts->type) {
    case EntryType::symbolicLink:
        return 0;
    case EntryType::file:
        return fileSize(*facts);
    case EntryType::directory:
        break;
    }
    return folderSize(path, files, stop);
}

std::int64_t folderSize(const std::string &path, FileSystem &files, const StopFlag &stop)
{
    const WalkConditions conditions;
    auto folder = files.openFolder(path);
    return folder ? SizeWalk(SizeWalk::Counting::everyName, nothingExcluded, stop).walk(std::move(*folder), path) : 0;
}

} // namespace corvane
