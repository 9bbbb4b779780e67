#include "disk/shell.h"

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
        return run(tool, arguments, stop);
    };
}

} // namespace corvane
