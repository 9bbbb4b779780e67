#pragma once

#include <memory>
#include <string>

#include <QObject>
#include <QString>
#include <QUrl>

class QWindow;

namespace corvane {

/// The desktop's own folder dialog. One question at a time: a new one, or destroying this object, cancels the previous
/// one, and a late answer to it is dropped. Main thread only.
class SystemFolderChooser : public QObject {
    Q_OBJECT

public:
    struct Question {
        QString title;
        QString acceptLabel;
        std::string firstFolder; ///< bytes; the folder that the dialog opens in
    };

    /// Returns immediately; one of the signals follows, or none until the user answers. `window` may be null.
    virtual void ask(const Question &question, const QWindow *window) = 0;

signals:
    void chosen(const QUrl &folder);
    void dismissed();
    /// The system has no such dialog.
    void unavailable();
};

/// The dialog of the current desktop; null if Qt's own is the system's, or there is none.
[[nodiscard]] std::unique_ptr<SystemFolderChooser> systemFolderChooser();

} // namespace corvane
