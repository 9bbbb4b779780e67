#pragma once

#include <memory>

#include <QObject>
#include <QPointer>
#include <QString>
#include <QUrl>
#include <QWindow>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/system_folder_chooser.h"

namespace corvane {

/// Asks for a folder with the desktop's own dialog, and reports when Qt's dialog is needed instead. Main thread only.
class FolderChooser : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// The parent window of the dialog.
    Q_PROPERTY(QObject *asker MEMBER m_asker NOTIFY changed)
    Q_PROPERTY(QString title MEMBER m_title NOTIFY changed)
    Q_PROPERTY(QString acceptLabel MEMBER m_acceptLabel NOTIFY changed)
    Q_PROPERTY(QUrl firstFolder MEMBER m_firstFolder NOTIFY changed)

public:
    explicit FolderChooser(QObject *parent = nullptr) : QObject(parent) {}

    Q_INVOKABLE void ask();
    /// Makes Qt's dialog, once open, list hidden folders; it has no property for that. No effect on a system dialog.
    Q_INVOKABLE void showHiddenFolders() const;

signals:
    void changed();
    void chosen(const QUrl &folder);
    /// Only Qt's dialog is available.
    void dialogWanted();

private:
    QPointer<QObject> m_asker;
    QString m_title;
    QString m_acceptLabel;
    QUrl m_firstFolder;
    std::unique_ptr<SystemFolderChooser> m_system;
};

} // namespace corvane
