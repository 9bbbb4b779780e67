#include "shell/ui/window/folder_url.h"

#include <QByteArray>

#include "core/store/qt_words.h"

namespace corvane {

std::string pathOfFileUrl(const QUrl &url)
{
    if (!url.isLocalFile())
        return {};
    // toLocalFile() goes through text, in which bytes that are not UTF-8 are lost.
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toUtf8()).toStdString();
}

QUrl fileUrlOfPath(std::string_view path)
{
    return QUrl::fromEncoded(fileUrl(path));
}

} // namespace corvane
