#include "shell/ui/window/folder_url.h"

#include <QByteArray>

namespace corvane {

std::string pathOfFileUrl(const QUrl &url)
{
    if (!url.isLocalFile())
        return {};
    // toLocalFile() goes through text, in which bytes that are not UTF-8 are lost.
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toUtf8()).toStdString();
}

} // namespace corvane
