#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace corvane {

/// The description of an application in a desktop file. Nothing in it is ever run.
struct DesktopEntry {
    std::string path;    ///< of the file; bytes
    std::string id;      ///< the file name without ".desktop"
    std::string name;    ///< one line, at most 255 bytes; never empty
    std::string program; ///< the program started: a name or a path; empty if unknown
    std::string icon;    ///< an icon name or an absolute path; empty for none
    std::string windowClass;
    std::string snap;         ///< the Snap that it belongs to; empty for none
    std::string version = {}; ///< of an AppImage, verbatim, if the file contains it
    bool isShown = true;      ///< in the menus
    /// Whether it opens a page or a game in another application's program.
    bool isShortcut = false;

    /// Parses the text of the file at that path; nothing if it does not describe an application. The name is taken for
    /// the locale ("de_AT.UTF-8@euro") if the file has a translation.
    [[nodiscard]] static std::optional<DesktopEntry> parse(std::string_view path, std::string_view text,
                                                           std::string_view locale = {});
    /// The same for the file's contents and the user's message locale. Nothing if it is not a regular file, or exceeds
    /// 256 KiB.
    [[nodiscard]] static std::optional<DesktopEntry> read(const std::string &path, FileSystem &files);

    friend bool operator==(const DesktopEntry &, const DesktopEntry &) = default;
};

/// The name of a desktop file without its extension; nothing for any other name.
[[nodiscard]] std::optional<std::string_view> desktopFileID(std::string_view name);

} // namespace corvane
