#pragma once

#include <cstdlib>

namespace corvane::fuzz {

/// Aborts if an invariant does not hold, which the fuzzer reports as a finding.
inline void expect(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace corvane::fuzz
