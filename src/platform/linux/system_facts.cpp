#include "platform/system_facts.h"

#include <algorithm>
#include <array>

#include <sys/utsname.h>

#include "platform/ascii_case.h"
#include "platform/file_system.h"
#include "platform/linux/os_release.h"
#include "platform/text.h"

namespace corvane {

namespace {

constexpr std::size_t mostBytes = 64UL * 1024;

std::string kernelName()
{
    utsname name{};
    return ::uname(&name) == 0 ? std::string(name.sysname) + " " + name.release : "Linux";
}

// Board manufacturers leave placeholders in the field.
bool isPlaceholder(std::string_view model)
{
    constexpr std::array<std::string_view, 12> placeholders{"to be filled by o.e.m.",
                                                            "to be filled by o.e.m",
                                                            "system product name",
                                                            "system name",
                                                            "default string",
                                                            "not specified",
                                                            "not applicable",
                                                            "none",
                                                            "n/a",
                                                            "o.e.m.",
                                                            "product name",
                                                            "unknown"};
    return std::ranges::find(placeholders, lowerAscii(std::string(model))) != placeholders.end();
}

} // namespace

std::string SystemFacts::system(FileSystem &files)
{
    const OsRelease release = OsRelease::load(files);
    if (std::string pretty = release.value("PRETTY_NAME"); !pretty.empty())
        return pretty;
    const std::string version =
        release.value("VERSION").empty() ? release.value("VERSION_ID") : release.value("VERSION");
    if (std::string name = release.value("NAME"); !name.empty())
        return version.empty() ? name : name + " " + version;
    return kernelName();
}

std::string SystemFacts::model(FileSystem &files)
{
    // The second path is for boards without a BIOS; its text ends with a NUL.
    for (const char *path : {"/sys/class/dmi/id/product_name", "/sys/firmware/devicetree/base/model"}) {
        const Expected<std::string> text = files.readFile(path, mostBytes);
        const std::string_view model = text ? trimmed(text->c_str()) : std::string_view{};
        if (!model.empty() && !isPlaceholder(model))
            return std::string(model);
    }
    return {};
}

std::string SystemFacts::architecture()
{
    utsname name{};
    return ::uname(&name) == 0 ? name.machine : "unknown";
}

} // namespace corvane
