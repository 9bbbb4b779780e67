#include "shell/plain_request.h"

namespace corvane {

QNetworkRequest plainRequest(const QUrl &address)
{
    QNetworkRequest request(address);
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Corvane"));
    request.setRawHeader("Accept-Language", "en");
    request.setRawHeader("Accept-Encoding", "identity");
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    return request;
}

} // namespace corvane
