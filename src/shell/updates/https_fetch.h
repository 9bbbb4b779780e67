#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include <QByteArrayView>
#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QUrl>

#include "shell/updates/update_failure.h"

class QNetworkAccessManager;

namespace corvane {

/// Fetches one address over https, redirects included. The server learns the program's name and version, nothing else.
/// Main thread only. Destroying it ends the transfer, and nothing is handed over any more.
class HttpsFetch : public QObject {
    Q_OBJECT

public:
    struct Limits {
        qint64 mostBytes;
        std::chrono::milliseconds timeout; ///< without receiving a byte
        UpdateFailure::Kind tooLarge;      ///< failure if there are more bytes
        UpdateFailure::Kind cut;           ///< failure if the response is truncated
    };

    /// Receives the bytes in order; returning a failure aborts the transfer with it.
    using Sink = std::function<std::optional<UpdateFailure>(QByteArrayView)>;
    /// Called once at the end, from the event loop; nullopt if all bytes were delivered. May destroy the fetch.
    using Receiver = std::function<void(std::optional<UpdateFailure>)>;

    HttpsFetch(QNetworkAccessManager &network, const QUrl &address, Limits limits, Sink sink, Receiver received);
    ~HttpsFetch() override;

private:
    void takeBytes();
    void finish();
    void end(std::optional<UpdateFailure> failure);
    [[nodiscard]] UpdateFailure failureOfReply() const;

    const Limits m_limits;
    const Sink m_sink;
    Receiver m_received;                                                    // empty once called
    const QPointer<QNetworkReply> m_reply;                                  // owned by the network manager
    const std::shared_ptr<QObject> m_context = std::make_shared<QObject>(); // context of the final call
    qint64 m_count = 0;                                                     // bytes received
};

} // namespace corvane
