#pragma once

#include <algorithm>
#include <string>

#include "cli/cli_test.h"

namespace corvane {

/// The command "remove" of the program, with the Trash of a temporary home.
class RemoveCommandTest : public CliTest {
protected:
    [[nodiscard]] bool isInTrash(const std::string &name) const { return m_folder.has("data/Trash/files/" + name); }

    [[nodiscard]] bool trashIsEmpty() const
    {
        return !m_folder.has("data/Trash/files") || std::filesystem::is_empty(m_folder / "data/Trash/files");
    }

    /// Expects a refusal: nothing is removed, and one line gives the reason.
    static void expectRefused(const ProgramResult &result)
    {
        EXPECT_EQ(result.exitStatus, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(std::ranges::count(result.errors, '\n'), 1) << result.errors;
    }
};

} // namespace corvane
