// An application's description for software catalogues, which comes with its Snap. For any input, the name is a short
// text on one line, and the version is safe to show.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "apps/app_description.h"
#include "apps/name_pieces.h"
#include "core/words/utf8.h"
#include "fuzz/expect.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using corvane::fuzz::expect;
    constexpr std::size_t longestName = 255;
    constexpr std::size_t longestVersion = 64;
    const auto description = corvane::AppDescription::parse({reinterpret_cast<const char *>(data), size});
    expect(description.name.size() <= longestName && corvane::isValidUtf8(description.name));
    expect(std::ranges::none_of(description.name,
                                [](char each) { return static_cast<unsigned char>(each) < 0x20 || each == 0x7F; }));
    expect(description.version.empty() || corvane::isPlainName(description.version));
    expect(description.version.size() <= longestVersion);
    return 0;
}
