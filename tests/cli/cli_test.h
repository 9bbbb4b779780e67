#pragma once

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>
#include <unistd.h>

#include "cli/program.h"
#include "support/temporary_folder.h"

namespace corvane {

/// Runs the program on a temporary folder that also contains its home and Trash.
class CliTest : public testing::Test {
protected:
    CliTest()
    {
        m_folder.makeFolder("home");
        m_folder.makeFolder("data");
    }

    [[nodiscard]] Program program(std::vector<std::string> arguments) const
    {
        Program result(std::move(arguments));
        result.with("HOME", m_folder / "home").with("XDG_DATA_HOME", m_folder / "data").in(m_folder.path());
        return result;
    }

    [[nodiscard]] ProgramResult run(std::vector<std::string> arguments) const
    {
        return program(std::move(arguments)).run();
    }

    /// Runs with `--json` and parses the output; fails the test if there is none.
    [[nodiscard]] nlohmann::json document(std::vector<std::string> arguments, int exitStatus = 0) const
    {
        arguments.emplace_back("--json");
        return parsed(program(std::move(arguments)).run(), exitStatus);
    }

    [[nodiscard]] static nlohmann::json parsed(const ProgramResult &result, int exitStatus = 0)
    {
        EXPECT_EQ(result.exitStatus, exitStatus) << result.errors;
        nlohmann::json json = nlohmann::json::parse(result.out, nullptr, false);
        EXPECT_FALSE(json.is_discarded()) << result.out;
        return json;
    }

    /// Gives the folder and its contents to the user of `asOrdinaryUser`.
    void openToOrdinaryUser() const
    {
        if (geteuid() == 0)
            giveAway(m_folder.path());
    }

    /// Whether the program uses the test's home folder: on a Mac it always uses the real one, regardless of HOME.
    [[nodiscard]] bool hasOwnHome() const
    {
        return document({"protected", m_folder / "home"})[0]["protected"].get<bool>();
    }

    TemporaryFolder m_folder;

private:
    static void giveAway(const std::filesystem::path &path)
    {
        EXPECT_EQ(lchown(path.c_str(), nobody, nobody), 0);
        if (std::filesystem::is_symlink(path) || !std::filesystem::is_directory(path))
            return;
        for (const auto &entry : std::filesystem::directory_iterator(path))
            giveAway(entry.path());
    }
};

/// For tests that depend on the contents of the home folder.
#define REQUIRE_OWN_HOME()                                                                                             \
    if (!hasOwnHome())                                                                                                 \
    GTEST_SKIP() << "the program does not take its home folder from the environment here"

} // namespace corvane
