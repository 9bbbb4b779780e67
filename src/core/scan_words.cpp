#include "core/scan_words.h"

#include <fmt/format.h>

#include "core/words/figures.h"
#include "platform/patient_open.h"

namespace corvane {

std::string deniedText(std::int64_t count)
{
    return formatCount(count, "folder", "folders") + " could not be opened";
}

std::string scanFailureText(const Error &failure)
{
    if (isOutOfDescriptors(failure))
        return "too many files are open at once; close some programs, or raise the limit (ulimit -n)";
    return failure.description();
}

std::string ownerText(std::string_view words, const std::string &path, FileSystem &files)
{
    const std::optional<std::string> owner = words.empty() ? std::nullopt : files.ownerOf(path);
    if (!owner || owner == files.ownerOf(files.homeFolder()))
        return {};
    return fmt::format(fmt::runtime(words), *owner);
}

} // namespace corvane
