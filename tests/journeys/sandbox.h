#pragma once

#include <string>
#include <vector>

#include "support/temporary_folder.h"

namespace corvane {

/// The user that the program runs as: an empty home folder with its own Trash, settings and runtime folder, and
/// one program that opens folders and pages of settings and notes down which. Made before anything reads the
/// environment; the program looks at some of it only once, so there is one sandbox for the whole run.
class Sandbox {
public:
    Sandbox();
    ~Sandbox();
    Sandbox(const Sandbox &) = delete;
    Sandbox &operator=(const Sandbox &) = delete;

    [[nodiscard]] static const Sandbox &instance();

    /// Ends the run at once when the program would work on any other home folder or Trash than these.
    void insist() const;

    /// As it was made: an empty home, an empty Trash, no settings.
    void clear() const;

    [[nodiscard]] const TemporaryFolder &folder() const { return m_folder; }
    [[nodiscard]] const std::string &home() const { return m_home; }
    /// The folder of the items in the Trash.
    [[nodiscard]] std::string trashedFiles() const { return m_folder / "data/Trash/files"; }
    /// The names of the items in the Trash, bytes, sorted.
    [[nodiscard]] std::vector<std::string> trash() const;
    /// The folders that were opened in the file manager, and the addresses of settings.
    [[nodiscard]] std::vector<std::string> opened() const;

private:
    TemporaryFolder m_folder;
    std::string m_home;
};

} // namespace corvane
