#pragma once

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QSslCertificate>
#include <QSslKey>
#include <QTcpServer>
#include <QUrl>

class QSslSocket;

namespace corvane {

/// A request from a client.
struct LoopbackRequest {
    QByteArray method;
    QByteArray path;                          ///< including the query
    std::map<QByteArray, QByteArray> headers; ///< names in lower case
    QByteArray body;
};

/// The server's response to a request.
struct LoopbackAnswer {
    enum class Ending {
        whole,    ///< the response as it is
        cutShort, ///< announces a thousand bytes more than it sends, then closes the connection
        endless,  ///< repeats the body, as fast as the client reads
        dripping, ///< one byte every few milliseconds, endlessly
        silent,   ///< sends nothing and keeps the connection open
        closed,   ///< sends nothing and closes the connection
    };

    int status = 200;
    std::vector<std::pair<QByteArray, QByteArray>> headers = {};
    QByteArray body = {};
    Ending ending = Ending::whole;
    QByteArray raw = {}; ///< sent instead of all that, if not empty
};

/// A web server on the loopback interface, which runs in the event loop of the thread that creates it, like its
/// clients. Supports HTTP/1.1, optionally over TLS with a self-signed certificate that is generated for this object.
class LoopbackServer final : private QTcpServer {
public:
    enum class Security { none, tls };

    explicit LoopbackServer(Security security = Security::none);
    ~LoopbackServer() override;

    /// The URL of a path, "http://127.0.0.1:43210/path".
    [[nodiscard]] QUrl url(const QString &path = {}) const;

    /// Sets the response for a path, or for all paths without one of their own.
    void answer(const QByteArray &path, LoopbackAnswer answer) { m_answers[path] = std::move(answer); }
    void answerAll(LoopbackAnswer answer) { m_answer = std::move(answer); }

    /// Complete requests, in order of arrival.
    [[nodiscard]] const std::vector<LoopbackRequest> &requests() const { return m_requests; }
    /// The number of connections, with or without requests.
    [[nodiscard]] int connections() const { return m_connections; }

    /// The server's own, valid for 127.0.0.1 but not for "localhost"; null without TLS.
    [[nodiscard]] const QSslCertificate &certificate() const { return m_certificate; }

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    struct Connection;

    void read(Connection &connection);
    void reply(Connection &connection, const LoopbackAnswer &answer);

    QSslCertificate m_certificate;
    QSslKey m_key;
    std::map<QByteArray, LoopbackAnswer> m_answers;
    LoopbackAnswer m_answer;
    std::vector<LoopbackRequest> m_requests;
    int m_connections = 0;
};

/// A client that trusts one certificate and no other.
class TrustingNetwork final : public QNetworkAccessManager {
public:
    explicit TrustingNetwork(const QSslCertificate &trusted) : m_trusted(trusted) {}

protected:
    QNetworkReply *createRequest(Operation operation, const QNetworkRequest &request, QIODevice *body) override;

private:
    const QSslCertificate m_trusted;
};

} // namespace corvane
