#pragma once

#include <optional>
#include <string>

namespace corvane {

/// What the environment variables tell of the user's folders. The changes are made at the start of a program, before
/// it has threads and before libraries read the variables.
struct Environment {
    /// What is wrong with HOME, for people; nothing where it is an absolute path or not set.
    [[nodiscard]] static std::optional<std::string> homeComplaint();

    /// The home folder that the user's account has, whatever HOME says.
    [[nodiscard]] static std::string accountHome();

    /// The name of the account with that number of a user; absent where there is none.
    [[nodiscard]] static std::optional<std::string> accountName(unsigned int user);

    /// In which language, country and the like something is, such as "LC_MESSAGES" or "LC_TIME", as the user's
    /// variables tell it ("de_AT.UTF-8"); empty where they do not.
    [[nodiscard]] static std::string locale(const char *category);

    /// Sets HOME to the account's home folder.
    static void useAccountHome();

    /// Takes the XDG variables away that name relative paths, which their standard has ignored.
    static void ignoreRelativeBaseFolders();
};

} // namespace corvane
