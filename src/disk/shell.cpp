#include "disk/shell.h"

#include "platform/process_runner.h"

namespace corvane {

std::optional<std::string> Shell::run(const std::string &path, const std::vector<std::string> &arguments,
                                      const StopFlag &stop)
{
    auto output = runProcess(path, arguments, stop);
    if (!output)
        return std::nullopt;
    return *std::move(output);
}

} // namespace corvane
