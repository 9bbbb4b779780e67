// The macOS kernel's attributes of a folder's entries. For any input, the name of every accepted entry is within the
// buffer, and the remainder gets shorter.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

#include "fuzz/expect.h"
#include "platform/bulk_attributes.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::span<const std::byte> whole(reinterpret_cast<const std::byte *>(data), size);
    std::span<const std::byte> rest = whole;
    for (;;) {
        const std::size_t before = rest.size();
        const auto entry = corvane::takeBulkEntry(rest);
        if (!entry) {
            corvane::fuzz::expect(rest.size() == before);
            return 0;
        }
        const auto *const start = reinterpret_cast<const std::byte *>(entry->name.data());
        const std::less_equal<const std::byte *> isNotBehind;
        corvane::fuzz::expect(!entry->name.empty() && rest.size() < before);
        corvane::fuzz::expect(isNotBehind(whole.data() + (whole.size() - before), start) &&
                              isNotBehind(start + entry->name.size(), rest.data()));
    }
}
