#include "journeys/sandbox.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "core/path_guard.h"
#include "platform/host.h"

namespace corvane {

namespace {

const Sandbox *theSandbox = nullptr;

constexpr const char *openedRecord = "opened";

} // namespace

Sandbox::Sandbox() : m_home(m_folder.makeFolder("home"))
{
    theSandbox = this;
    const std::string opener =
        m_folder.writeText("opener", "#!/bin/sh\nprintf '%s\\n' \"$1\" >> '" + (m_folder / openedRecord) + "'\n");
    std::filesystem::permissions(opener, std::filesystem::perms::owner_all);
    m_folder.writeText(
        "applications/applications/opener.desktop",
        "[Desktop Entry]\nType=Application\nName=Opener\nNoDisplay=true\nMimeType=inode/directory;video/x-matroska;\n"
        "Exec=" +
            opener + " %f\n");
    m_folder.writeText("applications/applications/settings.desktop",
                       "[Desktop Entry]\nType=Application\nName=Settings\nNoDisplay=true\n"
                       "MimeType=x-scheme-handler/x-apple.systempreferences;\nExec=" +
                           opener + " %u\n");
    m_folder.writeText("applications/applications/mimeapps.list",
                       "[Default Applications]\ninode/directory=opener.desktop\n"
                       "video/x-matroska=opener.desktop\n"
                       "x-scheme-handler/x-apple.systempreferences=settings.desktop\n");

    ::setenv("HOME", m_home.c_str(), 1);
    ::setenv("XDG_DATA_HOME", (m_folder / "data").c_str(), 1);
    ::setenv("XDG_DATA_DIRS", ((m_folder / "applications") + ":/usr/local/share:/usr/share").c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (m_folder / "config").c_str(), 1);
    ::setenv("XDG_CONFIG_DIRS", (m_folder / "config").c_str(), 1);
    ::setenv("XDG_CACHE_HOME", (m_folder / "cache").c_str(), 1);
    const std::string runtime = m_folder.makeFolder("runtime");
    std::filesystem::permissions(runtime, std::filesystem::perms::owner_all);
    ::setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
    // Isolates the tests from the desktop they run on.
    for (const char *variable : {"DBUS_SESSION_BUS_ADDRESS", "DISPLAY", "WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP"})
        ::unsetenv(variable);
}

Sandbox::~Sandbox()
{
    theSandbox = nullptr;
}

const Sandbox &Sandbox::instance()
{
    return *theSandbox;
}

void Sandbox::insist() const
{
    const std::vector<std::string> trashFolders = systemHost().trash.trashFolders();
    if (PathGuard::home() == m_home && systemHost().files.homeFolder() == m_home &&
        std::ranges::find(trashFolders, m_folder / "data/Trash") != trashFolders.end())
        return;
    std::fprintf(stderr, "journeys: the program works on the home folder %s, not on the temporary one\n",
                 PathGuard::home().c_str());
    std::abort();
}

void Sandbox::clear() const
{
    for (const char *place : {"home", "data", "config", "elsewhere", openedRecord})
        std::filesystem::remove_all(m_folder / place);
    m_folder.makeFolder("home");
}

std::vector<std::string> Sandbox::trash() const
{
    std::vector<std::string> names;
    if (std::filesystem::is_directory(trashedFiles())) {
        for (const auto &entry : std::filesystem::directory_iterator(trashedFiles()))
            names.push_back(entry.path().filename());
    }
    std::ranges::sort(names);
    return names;
}

std::vector<std::string> Sandbox::opened() const
{
    std::vector<std::string> folders;
    std::ifstream record(m_folder / openedRecord);
    for (std::string line; std::getline(record, line);)
        folders.push_back(line);
    return folders;
}

} // namespace corvane
