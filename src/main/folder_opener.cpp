#include "main/folder_opener.h"

#include <QFileOpenEvent>

#include "core/store/storage_store.h"
#include "shell/ui/window/folder_url.h"

namespace corvane {

bool FolderOpener::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::FileOpen)
        return QObject::eventFilter(watched, event);
    const std::string path = pathOfFileUrl(static_cast<QFileOpenEvent *>(event)->url());
    if (!path.empty())
        m_store.scan(path);
    return true;
}

} // namespace corvane
