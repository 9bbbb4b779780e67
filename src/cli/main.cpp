#include <csignal>
#include <exception>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "cli/command_line.h"
#include "platform/environment.h"

int main(int argumentCount, char *arguments[])
{
    // Writes report a closed pipe as an error instead.
    std::signal(SIGPIPE, SIG_IGN);
    corvane::Environment::ignoreRelativeBaseFolders();

    corvane::Console console;
    auto status = corvane::ExitStatus::doneWithFailures;
    try {
        status = corvane::runCommandLine({arguments + 1, arguments + argumentCount}, console);
    } catch (const std::exception &error) {
        console.complain(error.what());
    }
    console.out.close();
    if (console.out.error()) {
        console.complain(fmt::format("cannot write the result: {}", console.out.error().message()));
        status = corvane::ExitStatus::doneWithFailures;
    }
    return static_cast<int>(status);
}
