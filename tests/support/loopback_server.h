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

/// What a client sent.
struct LoopbackRequest {
    QByteArray method;
    QByteArray path;                          ///< with its query
    std::map<QByteArray, QByteArray> headers; ///< names in lower case
    QByteArray body;
};

/// What the server does once it has read a request.
struct LoopbackAnswer {
    enum class Ending {
        whole,    ///< the answer as it is
        cutShort, ///< a length of a thousand bytes more than there are, then the end of the connection
        endless,  ///< the body over and over, as fast as it is taken
        dripping, ///< a byte every few milliseconds, without end
        silent,   ///< nothing, and the connection stays open
        closed,   ///< nothing, and the connection ends
    };

    int status = 200;
    std::vector<std::pair<QByteArray, QByteArray>> headers = {};
    QByteArray body = {};
    Ending ending = Ending::whole;
    QByteArray raw = {}; ///< sent in place of all that, if not empty
};

/// A web server on the loopback interface, which lives in the event loop of the thread that makes it, as its clients
/// do. It speaks HTTP/1.1, or the same over TLS with a certificate that nobody has signed and that is made for it
/// alone.
class LoopbackServer final : private QTcpServer {
public:
    enum class Security { none, tls };

    explicit LoopbackServer(Security security = Security::none);
    ~LoopbackServer() override;

    /// The address of what lies there, "http://127.0.0.1:43210/path".
    [[nodiscard]] QUrl url(const QString &path = {}) const;

    /// What is answered for a path, and for all that have no answer of their own.
    void answer(const QByteArray &path, LoopbackAnswer answer) { m_answers[path] = std::move(answer); }
    void answerAll(LoopbackAnswer answer) { m_answer = std::move(answer); }

    /// Whole requests, in the order of their arrival.
    [[nodiscard]] const std::vector<LoopbackRequest> &requests() const { return m_requests; }
    /// How many connections have been made, requests or none.
    [[nodiscard]] int connections() const { return m_connections; }

    /// Its own, for 127.0.0.1 alone and not for "localhost"; null without TLS.
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
