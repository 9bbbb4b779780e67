#pragma once

#include <string>
#include <vector>

#include "support/temporary_folder.h"

namespace corvane {

/// The user account that the program sees: an empty home folder with its own Trash, settings and runtime folder, and an
/// opener that records the folders and settings pages that are opened. Created before anything reads the environment;
/// because the program reads some of it only once, there is one sandbox per process.
class Sandbox {
public:
    Sandbox();
    ~Sandbox();
    Sandbox(const Sandbox &) = delete;
    Sandbox &operator=(const Sandbox &) = delete;

    [[nodiscard]] static const Sandbox &instance();

    /// Aborts the process if the program would use any other home folder or Trash.
    void insist() const;

    /// Restores the initial state: an empty home, an empty Trash, no settings.
    void clear() const;

    [[nodiscard]] const TemporaryFolder &folder() const { return m_folder; }
    [[nodiscard]] const std::string &home() const { return m_home; }
    /// The folder of the items in the Trash.
    [[nodiscard]] std::string trashedFiles() const { return m_folder / "data/Trash/files"; }
    /// The names of the items in the Trash, bytes, sorted.
    [[nodiscard]] std::vector<std::string> trash() const;
    /// The folders opened in the file manager, and the URLs of settings pages.
    [[nodiscard]] std::vector<std::string> opened() const;

private:
    TemporaryFolder m_folder;
    std::string m_home;
};

} // namespace corvane
