#include "shell/web_service.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include <QIODevice>
#include <QJsonDocument>
#include <QJsonValue>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>

#include "core/store/qt_words.h"
#include "shell/app_info.h"
#include "shell/plain_request.h"

namespace corvane {

namespace {

// A response is a few words; stop reading a longer one.
constexpr qint64 mostAnswer = 8LL * 1024 * 1024;
constexpr qint64 readBuffer = 64LL * 1024;
constexpr qsizetype mostMessage = 300; // UTF-16 units: a few lines of the form

/// A body that can be read only once. If the connection drops before the response, Qt would resend a request with a
/// rewindable body, although the service may have accepted the message.
class SingleUseBody final : public QIODevice {
public:
    explicit SingleUseBody(QByteArray bytes) : m_bytes(std::move(bytes))
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    [[nodiscard]] bool isSequential() const override { return true; }
    bool seek(qint64 /*position*/) override { return false; }
    [[nodiscard]] qint64 bytesAvailable() const override { return rest() + QIODevice::bytesAvailable(); }
    [[nodiscard]] bool atEnd() const override { return rest() == 0; }

protected:
    qint64 readData(char *data, qint64 most) override
    {
        const qint64 count = std::min(most, rest());
        std::memcpy(data, m_bytes.constData() + m_taken, static_cast<std::size_t>(count));
        m_taken += count;
        return count == 0 && most > 0 ? -1 : count;
    }
    qint64 writeData(const char * /*data*/, qint64 /*most*/) override { return -1; }

private:
    [[nodiscard]] qint64 rest() const { return m_bytes.size() - m_taken; }

    const QByteArray m_bytes;
    qint64 m_taken = 0;
};

API::Failure notReached()
{
    return {QStringLiteral("Couldn't reach the server. Check your internet connection.")};
}

API::Failure notHttp()
{
    return {QStringLiteral("No response from the server.")};
}

// The server's own message, on one line that fits the form; empty if there is none.
QString messageIn(const QByteArray &body)
{
    const QJsonValue error = QJsonDocument::fromJson(body).object().value(QLatin1String("error"));
    QString text = displayText(error.toString().simplified().toStdString());
    if (text.size() > mostMessage) {
        text.truncate(text.at(mostMessage - 1).isHighSurrogate() ? mostMessage - 1 : mostMessage);
        text += QChar(0x2026);
    }
    return text;
}

// Whether the error is the response's status. Qt reports statuses as errors too, and for a 307 or 308 it tries to
// rewind the body before returning the response.
bool isOfTheStatus(QNetworkReply::NetworkError error, bool hasStatus)
{
    switch (error) {
    case QNetworkReply::NoError:
    case QNetworkReply::ProtocolInvalidOperationError:
        return true;
    case QNetworkReply::ContentReSendError:
    case QNetworkReply::ProxyAuthenticationRequiredError:
        return hasStatus;
    default:
        return error >= QNetworkReply::ContentAccessDenied && error != QNetworkReply::ProtocolFailure;
    }
}

} // namespace

/// One message in transit.
class API::Exchange {
public:
    Exchange(QNetworkReply *reply, Receiver received) : m_reply(reply), m_received(std::move(received)) {}
    Exchange(const Exchange &) = delete;
    Exchange &operator=(const Exchange &) = delete;
    ~Exchange()
    {
        m_reply->disconnect();
        m_reply->abort();
    }

    void watch(std::chrono::milliseconds timeout)
    {
        m_patience.setSingleShot(true);
        m_patience.setInterval(timeout);
        m_reply->setReadBufferSize(readBuffer);
        QObject::connect(&m_patience, &QTimer::timeout, m_reply.get(), &QNetworkReply::abort);
        QObject::connect(m_reply.get(), &QNetworkReply::uploadProgress, &m_patience, [this] { m_patience.start(); });
        QObject::connect(m_reply.get(), &QNetworkReply::metaDataChanged, &m_patience, [this] { m_patience.start(); });
        QObject::connect(m_reply.get(), &QNetworkReply::readyRead, &m_patience, [this] { read(); });
        m_patience.start();
    }

    [[nodiscard]] QNetworkReply &reply() const { return *m_reply; }
    [[nodiscard]] Receiver takeReceiver() { return std::exchange(m_received, {}); }

    [[nodiscard]] std::optional<Failure> outcome()
    {
        read();
        const QVariant status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
        if (!m_isTooLong && !isOfTheStatus(m_reply->error(), status.isValid()))
            return notReached();
        if (!status.isValid())
            return notHttp();
        if (status.toInt() >= 200 && status.toInt() <= 299)
            return std::nullopt;
        const QString message = m_isTooLong ? QString() : messageIn(m_body);
        return Failure{message.isEmpty() ? QStringLiteral("The server had a problem (%1).").arg(status.toInt())
                                         : message};
    }

private:
    void read()
    {
        if (!m_reply->isOpen()) // aborted
            return;
        m_body += m_reply->readAll();
        if (m_body.size() <= mostAnswer)
            return;
        m_isTooLong = true;
        m_body.clear();
        m_reply->abort();
    }

    const std::unique_ptr<QNetworkReply> m_reply;
    Receiver m_received;
    QByteArray m_body;
    bool m_isTooLong = false;
    QTimer m_patience;
};

API::API(QUrl site, Options options, QObject *parent)
    : QObject(parent),
      m_site(std::move(site)),
      m_options(options),
      m_ownNetwork(options.network == nullptr ? std::make_unique<QNetworkAccessManager>() : nullptr)
{
}

API::~API() = default;

void API::post(const QString &path, const QJsonObject &body, Receiver received)
{
    QNetworkRequest request = plainRequest(AppInfo::pageOf(m_site, path));
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
    // With keep-alive, the server might close the connection just as the next message is sent, which is never resent.
    request.setRawHeader("Connection", "close");
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);

    const QByteArray bytes = QJsonDocument(body).toJson(QJsonDocument::Compact);
    request.setHeader(QNetworkRequest::ContentLengthHeader, bytes.size());
    auto source = std::make_unique<SingleUseBody>(bytes);
    QNetworkAccessManager &network = m_options.network != nullptr ? *m_options.network : *m_ownNetwork;
    QNetworkReply *reply = network.post(request, source.get());
    source.release()->setParent(reply);

    Exchange &exchange = *m_exchanges.emplace_back(std::make_unique<Exchange>(reply, std::move(received)));
    exchange.watch(m_options.timeout);
    // Queued, because the slot destroys the reply.
    connect(
        reply, &QNetworkReply::finished, this, [this, &exchange] { finish(exchange); }, Qt::QueuedConnection);
}

void API::finish(Exchange &exchange)
{
    const std::optional<Failure> failure = exchange.outcome();
    const Receiver received = exchange.takeReceiver();
    std::erase_if(m_exchanges, [&exchange](const auto &each) { return each.get() == &exchange; });
    // Last, because it may destroy the service.
    received(failure);
}

} // namespace corvane
