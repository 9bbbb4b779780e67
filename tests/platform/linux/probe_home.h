#pragma once

#include <map>
#include <string>
#include <vector>

#include "support/temporary_folder.h"

namespace corvane {

/// A home folder of the test's own with everything that a desktop's programs ask the environment for, and the
/// probe run in it: what it does to the Trash, it does to the one in there.
class ProbeHome {
public:
    ProbeHome();

    /// What lies in the temporary folder; "home" is the home folder, "home/data" its data folder.
    const TemporaryFolder folder;

    /// Replaces a variable of the probe's environment; an empty value takes it away.
    void setVariable(const std::string &name, const std::string &value);

    /// Runs the probe and returns what it printed, without the last line break. Fails the test when the probe
    /// does not end well or writes a warning.
    [[nodiscard]] std::string ask(const std::string &question, const std::string &subject = {}) const;

    /// The same for another program of the test's.
    [[nodiscard]] std::string runOther(const std::vector<std::string> &arguments) const { return run(arguments); }

    /// Runs a shell script in bubblewrap with these options added to a view of the whole machine; in the script
    /// "$probe" is the probe. Returns what it printed. Call only where `canSandbox()`.
    [[nodiscard]] std::string runSandboxed(const std::vector<std::string> &options, const std::string &script) const;

    /// Whether this machine lets us make a sandbox.
    [[nodiscard]] static bool canSandbox();

    /// Runs a shell script in the top folder of a small empty disk that is mounted at "disk" for the script
    /// alone; "$probe" is the probe and "$user" the user's number. Returns what it printed. Call only where
    /// `canMountDisks()`.
    [[nodiscard]] std::string runOnDisk(const std::string &script) const;

    /// Whether this user may mount a disk image.
    [[nodiscard]] bool canMountDisks() const;

private:
    [[nodiscard]] std::string run(const std::vector<std::string> &arguments) const;
    [[nodiscard]] std::vector<std::string> environment() const;
    [[nodiscard]] std::vector<std::string> onDisk(const std::string &script) const;

    std::map<std::string, std::string> m_environment;
};

} // namespace corvane
