#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/removal.h"
#include "platform/fake_host.h"

namespace corvane {

using Action = RemovalStep::Action;
using Operation = FakeTrash::Operation;

// The home folder of these tests, whose disk is a FakeHost.
constexpr const char *home = "/Users/me";

inline const ProtectedLocations &locations()
{
    static const ProtectedLocations instance(home, {});
    return instance;
}

inline std::vector<RemovalStep> planFor(const Selection &entries, bool permanently,
                                        const std::vector<std::string> &trashFolders = {})
{
    return Removal::plan(entries, permanently, locations(), trashFolders);
}

inline std::vector<Action> actions(const std::vector<RemovalStep> &steps)
{
    std::vector<Action> result;
    for (const RemovalStep &step : steps)
        result.push_back(step.action);
    return result;
}

/// Removals on a disk in memory.
class RemovalOf : public testing::Test {
protected:
    RemovalOutcome remove(const Selection &entries, bool permanently = false)
    {
        const auto steps = planFor(entries, permanently, fake.trash.trashFolders());
        return Removal::perform(steps, locations(), fake.host());
    }

    /// The operations on items, without the checks before them.
    std::vector<std::string> deeds() const
    {
        std::vector<std::string> result;
        for (const std::string &line : fake.log->lines()) {
            for (const char *deed : {"removeItem ", "trashItem ", "recycle ", "trashThroughFinder "}) {
                if (line.starts_with(deed))
                    result.push_back(line);
            }
        }
        return result;
    }

    FakeHost fake;
};

using Lines = std::vector<std::string>;
using Entries = std::vector<SelectedEntry>;

inline Lines failureLines(const RemovalOutcome &outcome)
{
    Lines lines;
    for (const RemovalFailure &failure : outcome.failures)
        lines.push_back(failure.line);
    return lines;
}

} // namespace corvane
