#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include <QByteArray>
#include <QTimer>

#include "core/store/latest_job.h"
#include "shell/updates/https_fetch.h"
#include "shell/updates/newest_update.h"
#include "shell/updates/update_folder.h"
#include "shell/updates/update_key.h"
#include "shell/updates/update_session.h"

namespace corvane {

/// Reads a feed over https, finds the newest version, downloads it to a private folder, and verifies its signature with
/// the build's key before the user can open it. Never runs what it downloads. Main thread only; the signature is
/// verified on a separate thread.
class FeedSession final : public UpdateSession {
    Q_OBJECT

public:
    struct Options {
        QUrl feed;
        QString publicKey; ///< base64
        QString version;   ///< of the running program, for the user
        QString build;     ///< of the running program, for comparison with the feed
        UpdateSystem system = UpdateSystem::ofThisMachine();
        std::string caches;                                           ///< the user's cache folder
        qint64 mostBytes = 1'000'000'000;                             ///< the maximum size of a download
        std::chrono::milliseconds timeout = std::chrono::seconds(60); ///< the limit for a pause in a transfer
        QNetworkAccessManager *network = nullptr; ///< must outlive the session; it creates its own by default
    };

    /// Who started a check. The user sees each step of their own check, but only the outcome of a scheduled one that
    /// found an update.
    enum class Origin { user, schedule };
    /// What to do with a new version.
    enum class OnUpdate { offer, download };

    explicit FeedSession(Options options, QObject *parent = nullptr);
    ~FeedSession() override;

    /// Does nothing while a check or a download is under way.
    void check(Origin origin, OnUpdate onUpdate);
    /// Shows the user the check or download that is under way.
    void show();

    [[nodiscard]] const UpdateState &state() const override { return m_state; }
    void download() override;
    void end() override;

private:
    struct Verdict {
        Expected<bool> verified = false;
    };

    [[nodiscard]] UpdateState startState() const;
    void takeFeed(std::optional<UpdateFailure> failure);
    void takeDownload(std::optional<UpdateFailure> failure);
    [[nodiscard]] std::optional<UpdateFailure> write(QByteArrayView bytes);
    void startTransfer();
    void verify();
    void takeVerdict(const Verdict &verdict);
    void fail(const UpdateFailure &failure);
    void changeTo(UpdateState::Phase phase);
    void fetch(const QUrl &address, HttpsFetch::Limits limits, HttpsFetch::Sink sink, HttpsFetch::Receiver received);
    void dropTransfer();
    [[nodiscard]] QNetworkAccessManager &network();

    const Options m_options;
    UpdateState m_state;
    OnUpdate m_onUpdate = OnUpdate::offer;
    std::unique_ptr<QNetworkAccessManager> m_ownNetwork; // null before the first check
    std::unique_ptr<HttpsFetch> m_fetch;
    QByteArray m_feed;
    std::optional<AppcastItem> m_update;
    std::optional<UpdateKey> m_key;
    std::optional<UpdateFolder> m_folder; // held from the start of a download to its end
    std::string m_name;                   // of the download
    std::shared_ptr<FileDescriptor> m_file;
    bool m_isFromEarlier = false; // the file to verify is left from an earlier download
    QTimer m_progress;            // delays `stateChanged`, which is emitted once for all bytes of an interval
    LatestJob<Verdict> m_verification;
};

} // namespace corvane
