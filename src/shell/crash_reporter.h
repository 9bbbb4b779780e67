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

/// Finds reports of earlier crashes of this program and sends them if the user agrees. Nothing is sent before the user
/// has allowed it, once or permanently. Main thread only; reports are read on a separate thread.
class CrashReporter : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool showPrompt READ showPrompt WRITE setShowPrompt NOTIFY showPromptChanged)

public:
    /// Where to search, and for which names.
    struct Places {
        std::vector<std::string> folders; ///< absolute; a folder that cannot be listed counts as empty
        std::string executable;           ///< report names begin with this, followed by "-" or "_"
    };
    /// The system's folder of diagnostic reports and the crash handler's own folder.
    [[nodiscard]] static Places places(FileSystem &files);

    /// All references must outlive this object.
    CrashReporter(UserDefaults &defaults, API &api, FileSystem &files, Places places,
                  std::function<QDateTime()> now = &QDateTime::currentDateTimeUtc, QObject *parent = nullptr);
    /// Waits for a report that is being read; reads are bounded.
    ~CrashReporter() override;

    /// Whether to ask the user for permission to send the pending reports.
    [[nodiscard]] bool showPrompt() const { return m_showPrompt; }
    void setShowPrompt(bool show);
    /// The reports waiting for the user's answer, by name.
    [[nodiscard]] const std::vector<std::string> &pending() const { return m_pending; }
    [[nodiscard]] bool didCheck() const { return m_didCheck; }

    /// Searches, once per run, for reports since the previous run's check, and asks, sends or ignores them according to
    /// the user's setting.
    void checkOnLaunch();
    /// Regular files in the folders that are named like this program's reports and were written after `since`, by name.
    [[nodiscard]] std::vector<std::string> findReports(const QDateTime &since) const;
    /// Sends the pending reports; `always` also sends future ones without asking.
    Q_INVOKABLE void sendPending(bool always);
    /// Sends at most the first 400,000 characters of one report in the background, in order of the calls. A report that
    /// cannot be read is skipped; failures are silent and not retried.
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
    std::deque<std::string> m_uploads; // queued behind the upload in progress
    bool m_isUploading = false;
    QThreadPool m_pool; // last: its destructor waits for reads that use the members above
};

} // namespace corvane
