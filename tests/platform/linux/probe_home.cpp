#include "platform/linux/probe_home.h"

#include <cstdlib>

#include <glib.h>
#include <gtest/gtest.h>

namespace corvane {

namespace {

struct ProgramResult {
    int status = -1;
    std::string output;
    std::string errors;
};

std::vector<char *> pointers(std::vector<std::string> &texts)
{
    std::vector<char *> result;
    for (std::string &text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

ProgramResult runProgram(std::vector<std::string> arguments, std::vector<std::string> environment)
{
    ProgramResult result;
    char *output = nullptr;
    char *errors = nullptr;
    GError *failure = nullptr;
    if (g_spawn_sync("/", pointers(arguments).data(), pointers(environment).data(), G_SPAWN_SEARCH_PATH, nullptr,
                     nullptr, &output, &errors, &result.status, &failure)) {
        result.output = output;
        result.errors = errors;
        g_free(output);
        g_free(errors);
    } else {
        result.errors = failure->message;
        g_error_free(failure);
    }
    return result;
}

/// PATH for programs that a test starts; those that create disks are not on a normal user's path.
std::string searchPath()
{
    const char *const path = std::getenv("PATH");
    return (path != nullptr ? std::string(path) : "/usr/bin:/bin") + ":/usr/sbin:/sbin";
}

} // namespace

ProbeHome::ProbeHome()
{
    const std::string home = folder.makeFolder("home");
    m_environment = {{"PATH", searchPath()},
                     {"HOME", home},
                     {"XDG_DATA_HOME", home + "/data"},
                     {"XDG_CONFIG_HOME", folder.makeFolder("home/config")},
                     {"XDG_CACHE_HOME", folder.makeFolder("home/cache")},
                     {"XDG_RUNTIME_DIR", folder.makeFolder("runtime")},
                     {"LC_ALL", "C.UTF-8"},
                     // No bus: connecting fails immediately.
                     {"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + home + "/no-bus"},
                     // Leak checking uses ptrace, which a sandbox forbids.
                     {"ASAN_OPTIONS", "detect_leaks=0"},
                     {"probe", CORVANE_SYSTEM_PROBE}};
}

void ProbeHome::setVariable(const std::string &name, const std::string &value)
{
    if (value.empty())
        m_environment.erase(name);
    else
        m_environment[name] = value;
}

std::string ProbeHome::ask(const std::string &question, const std::string &subject) const
{
    return run({CORVANE_SYSTEM_PROBE, question, subject});
}

std::string ProbeHome::runSandboxed(const std::vector<std::string> &options, const std::string &script) const
{
    std::vector<std::string> arguments{"bwrap", "--dev-bind", "/", "/"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    arguments.insert(arguments.end(), {"/bin/sh", "-c", script});
    return run(arguments);
}

bool ProbeHome::canSandbox()
{
    static const bool can = runProgram({"bwrap", "--dev-bind", "/", "/", "--size", "65536", "--tmpfs", "/tmp", "true"},
                                       {"PATH=" + searchPath()})
                                .status == 0;
    return can;
}

std::string ProbeHome::runOnDisk(const std::string &script) const
{
    return run(onDisk(script));
}

bool ProbeHome::canMountDisks() const
{
    return ::geteuid() == 0 && runProgram(onDisk("true"), environment()).status == 0;
}

std::vector<std::string> ProbeHome::onDisk(const std::string &script) const
{
    // The mount is private and disappears with the shell.
    return {"unshare", "--mount", "/bin/sh", "-c",
            "set -e; truncate -s 16M '" + folder / "image" + "'; mkfs.ext4 -q -F '" + folder / "image" +
                "'; mkdir -p '" + folder / "disk" + "'; mount -o loop '" + folder / "image" + "' '" + folder / "disk" +
                "'; set +e; user=$(id -u); cd '" + folder / "disk" + "'; rmdir lost+found\n" + script};
}

std::vector<std::string> ProbeHome::environment() const
{
    std::vector<std::string> result;
    for (const auto &[name, value] : m_environment)
        result.push_back(name + "=" + value);
    return result;
}

std::string ProbeHome::run(const std::vector<std::string> &arguments) const
{
    ProgramResult result = runProgram(arguments, environment());
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_EQ(result.errors, "");
    if (result.output.ends_with('\n'))
        result.output.pop_back();
    return result.output;
}

} // namespace corvane
