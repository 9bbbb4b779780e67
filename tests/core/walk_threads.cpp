#include <cstdlib>
#include <optional>

#include <gtest/gtest.h>

#include "core/walk_pace.h"

namespace corvane {
namespace {

/// Gives all walks of this program as many threads as CORVANE_TEST_THREADS says, where it is set.
class WalkThreads : public testing::Environment {
public:
    void SetUp() override
    {
        if (const char *const number = std::getenv("CORVANE_TEST_THREADS"))
            m_threads.emplace(std::strtoul(number, nullptr, 10));
    }
    void TearDown() override { m_threads.reset(); }

private:
    std::optional<FixedWalkThreads> m_threads;
};

const testing::Environment *const walkThreads = testing::AddGlobalTestEnvironment(new WalkThreads);

} // namespace
} // namespace corvane
