#include "shell/ui/window/folder_chooser.h"

#include <QQuickItem>
#include <QQuickWindow>
#include <QVariant>

#include "core/store/file_url.h"

namespace corvane {

namespace {

/// The list view of Qt's dialog, which is part of the window. By its name, because Qt makes the dialog of private
/// types; another version's dialog may have no such list, and then shows no hidden folders.
const QQuickItem *listOfDialog(const QQuickItem &from)
{
    if (from.objectName() == QStringLiteral("folderDialogListView"))
        return &from;
    for (const QQuickItem *const child : from.childItems()) {
        if (const QQuickItem *const found = listOfDialog(*child))
            return found;
    }
    return nullptr;
}

} // namespace

void FolderChooser::ask()
{
    if (!m_system) {
        m_system = systemFolderChooser();
        if (m_system) {
            connect(m_system.get(), &SystemFolderChooser::chosen, this, &FolderChooser::chosen);
            connect(m_system.get(), &SystemFolderChooser::unavailable, this, &FolderChooser::dialogWanted);
        }
    }
    if (m_system)
        m_system->ask({m_title, m_acceptLabel, pathOfFileUrl(m_firstFolder)}, qobject_cast<QWindow *>(m_asker.data()));
    else
        emit dialogWanted();
}

void FolderChooser::showHiddenFolders() const
{
    const auto *const window = qobject_cast<QQuickWindow *>(m_asker.data());
    const QQuickItem *const list = window != nullptr ? listOfDialog(*window->contentItem()) : nullptr;
    if (list == nullptr)
        return;
    // By name for the same reason: the list's type and that of its model, FolderListModel, are private in C++.
    if (auto *const model = list->property("model").value<QObject *>())
        model->setProperty("showHidden", true);
}

} // namespace corvane
