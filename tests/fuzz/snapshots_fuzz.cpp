// What the snapshot tool prints: whatever the bytes are, the answer is a list of names as they stand there.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "disk/local_snapshot.h"
#include "fuzz/expect.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view listing(reinterpret_cast<const char *>(data), size);
    std::size_t position = 0;
    for (const corvane::LocalSnapshot &snapshot : corvane::LocalSnapshot::parse(listing)) {
        corvane::fuzz::expect(snapshot.name.starts_with("com.apple"));
        corvane::fuzz::expect(snapshot.name.find('\n') == std::string::npos);
        corvane::fuzz::expect(snapshot.name.back() != ' ' && snapshot.name.back() != '\t');
        // In the listing's order, each where the last one ended or later.
        const std::size_t found = listing.find(snapshot.name, position);
        corvane::fuzz::expect(found != std::string_view::npos);
        position = found + snapshot.name.size();
    }
    return 0;
}
