#pragma once

#include <functional>
#include <memory>
#include <string>

namespace corvane {

/// What a start of the program asks of the one that runs already.
struct StartRequest {
    std::string folder;          ///< absolute path, byte for byte, or an address; empty: to show the window alone
    std::string activationToken; ///< with which a desktop lets a window come to the front; empty where it gave none

    friend bool operator==(const StartRequest &, const StartRequest &) = default;
};

/// The one program that runs for this user, home folder and display, as long as the object lives: takes what later
/// starts ask. Where there is no session bus there is no such program, and each start opens a window of its own. Made
/// after the QGuiApplication; main thread only.
class RunningProgram {
public:
    using Answer = std::function<void(const StartRequest &)>;

    /// Hands a request to the one that runs. False where none does, or none that sees the same disks and display, or
    /// it does not answer within some seconds.
    [[nodiscard]] static bool handOver(const StartRequest &request);

    /// `answer` is called in the event loop.
    explicit RunningProgram(Answer answer);
    ~RunningProgram();
    RunningProgram(const RunningProgram &) = delete;
    RunningProgram &operator=(const RunningProgram &) = delete;

private:
    class Listener;
    std::unique_ptr<Listener> m_listener; // null where there is no bus
};

} // namespace corvane
