#pragma once

#include <optional>
#include <string>

namespace corvane {

/// Corrects environment variables for the user's folders: ignores relative folders, and replaces an unusable HOME by
/// the account's home folder. Call it first: libraries read them too, and no other threads may exist yet.
/// @return a message about a replaced HOME; nothing if HOME is fine
[[nodiscard]] std::optional<std::string> settleEnvironment();

/// How a desktop started the program: from its menu or from a file manager.
struct DesktopStart {
    bool isOne = false;          ///< then the program's output appears on no terminal
    std::string activationToken; ///< lets the window come to the front; empty if the desktop passed none
};

/// Call before creating Qt's application, which clears the variables.
[[nodiscard]] DesktopStart desktopStart();

} // namespace corvane
