#include "cli/protected_command.h"

#include "cli/display_text.h"
#include "cli/json_writer.h"
#include "cli/path_argument.h"
#include "core/path_guard.h"

namespace corvane {

namespace {

struct Verdict {
    std::string path;
    bool isProtected = false;
};

void writeJson(const std::vector<Verdict> &verdicts, Output &out)
{
    JsonWriter json(out);
    json.beginArray();
    for (const Verdict &verdict : verdicts) {
        json.beginObject();
        json.bytes("path", verdict.path);
        json.key("protected");
        json.value(verdict.isProtected);
        json.endObject();
    }
    json.endArray();
    json.finish();
}

void writeLines(const std::vector<Verdict> &verdicts, Output &out)
{
    for (const Verdict &verdict : verdicts) {
        out.write(verdict.isProtected ? "protected  " : "removable  ");
        out.write(displayText(verdict.path));
        out.write('\n');
    }
}

} // namespace

ExitStatus ProtectedCommand::run(Console &console, const Host &host) const
{
    const ProtectedLocations &locations = PathGuard::locations();
    std::vector<Verdict> verdicts;
    for (const std::string &path : paths) {
        const bool isInHome = path == "~" || path.starts_with("~/");
        const Judged<std::string> whole = isInHome ? path : withCurrentFolder(path);
        if (!whole) {
            console.complain(whole.error());
            return ExitStatus::refused;
        }
        verdicts.push_back({standardizedPath(*whole, locations.home()), locations.isProtected(*whole, host.files)});
    }
    if (json)
        writeJson(verdicts, console.out);
    else
        writeLines(verdicts, console.out);
    return ExitStatus::done;
}

} // namespace corvane
