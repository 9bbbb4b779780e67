#pragma once

#include <functional>
#include <memory>
#include <string>

namespace corvane {

/// What a new start of the program requests from the running instance.
struct StartRequest {
    std::string folder;          ///< absolute path, byte for byte, or a URL; empty: only show the window
    std::string activationToken; ///< lets a window come to the front on some desktops; empty if none

    friend bool operator==(const StartRequest &, const StartRequest &) = default;
};

/// The single instance for this user, home folder and display, while the object exists: handles the requests of later
/// starts. Without a session bus there is no single instance, and each start opens its own window. Create it after the
/// QGuiApplication; main thread only.
class RunningProgram {
public:
    using Answer = std::function<void(const StartRequest &)>;

    /// Passes a request to the running instance. False if there is none, if it uses other disks or another display, or
    /// if it does not reply within a few seconds.
    [[nodiscard]] static bool handOver(const StartRequest &request);

    /// `answer` is called in the event loop.
    explicit RunningProgram(Answer answer);
    ~RunningProgram();
    RunningProgram(const RunningProgram &) = delete;
    RunningProgram &operator=(const RunningProgram &) = delete;

private:
    class Listener;
    std::unique_ptr<Listener> m_listener; // null without a bus
};

} // namespace corvane
