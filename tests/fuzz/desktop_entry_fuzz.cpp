// A desktop file, which any program may have put into the user's folder. For any input, the result is nothing or an
// application that has a name, and none of its texts holds a control character.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "apps/desktop_entry.h"
#include "core/words/utf8.h"
#include "fuzz/expect.h"

using corvane::DesktopEntry;
using corvane::fuzz::expect;

namespace {

constexpr std::string_view path = "/usr/share/applications/sea-chart.desktop";

bool isOneLine(std::string_view text)
{
    return std::ranges::none_of(text,
                                [](char each) { return static_cast<unsigned char>(each) < 0x20 || each == 0x7F; });
}

void checkEntry(const DesktopEntry &entry)
{
    constexpr std::size_t longestName = 255;
    expect(entry.path == path && entry.id == "sea-chart");
    expect(entry.name.find_first_not_of(' ') != std::string::npos && entry.name.size() <= longestName);
    expect(corvane::isValidUtf8(entry.name));
    for (const std::string &text :
         {entry.name, entry.program, entry.icon, entry.windowClass, entry.snap, entry.version})
        expect(isOneLine(text));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    // The locale is the user's own setting, but not checked either.
    for (const std::string_view locale :
         {std::string_view(), std::string_view("de_AT.UTF-8@euro"), text.substr(0, text.find('\n'))}) {
        if (const std::optional<DesktopEntry> entry = DesktopEntry::parse(path, text, locale))
            checkEntry(*entry);
    }
    if (const std::optional<std::string_view> id = corvane::desktopFileID(text))
        expect(!id->empty() && std::string(*id) + ".desktop" == text);
    return 0;
}
