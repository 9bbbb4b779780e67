#include "support/loopback_server.h"

#include <memory>
#include <stdexcept>

#include <openssl/bio.h>
#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#include <QNetworkProxy>
#include <QSslConfiguration>
#include <QSslSocket>
#include <QTimer>

namespace corvane {

namespace {

constexpr qint64 mostWaiting = 1024LL * 1024; // bytes buffered for a slow client of an endless response

template <auto Free>
struct Freed {
    template <typename Held>
    void operator()(Held *held) const
    {
        Free(held);
    }
};
using Key = std::unique_ptr<EVP_PKEY, Freed<&EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, Freed<&X509_free>>;
using Memory = std::unique_ptr<BIO, Freed<&BIO_free>>;

void check(bool succeeded, const char *what)
{
    if (!succeeded)
        throw std::runtime_error(what);
}

void addExtension(X509 *certificate, int kind, const char *value)
{
    const std::unique_ptr<X509_EXTENSION, Freed<&X509_EXTENSION_free>> extension(
        X509V3_EXT_conf_nid(nullptr, nullptr, kind, value));
    check(extension && X509_add_ext(certificate, extension.get(), -1) == 1, "X509_add_ext");
}

QByteArray textOf(const Memory &memory)
{
    char *text = nullptr;
    const long size = BIO_get_mem_data(memory.get(), &text);
    return {text, static_cast<qsizetype>(size)};
}

std::pair<QSslCertificate, QSslKey> makeCertificate()
{
    const Key key(EVP_EC_gen("P-256"));
    const Certificate certificate(X509_new());
    check(key && certificate, "EVP_EC_gen");
    X509_set_version(certificate.get(), X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -24L * 60 * 60);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), 24L * 60 * 60);
    X509_NAME *const name = X509_get_subject_name(certificate.get());
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char *>("corvane test"), -1,
                               -1, 0);
    X509_set_issuer_name(certificate.get(), name);
    X509_set_pubkey(certificate.get(), key.get());
    addExtension(certificate.get(), NID_basic_constraints, "critical,CA:TRUE");
    addExtension(certificate.get(), NID_subject_alt_name, "IP:127.0.0.1");
    check(X509_sign(certificate.get(), key.get(), EVP_sha256()) != 0, "X509_sign");

    const Memory certificateText(BIO_new(BIO_s_mem()));
    const Memory keyText(BIO_new(BIO_s_mem()));
    check(PEM_write_bio_X509(certificateText.get(), certificate.get()) == 1, "PEM_write_bio_X509");
    check(PEM_write_bio_PrivateKey(keyText.get(), key.get(), nullptr, nullptr, 0, nullptr, nullptr) == 1,
          "PEM_write_bio_PrivateKey");
    return {QSslCertificate(textOf(certificateText)), QSslKey(textOf(keyText), QSsl::Ec)};
}

} // namespace

struct LoopbackServer::Connection {
    QSslSocket *socket = nullptr;
    QByteArray unread = {};
    bool isToEnd = false;    // the client has asked to close the connection
    bool isAnswered = false; // finally: no more input is read
};

LoopbackServer::LoopbackServer(Security security)
{
    // A proxy could not reach this machine's loopback interface.
    setProxy(QNetworkProxy::NoProxy);
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    if (security == Security::tls)
        std::tie(m_certificate, m_key) = makeCertificate();
    check(listen(QHostAddress::LocalHost), "listen");
}

LoopbackServer::~LoopbackServer() = default;

QUrl LoopbackServer::url(const QString &path) const
{
    return QStringLiteral("%1://127.0.0.1:%2/%3")
        .arg(m_key.isNull() ? QStringLiteral("http") : QStringLiteral("https"))
        .arg(serverPort())
        .arg(path);
}

