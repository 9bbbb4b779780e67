#pragma once

#include <map>
#include <string>
#include <vector>

#include "support/temporary_folder.h"

namespace corvane {

/// A temporary home folder with everything that desktop programs look up in the environment, and the probe run in it:
/// it uses the Trash in that home.
class ProbeHome {
public:
    ProbeHome();

    /// The temporary folder; "home" in it is the home folder, "home/data" its data folder.
    const TemporaryFolder folder;

    /// Sets a variable of the probe's environment; an empty value unsets it.
    void setVariable(const std::string &name, const std::string &value);

    /// Runs the probe and returns its output without the trailing newline. Fails the test if the probe fails or prints
    /// a warning.
    [[nodiscard]] std::string ask(const std::string &question, const std::string &subject = {}) const;

    /// The same for another test program.
    [[nodiscard]] std::string runOther(const std::vector<std::string> &arguments) const { return run(arguments); }

    /// Runs a shell script in bubblewrap with these options added to a view of the whole machine; in the script
    /// "$probe" is the probe. Returns its output. Requires `canSandbox()`.
    [[nodiscard]] std::string runSandboxed(const std::vector<std::string> &options, const std::string &script) const;

    /// Whether this machine can run a sandbox.
    [[nodiscard]] static bool canSandbox();

    /// Runs a shell script in the root of a small empty disk that is mounted at "disk" for the script only; "$probe" is
    /// the probe and "$user" the user id. Returns its output. Requires `canMountDisks()`.
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
