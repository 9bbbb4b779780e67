#pragma once

#include <optional>
#include <string>

namespace corvane {

/// Refuses what the environment says of the user's folders where no program can work with it: relative folders are
/// ignored, and in the place of such a HOME stands that of the account. Called first: libraries read it too, and there
/// must be no threads yet.
/// @return the line that tells people of a refused HOME; nothing where HOME is fine
[[nodiscard]] std::optional<std::string> settleEnvironment();

/// How a desktop started the program: from its menu, or from a file manager.
struct DesktopStart {
    bool isOne = false;          ///< then no terminal shows what the program writes
    std::string activationToken; ///< lets the window come to the front; empty where the desktop gave none
};

/// Asked before Qt's application is made, which takes the marks away.
[[nodiscard]] DesktopStart desktopStart();

} // namespace corvane
