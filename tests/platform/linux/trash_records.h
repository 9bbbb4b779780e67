#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

#include <glib.h>

#include "platform/linux/probe_home.h"

namespace corvane {

/// Skips a test that needs a sandbox where none can be made.
#define REQUIRE_SANDBOX()                                                                                              \
    if (!ProbeHome::canSandbox())                                                                                      \
    GTEST_SKIP() << "bwrap cannot make a sandbox here"

/// A file's bytes; none if it cannot be read.
inline std::string contents(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// Where a link leads; empty if it cannot be read.
inline std::string linkTarget(const std::string &path)
{
    std::string target(4096, '\0');
    const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
    target.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
    return target;
}

/// The original path, as bytes, in a Trash record.
inline std::string originalPath(const std::string &record)
{
    std::istringstream lines(contents(record));
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("Path=")) {
            char *const path = g_uri_unescape_string(line.c_str() + 5, nullptr);
            const std::string result = path != nullptr ? path : "";
            g_free(path);
            return result;
        }
    }
    return {};
}

/// How the probe's answer begins when an operation fails with this code of errno.
inline std::string startOfFailure(int code)
{
    return std::to_string(code) + " ";
}

/// The lines of a probe's answer.
inline std::vector<std::string> lines(const std::string &text)
{
    std::vector<std::string> result;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        result.push_back(line);
    return result;
}

/// The original paths of the items in the Trash, keyed by contents; "none" if there is no record.
inline std::map<std::string, std::string> waysBack(const std::string &trash)
{
    std::map<std::string, std::string> ways;
    for (const auto &each : std::filesystem::directory_iterator(trash + "/files")) {
        const std::string record = trash + "/info/" + each.path().filename().string() + ".trashinfo";
        ways.emplace(contents(each.path()), std::filesystem::exists(record) ? originalPath(record) : "none");
    }
    return ways;
}

} // namespace corvane
