// A macOS icon file, or the PNG of an icon. For any input, the chosen image lies within the input, and taking its texts
// out makes it no longer and is done in one pass.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "fuzz/expect.h"
#include "shell/ui/icns.h"

using corvane::fuzz::expect;

namespace {

void checkPicture(std::string_view picture, std::string_view file)
{
    if (picture.empty())
        return;
    const std::less_equal<const char *> isNotBehind;
    expect(isNotBehind(file.data(), picture.data()));
    expect(isNotBehind(picture.data() + picture.size(), file.data() + file.size()));
    expect(corvane::iconPng(picture) == picture);
    const std::string pixels = corvane::pixelsAlone(picture);
    expect(pixels.size() <= picture.size() && corvane::pixelsAlone(pixels) == pixels);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view file(reinterpret_cast<const char *>(data), size);
    for (const int pixels : {-1, 0, 16, 32, 1024, 100'000})
        checkPicture(corvane::findPng(file, pixels), file);
    checkPicture(corvane::iconPng(file), file);
    expect(corvane::pixelsAlone(file).size() <= file.size());
    return 0;
}
