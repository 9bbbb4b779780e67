#include "core/shell.h"

namespace corvane {

std::optional<std::string> Shell::run(const std::string &path, const std::vector<std::string> &arguments,
                                      const StopFlag &stop, const ProcessLimits &limits)
{
    auto output = runProcess(path, arguments, stop, limits);
    if (!output)
        return std::nullopt;
    return *std::move(output);
}

ToolRunner Shell::runner(const StopFlag &stop)
{
    return [&stop](const std::string &tool, const std::vector<std::string> &arguments) {
        std::vector<std::string> line{"LC_ALL=C", tool};
        line.insert(line.end(), arguments.begin(), arguments.end());
        return run("/usr/bin/env", line, stop);
    };
}

} // namespace corvane
