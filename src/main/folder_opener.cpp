#include "main/folder_opener.h"

#include <QFileOpenEvent>

#include "core/store/file_url.h"

namespace corvane {

bool FolderOpener::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::FileOpen)
        return QObject::eventFilter(watched, event);
    const std::string path = pathOfFileUrl(static_cast<QFileOpenEvent *>(event)->url());
    if (!path.empty())
        m_answer({.folder = path, .activationToken = {}});
    return true;
}

} // namespace corvane
