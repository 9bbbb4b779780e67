// Asks the real system one thing and prints the answer, so that a test can do it in a fresh process: with a home
// folder of its own, on a disk of its own, or where something is missing.

#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host.h"
#include "platform/protected_places.h"

namespace {

using namespace corvane;

/// One line for each request: "done", or the code's number and the sentence.
int tell(const Expected<void> &result)
{
    if (result)
        std::cout << "done\n";
    else
        std::cout << result.error().code.value() << ' ' << result.error().description() << '\n';
    return 0;
}

int run(std::string_view question, const std::string &subject)
{
    const Host &host = systemHost();
    if (question == "trash")
        return tell(host.trash.trashItem(subject));
    if (question == "erase")
        return tell(host.files.removeItem(subject));
    if (question == "recycle")
        return tell(host.trash.recycle(subject));
    if (question == "finder")
        return tell(host.trash.deleteThroughFinder(subject));
    if (question == "open")
        return tell(host.desktop.openUrl(subject));
    if (question == "log") {
        host.desktop.log(subject);
        return 0;
    }
    if (question == "motion") {
        std::cout << (host.desktop.prefersReducedMotion() ? "less" : "as usual") << '\n';
        return 0;
    }
    if (question == "trash-folders") {
        for (const std::string &folder : host.trash.trashFolders())
            std::cout << folder << '\n';
        return 0;
    }
    if (question == "forget") {
        host.trash.forget(subject);
        return 0;
    }
    if (question == "exact-places") {
        for (const std::string &place : systemProtectedPlaces().exact)
            std::cout << place << '\n';
        return 0;
    }
    if (question == "volume") {
        const VolumeFacts facts = host.volumes.facts(subject);
        const auto tellNumber = [](const std::optional<std::int64_t> &number) {
            return number ? std::to_string(*number) : "absent";
        };
        std::cout << facts.name.value_or("absent") << ' ' << tellNumber(facts.total) << ' '
                  << tellNumber(facts.available) << ' ' << tellNumber(facts.availableForImportantUse) << '\n';
        return 0;
    }
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    return arguments.empty() ? 2 : run(arguments[0], arguments.size() > 1 ? arguments[1] : std::string());
}
