#pragma once

#include <optional>
#include <string>

namespace corvane {

/// The environment variables for the user's folders. Changes must be made at program start, before other threads exist
/// and before libraries read the variables.
struct Environment {
    /// The problem with HOME as a message; nothing if it is an absolute path or not set.
    [[nodiscard]] static std::optional<std::string> homeComplaint();

    /// The home folder of the user's account, regardless of HOME. "/" if the account does not exist (as in a container
    /// that runs under a bare user ID), has no absolute home folder, or cannot be looked up.
    [[nodiscard]] static std::string accountHome();

    /// The account name for a user ID; nothing if the account does not exist or cannot be looked up.
    [[nodiscard]] static std::optional<std::string> accountName(unsigned int user);

    /// The locale name for a category such as "LC_MESSAGES" or "LC_TIME" from the user's variables ("de_AT.UTF-8");
    /// empty if not set.
    [[nodiscard]] static std::string locale(const char *category);

    /// Sets HOME to `accountHome()`.
    static void useAccountHome();

    /// Removes XDG variables with relative paths, which their standard says to ignore.
    static void ignoreRelativeBaseFolders();
};

} // namespace corvane
