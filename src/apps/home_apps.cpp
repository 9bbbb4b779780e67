#include "apps/home_apps.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "apps/folder_listing.h"
#include "apps/name_pieces.h"
#include "apps/program_names.h"
#include "core/allocated_size.h"
#include "core/words/lower_case.h"
#include "platform/file_reader.h"
#include "platform/path.h"

namespace corvane {

namespace {

/// The path with links resolved, but starting with the home folder as configured; nothing if it is outside.
std::optional<std::string> placeInHome(const std::string &path, const SearchContext &context)
{
    const Expected<std::string> real = context.files.realPath(path);
    const std::string &realHome = context.locations.realHome();
    if (!real || !liesBeneath(*real, realHome))
        return std::nullopt;
    return context.locations.home() + real->substr(realHome.size());
}

/// Whether it is machine code. A script in a folder of documents would turn that folder into an application.
bool isMachineCode(const std::string &path, FileSystem &files)
{
    constexpr std::array<char, 4> mark{'\x7f', 'E', 'L', 'F'};
    std::array<std::byte, mark.size()> start{};
    const auto opened = files.openFile(path);
    if (!opened)
        return false;
    const Expected<std::size_t> count = (*opened)->read(0, start);
    return count && *count == start.size() && std::memcmp(start.data(), mark.data(), mark.size()) == 0;
}

/// Whether a folder has subfolders typical of programs beside its "bin".
bool hasPartsOfPrograms(const std::string &folder, FileSystem &files)
{
    constexpr std::array<std::string_view, 6> parts{"lib", "lib64", "libexec", "share", "jre", "jbr"};
    return std::ranges::any_of(parts, [&](std::string_view part) { return files.exists(joined(folder, part)); });
}

/// Whether it directly contains files of the user's own, or a repository in one of its subfolders.
bool holdsOwnWork(const std::string &folder, const SearchContext &context)
{
    constexpr std::array<std::string_view, 11> ownFolders{"desktop",   "documents", "downloads", "notes",
                                                          "pictures",  "projects",  "saves",     "sketchbook",
                                                          "workspace", "worlds",    "videos"};
    constexpr std::array<std::string_view, 26> ownFiles{
        "avi", "blend", "doc", "docx", "flac", "heic", "ino",  "jpeg", "jpg", "kdbx", "kra", "mkv", "mov",
        "mp3", "mp4",   "odp", "ods",  "odt",  "ppt",  "pptx", "psd",  "raw", "tex",  "xcf", "xls", "xlsx"};
    const auto names = namesIn(folder, context.files, context.stop);
    return !names || std::ranges::any_of(*names, [&](const std::string &name) {
        const std::string lowered = lowerCase(name);
        return std::ranges::find(ownFolders, lowered) != ownFolders.end() ||
               std::ranges::find(ownFiles, nameExtension(lowered)) != ownFiles.end() ||
               context.files.exists(joined(joined(folder, name), ".git"));
    });
}

/// The folder that was unpacked with the program inside. Its name must match the program or its entry, which excludes a
/// folder with the user's own scripts. Nothing if its contents may also be the user's own.
std::optional<std::string> unpackedFolder(const std::string &program, const DesktopEntry &entry, const LinuxData &data,
                                          const SearchContext &context)
{
    constexpr std::array<std::string_view, 17> signsOfWork{
        ".git",        ".hg",          ".svn",    ".bzr",      "Makefile",   "CMakeLists.txt",
        "meson.build", "src",          ".vscode", ".idea",     "Cargo.toml", "pyproject.toml",
        "go.mod",      "configure.ac", "cur",     ".obsidian", ".stfolder"};
    // Folders that collect many programs, or the user's own files.
    constexpr std::array<std::string_view, 17> gatheringFolders{
        "applications", "apps",  "bin",      "builds",  "dropbox", "games", "nextcloud", "onedrive", "opt",
        "programs",     "repos", "software", "sources", "sync",    "tools", "work",      "workspace"};
    FileSystem &files = context.files;
    const std::string &home = context.locations.home();
    std::string_view folder = containingFolder(program);
    const bool isInBin = lastPathComponent(folder) == "bin";
    if (isInBin)
        folder = containingFolder(folder);
    if (!liesBeneath(folder, home) || data.touchesDocuments(folder) || data.isDataPlace(folder))
        return std::nullopt;
    if (!isMachineCode(program, files) && !(isInBin && hasPartsOfPrograms(std::string(folder), files)))
        return std::nullopt;
    const std::string_view name = lastPathComponent(folder);
    // Hidden folders in the home folder contain programs' data.
    if ((containingFolder(folder) == home && name.starts_with('.')) ||
        std::ranges::find(gatheringFolders, lowerCase(name)) != gatheringFolders.end())
        return std::nullopt;
    const std::string_view file = lastPathComponent(program);
    if (!bearsName(name, entry.name) && !bearsName(name, entry.id) && !bearsName(name, file.substr(0, file.rfind('.'))))
        return std::nullopt;
    std::string path(folder);
    if (context.locations.isProtected(path, files) ||
        std::ranges::any_of(signsOfWork, [&](std::string_view sign) { return files.exists(joined(path, sign)); }) ||
        holdsOwnWork(path, context))
        return std::nullopt;
    return path;
}

std::optional<FoundApp> foundInHome(const DesktopEntry &entry, const LinuxData &data, const IconSearch &icons,
                                    const SearchContext &context)
{
    if (!entry.program.starts_with('/') || entry.isShortcut)
        return std::nullopt;
    const std::optional<std::string> program = placeInHome(entry.program, context);
    if (!program)
        return std::nullopt;
    const Expected<ItemFacts> facts = context.files.facts(*program);
    if (!facts || facts->type != EntryType::file || context.locations.isProtected(*program, context.files))
        return std::nullopt;
    const bool isImage = isAppImage(*program);
    const std::optional<std::string> place = isImage ? program : unpackedFolder(*program, entry, data, context);
    if (!place)
        return std::nullopt;
    const bool isLauncherFree =
        !context.locations.isProtected(entry.path, context.files) && !data.touchesDocuments(entry.path);
    const std::string realPlace = context.files.realPath(*place).value_or(*place);
    return FoundApp{.app = {.path = *place,
                            .name = entry.name,
                            .bundleID = entry.id,
                            .version = isVersion(entry.version) ? entry.version : versionIn(programName(*place)),
                            .lastUsed = {},
                            .leftovers = {},
                            .source = isImage ? InstalledApp::Source::appImage : InstalledApp::Source::none,
                            .launcher = isLauncherFree ? entry.path : std::string(),
                            .icon = icons.find(entry.icon),
                            .programs = {realPlace}},
                    .owner = ownerOf({entry}, *place),
                    .size = [path = *place, &context] { return allocatedSize(path, context.files, context.stop); }};
}

} // namespace

std::vector<FoundApp> appsInHome(const LinuxData &data, const IconSearch &icons, const SearchContext &context)
{
    const std::string folder = joined(LinuxData::dataFolder(context.locations.home(), context.files), "applications");
    const std::vector<DesktopEntry> entries = entriesIn(folder, context);
    std::set<std::string> programs;
    for (const DesktopEntry &entry : entries) {
        if (!entry.program.starts_with('/') || context.stop)
            continue;
        if (std::optional<std::string> program = placeInHome(entry.program, context))
            programs.insert(*std::move(program));
    }
    const auto holdsSeveral = [&](const std::string &place) {
        return std::ranges::count_if(programs, [&](const std::string &each) { return liesBeneath(each, place); }) > 1;
    };
    std::vector<FoundApp> found;
    for (const DesktopEntry &entry : entries) {
        std::optional<FoundApp> each = foundInHome(entry, data, icons, context);
        const auto isKnown = [&](const FoundApp &other) { return other.app.path == each->app.path; };
        if (each && std::ranges::none_of(found, isKnown) && !holdsSeveral(each->app.path))
            found.push_back(*std::move(each));
    }
    return found;
}

} // namespace corvane
