#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include <QDateTime>
#include <QJsonObject>
#include <QObject>
#include <QThreadPool>

#include "platform/file_system.h"
#include "shell/user_defaults.h"
#include "shell/web_service.h"

namespace corvane {

/// Finds the reports of this program's earlier crashes and sends them where the user wants that. Nothing is sent before
/// the user has allowed it, once or for good. Main thread only; the reports are read on a thread of its own.
class CrashReporter : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool showPrompt READ showPrompt WRITE setShowPrompt NOTIFY showPromptChanged)

public:
    /// Where it looks, and for what.
    struct Places {
        std::vector<std::string> folders; ///< absolute; one that cannot be listed holds no reports
        std::string executable;           ///< how the names of the reports begin, before "-" or "_"
    };
    /// The system's own folder of diagnostic reports and that of the program's crash handler.
    [[nodiscard]] static Places places(FileSystem &files);

    /// What is referred to must outlive it.
    CrashReporter(UserDefaults &defaults, API &api, FileSystem &files, Places places,
                  std::function<QDateTime()> now = &QDateTime::currentDateTimeUtc, QObject *parent = nullptr);
    /// Waits for the reading of a report, which is bounded.
    ~CrashReporter() override;

    /// Whether the question is to be asked if the pending reports may be sent.
    [[nodiscard]] bool showPrompt() const { return m_showPrompt; }
    void setShowPrompt(bool show);
    /// The reports that wait for the answer, by name.
    [[nodiscard]] const std::vector<std::string> &pending() const { return m_pending; }
    [[nodiscard]] bool didCheck() const { return m_didCheck; }

    /// Looks, once per run, for reports since the last run's look, and asks, sends or leaves them, as the user has set.
    void checkOnLaunch();
    /// Regular files of the folders that are named like this program's reports and were written after `since`, by name.
    [[nodiscard]] std::vector<std::string> findReports(const QDateTime &since) const;
    /// Sends the pending reports, and from now on all without asking where `always` is set.
    Q_INVOKABLE void sendPending(bool always);
    /// Sends at most the first 400,000 characters of one report in the background, after those that were asked for
    /// before it. One that cannot be read is skipped; a failure is not told, and nothing is sent again.
    void upload(const std::string &path);

signals:
    void showPromptChanged();

private:
    void uploadNext();
    void post(const QJsonObject &message);

    UserDefaults &m_defaults;
    API &m_api;
    FileSystem &m_files;
    const Places m_places;
    const std::function<QDateTime()> m_now;
    bool m_showPrompt = false;
    bool m_didCheck = false;
    std::vector<std::string> m_pending;
    std::deque<std::string> m_uploads; // those that wait for the one under way
    bool m_isUploading = false;
    QThreadPool m_pool; // last: nothing is read any more once the rest goes
};

} // namespace corvane
