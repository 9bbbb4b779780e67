#pragma once

#include <string>

#include <QObject>
#include <QString>
#include <QUrl>

namespace corvane {

/// What a check for updates has come to.
struct UpdateState {
    enum class Phase {
        idle,
        checking,
        upToDate,
        available,
        downloading,
        verifying, ///< the download is there, its signature is being checked
        ready,
        failed,
    };

    Phase phase = Phase::idle;
    bool isShown =
        false;       ///< whether the user is to see it; an automatic check stays unseen until it has found something
    QString version; ///< the new one's
    QString runningVersion; ///< in every phase
    qint64 size = -1;       ///< of the download, bytes; -1 where the feed does not tell it
    qint64 received = 0;    ///< bytes of it
    QUrl releaseNotes;      ///< empty where there are none
    std::string path;       ///< of the verified download
    bool isPackage = false; ///< whether the system installs it once it is opened
    QString failure;        ///< one line
};

/// One check for updates after the other, with what follows of each: a download that is verified, and nothing further.
/// Main thread only.
class UpdateSession : public QObject {
    Q_OBJECT

public:
    explicit UpdateSession(QObject *parent = nullptr) : QObject(parent) {}

    [[nodiscard]] virtual const UpdateState &state() const = 0; // stateChanged

    /// Of the version that is available; nothing in any other phase.
    virtual void download() = 0;
    /// Back to idle; what is under way is ended, and a download in part deleted.
    virtual void end() = 0;

signals:
    void stateChanged();
};

} // namespace corvane
