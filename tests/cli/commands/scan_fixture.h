#pragma once

#include <string>
#include <vector>

#include "cli/cli_test.h"

namespace corvane {

/// The command "scan" of the program, in a temporary folder.
class ScanCommandTest : public CliTest {
protected:
    [[nodiscard]] static std::vector<std::string> keys(const nlohmann::json &object)
    {
        std::vector<std::string> result;
        for (const auto &item : object.items())
            result.push_back(item.key());
        return result;
    }
};

} // namespace corvane
