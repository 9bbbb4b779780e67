#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <utility>
#include <vector>

#include "cli/cli_test.h"

namespace corvane {

/// The commands that list files, on a folder with three files.
class FileListCommandTest : public CliTest {
protected:
    /// Three files of over 1 MB: from today, from about a year and a half ago, from 2001.
    FileListCommandTest()
    {
        m_folder.writeFile("set/Film.MOV", 3'000'000);
        m_folder.writeFile("set/archive.zip", 2'000'000);
        m_folder.writeFile("set/deep/old film.mov", 5'000'000);
        const std::int64_t now = std::time(nullptr);
        m_folder.setModified("set/archive.zip", now - 540 * std::int64_t{86'400});
        m_folder.setModified("set/deep/old film.mov", 1'000'000'000);
    }

    std::vector<std::string> names(std::vector<std::string> arguments) const
    {
        const nlohmann::json found = document(std::move(arguments));
        std::vector<std::string> result;
        for (const nlohmann::json &file : found["files"])
            result.push_back(file["path"].get<std::string>().substr((m_folder / "set/").size()));
        return result;
    }
    using Names = std::vector<std::string>;
};

} // namespace corvane