void LoopbackServer::incomingConnection(qintptr descriptor)
{
    ++m_connections;
    auto *socket = new QSslSocket(this);
    socket->setSocketDescriptor(descriptor);
    const auto connection = std::make_shared<Connection>(Connection{.socket = socket});
    connect(socket, &QSslSocket::readyRead, this, [this, connection] { read(*connection); });
    connect(socket, &QSslSocket::disconnected, socket, &QObject::deleteLater);
    if (m_key.isNull())
        return;
    socket->setLocalCertificate(m_certificate);
    socket->setPrivateKey(m_key);
    socket->startServerEncryption();
}

void LoopbackServer::read(Connection &connection)
{
    connection.unread += connection.socket->readAll();
    while (!connection.isAnswered) {
        const qsizetype headEnd = connection.unread.indexOf("\r\n\r\n");
        if (headEnd < 0)
            return;
        LoopbackRequest request;
        const QList<QByteArray> lines = connection.unread.left(headEnd).replace("\r\n", "\n").split('\n');
        const QList<QByteArray> words = lines.first().split(' ');
        request.method = words.value(0);
        request.path = words.value(1);
        for (const QByteArray &line : lines.mid(1)) {
            const qsizetype colon = line.indexOf(':');
            request.headers[line.left(colon).toLower()] = line.mid(colon + 1).trimmed();
        }
        const qsizetype bodyStart = headEnd + 4;
        const qsizetype bodySize = request.headers["content-length"].toLongLong();
        if (connection.unread.size() < bodyStart + bodySize)
            return;
        request.body = connection.unread.mid(bodyStart, bodySize);
        connection.unread.remove(0, bodyStart + bodySize);
        connection.isToEnd = request.headers["connection"].toLower() == "close";
        m_requests.push_back(request);
        const auto own = m_answers.find(request.path);
        reply(connection, own == m_answers.end() ? m_answer : own->second);
    }
}

void LoopbackServer::reply(Connection &connection, const LoopbackAnswer &answer)
{
    using Ending = LoopbackAnswer::Ending;
    QSslSocket *const socket = connection.socket;
    connection.isAnswered = answer.ending != Ending::whole || !answer.raw.isEmpty() || connection.isToEnd;
    if (answer.ending == Ending::silent)
        return;
    if (answer.ending == Ending::closed) {
        socket->disconnectFromHost();
        return;
    }
    if (!answer.raw.isEmpty()) {
        socket->write(answer.raw);
        socket->disconnectFromHost();
        return;
    }
    socket->write("HTTP/1.1 " + QByteArray::number(answer.status) + " Answer\r\n");
    for (const auto &[name, value] : answer.headers)
        socket->write(name + ": " + value + "\r\n");
    if (answer.ending == Ending::whole)
        socket->write("Content-Length: " + QByteArray::number(answer.body.size()) + "\r\n");
    if (answer.ending == Ending::cutShort)
        socket->write("Content-Length: " + QByteArray::number(answer.body.size() + 1000) + "\r\n");
    if (connection.isToEnd)
        socket->write("Connection: close\r\n");
    socket->write("\r\n");
    socket->write(answer.body);
    if (answer.ending == Ending::cutShort || (answer.ending == Ending::whole && connection.isToEnd))
        socket->disconnectFromHost();
    if (answer.ending == Ending::endless) {
        connect(socket, &QSslSocket::bytesWritten, socket, [socket, body = answer.body] {
            while (socket->state() == QAbstractSocket::ConnectedState &&
                   socket->bytesToWrite() + socket->encryptedBytesToWrite() < mostWaiting)
                socket->write(body);
        });
    }
    if (answer.ending == Ending::dripping) {
        auto *const drip = new QTimer(socket);
        connect(drip, &QTimer::timeout, socket, [socket] { socket->write("."); });
        drip->start(5);
    }
}

QNetworkReply *TrustingNetwork::createRequest(Operation operation, const QNetworkRequest &request, QIODevice *body)
{
    QNetworkRequest trusting(request);
    QSslConfiguration configuration = request.sslConfiguration();
    configuration.setCaCertificates({m_trusted});
    trusting.setSslConfiguration(configuration);
    return QNetworkAccessManager::createRequest(operation, trusting, body);
}

} // namespace corvane
