#include "cli/commands/commands.h"

#include "cli/json_writer.h"
#include "core/path_argument.h"
#include "core/path_guard.h"
#include "core/second_paths.h"
#include "core/words/display_text.h"

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
        json.value("protected", verdict.isProtected);
        json.endObject();
    }
    json.endArray();
    json.finish();
}

void writeLines(const std::vector<Verdict> &verdicts, Output &out)
{
    for (const Verdict &verdict : verdicts) {
        out.write(verdict.isProtected ? "protected  " : "removable  ");
        out.write(displayUtf8(verdict.path));
        out.write('\n');
    }
}

/// Checks the path, the path with links resolved, and the item's identity, since a mount may show a protected place a
/// second time.
bool isProtectedAnywhere(const std::string &path, const ProtectedLocations &locations, FileSystem &files)
{
    if (locations.isProtected(path, files))
        return true;
    const std::string plain = standardizedPath(path, locations.home());
    const Expected<std::string> folder = files.realPath(std::string(containingFolder(plain)));
    const Expected<std::vector<std::string>> mountPoints = files.mountPoints();
    return folder && mountPoints &&
           SecondPaths(locations, files).leadToProtected(joined(*folder, lastPathComponent(plain)), *mountPoints);
}

ExitStatus run(const Arguments &arguments, Console &console, const Host &host)
{
    const ProtectedLocations &locations = PathGuard::locations();
    std::vector<Verdict> verdicts;
    for (const std::string &path : arguments.paths) {
        const bool isInHome = path == "~" || path.starts_with("~/");
        const Judged<std::string> whole = isInHome ? path : withCurrentFolder(path);
        if (!whole) {
            console.complain(whole.error());
            return ExitStatus::refused;
        }
        verdicts.push_back(
            {standardizedPath(*whole, locations.home()), isProtectedAnywhere(*whole, locations, host.files)});
    }
    if (arguments.has("json"))
        writeJson(verdicts, console.out);
    else
        writeLines(verdicts, console.out);
    return ExitStatus::done;
}

} // namespace

Command protectedCommand()
{
    return {.name = "protected",
            .summary = "Tell which paths are protected from removal; they need not exist.",
            .paths = {.help = "The paths to check", .least = 1, .most = PathArguments::anyNumber},
            .example = "corvane-cli protected ~/Documents /opt/tool",
            .home = Command::Home::needed,
            .run = run};
}

} // namespace corvane
