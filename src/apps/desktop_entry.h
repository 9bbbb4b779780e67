#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace corvane {

/// What a desktop file says of the application that it starts. Nothing that it names is ever run.
struct DesktopEntry {
    std::string path;    ///< of the file; bytes
    std::string id;      ///< the file's name without ".desktop"
    std::string name;    ///< on one line, at most 255 bytes; never empty
    std::string program; ///< what it starts: a name, or a path; empty where that cannot be told
    std::string icon;    ///< a name among the icons of the system, or an absolute path; empty for none
    std::string windowClass;
    std::string snap;         ///< the Snap that it belongs to; empty for none
    std::string version = {}; ///< of an AppImage, where the file tells it; as it stands there
    bool isShown = true;      ///< among the applications of the menus
    /// It opens a page or a game in the program of another application.
    bool isShortcut = false;

    /// Reads the text of the file at that path; nothing where it describes no application. The name is that of the
    /// locale ("de_AT.UTF-8@euro"), as far as the file has it.
    [[nodiscard]] static std::optional<DesktopEntry> parse(std::string_view path, std::string_view text,
                                                           std::string_view locale = {});
    /// The same with the file's own text and the user's locale of messages. Nothing for what is no regular file, or one
    /// of more than 256 KiB.
    [[nodiscard]] static std::optional<DesktopEntry> read(const std::string &path, FileSystem &files);

    friend bool operator==(const DesktopEntry &, const DesktopEntry &) = default;
};

/// The name of a desktop file without its ending; nothing for any other name.
[[nodiscard]] std::optional<std::string_view> desktopFileID(std::string_view name);

} // namespace corvane
