#include "shell/updates/https_fetch.h"

#include <utility>

#include <QCoreApplication>
#include <QNetworkAccessManager>

#include "shell/plain_request.h"

namespace corvane {

namespace {

constexpr int statusOk = 200;
constexpr int firstErrorStatus = 400;

QNetworkRequest feedRequest(const QUrl &address, std::chrono::milliseconds timeout)
{
    constexpr int mostRedirects = 5;
    QNetworkRequest request = plainRequest(address);
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      QString(QStringLiteral("Corvane/") + QCoreApplication::applicationVersion()));
    // From https to https only.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(mostRedirects);
    request.setTransferTimeout(static_cast<int>(timeout.count()));
    return request;
}

} // namespace

HttpsFetch::HttpsFetch(QNetworkAccessManager &network, const QUrl &address, Limits limits, Sink sink, Receiver received)
    : m_limits(limits),
      m_sink(std::move(sink)),
      m_received(std::move(received)),
      m_reply(network.get(feedRequest(address, limits.timeout)))
{
    // Applies back pressure when the server is faster than the disk.
    constexpr qint64 mostWaiting = 1 << 20;
    m_reply->setReadBufferSize(mostWaiting);
    connect(m_reply.data(), &QNetworkReply::readyRead, this, &HttpsFetch::takeBytes);
    connect(m_reply.data(), &QNetworkReply::finished, this, &HttpsFetch::finish);
}

HttpsFetch::~HttpsFetch()
{
    m_reply->disconnect(this);
    m_reply->abort();
    m_reply->deleteLater(); // this may be called from one of its signals
}

void HttpsFetch::takeBytes()
{
    // Discard the body of an error page.
    if (!m_received || m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() != statusOk)
        return;
    const QByteArray bytes = m_reply->readAll();
    m_count += bytes.size();
    if (m_count > m_limits.mostBytes)
        end(UpdateFailure{m_limits.tooLarge});
    else if (auto failure = m_sink(bytes))
        end(std::move(failure));
}

void HttpsFetch::finish()
{
    if (m_reply->error() != QNetworkReply::NoError) {
        end(failureOfReply());
        return;
    }
    takeBytes();
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status != statusOk)
        end(UpdateFailure{UpdateFailure::Kind::serverStatus, QString::number(status)});
    else
        end(std::nullopt);
}

void HttpsFetch::end(std::optional<UpdateFailure> failure)
{
    if (!m_received)
        return;
    m_reply->disconnect(this);
    m_reply->abort();
    QMetaObject::invokeMethod(
        m_context.get(),
        [received = std::exchange(m_received, nullptr), failure = std::move(failure)] { received(failure); },
        Qt::QueuedConnection);
}

UpdateFailure HttpsFetch::failureOfReply() const
{
    using Kind = UpdateFailure::Kind;
    switch (m_reply->error()) {
    case QNetworkReply::SslHandshakeFailedError:
        return {Kind::untrustedServer};
    case QNetworkReply::InsecureRedirectError:
        return {Kind::insecureRedirect};
    case QNetworkReply::TooManyRedirectsError:
        return {Kind::tooManyRedirects};
    default:
        break;
    }
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status >= firstErrorStatus)
        return {Kind::serverStatus, QString::number(status)};
    return {status == statusOk ? m_limits.cut : Kind::unreachable};
}

} // namespace corvane
