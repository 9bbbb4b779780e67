#include <cstdlib>
#include <optional>

#include <gtest/gtest.h>

#include "core/walk_pace.h"

namespace corvane {
namespace {

/// Sets the number of threads of all walks to CORVANE_TEST_THREADS, if set.
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
