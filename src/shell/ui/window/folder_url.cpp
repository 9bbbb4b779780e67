#include "shell/ui/window/folder_url.h"

#include <QByteArray>

#include "core/store/qt_words.h"

namespace corvane {

std::string pathOfFileUrl(const QUrl &url)
{
    if (!url.isLocalFile())
        return {};
    // toLocalFile() decodes to text, which loses bytes that are not UTF-8.
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toUtf8()).toStdString();
}

QUrl fileUrlOfPath(std::string_view path)
{
    return QUrl::fromEncoded(fileUrl(path));
}

} // namespace corvane
