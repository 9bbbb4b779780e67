#include "core/store/file_url.h"

namespace corvane {

QByteArray fileUrl(std::string_view path)
{
    return "file://" + QByteArray::fromRawData(path.data(), static_cast<qsizetype>(path.size())).toPercentEncoding("/");
}

QUrl fileUrlOfPath(std::string_view path)
{
    return QUrl::fromEncoded(fileUrl(path));
}

std::string pathOfFileUrl(const QUrl &url)
{
    if (!url.isLocalFile())
        return {};
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toUtf8()).toStdString();
}

} // namespace corvane
