#pragma once

#include <memory>
#include <string>

#include <QObject>
#include <QString>
#include <QUrl>

class QWindow;

namespace corvane {

/// The desktop's own dialog that asks for a folder. One question at a time: another one takes the one before back,
/// as does the end of this object, and what is answered to it afterwards is dropped. Main thread only.
class SystemFolderChooser : public QObject {
    Q_OBJECT

public:
    struct Question {
        QString title;
        QString acceptLabel;
        std::string firstFolder; ///< bytes; where the search begins
    };

    /// Returns at once; one of the signals follows, or none as long as nobody answers. `window` may be null.
    virtual void ask(const Question &question, const QWindow *window) = 0;

signals:
    void chosen(const QUrl &folder);
    void dismissed();
    /// There is no such dialog.
    void unavailable();
};

/// What the desktop that the program runs on offers; null where Qt's own dialog is the system's, or nothing is
/// offered.
[[nodiscard]] std::unique_ptr<SystemFolderChooser> systemFolderChooser();

} // namespace corvane
