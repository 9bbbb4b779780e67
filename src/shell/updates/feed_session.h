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

/// Updates from a feed over https: the newest version that is signed with the build's key, downloaded to a private
/// folder of the user's and verified there before it is offered. Nothing is ever run. Main thread only; verifying has a
/// thread of its own.
class FeedSession final : public UpdateSession {
    Q_OBJECT

public:
    struct Options {
        QUrl feed;
        QString publicKey; ///< base64
        QString version;   ///< of the running program, as it is shown
        QString build;     ///< of the running program
        UpdateSystem system = UpdateSystem::ofThisMachine();
        std::string caches;                                           ///< the user's folder of caches
        qint64 mostBytes = 1'000'000'000;                             ///< of a download
        std::chrono::milliseconds timeout = std::chrono::seconds(60); ///< without a byte
        QNetworkAccessManager *network = nullptr; ///< outlives the session; one of its own by default
    };

    /// Who started it: a check of the user shows everything, an automatic one only what it finds.
    enum class Origin { user, schedule };
    /// What becomes of a new version.
    enum class OnUpdate { offer, download };

    explicit FeedSession(Options options, QObject *parent = nullptr);
    ~FeedSession() override;

    /// Nothing while a check or a download is under way.
    void check(Origin origin, OnUpdate onUpdate);
    /// The user is to see what is under way.
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
    std::unique_ptr<QNetworkAccessManager> m_ownNetwork; // made with the first check
    std::unique_ptr<HttpsFetch> m_fetch;
    QByteArray m_feed;
    std::optional<AppcastItem> m_update;
    std::optional<UpdateKey> m_key;
    std::optional<UpdateFolder> m_folder; // held from the start of a download to its end
    std::string m_name;                   // of the download
    std::shared_ptr<FileDescriptor> m_file;
    bool m_isFromEarlier = false; // the file that is being verified was there already
    QTimer m_progress;            // runs from bytes that have arrived until that is told
    LatestJob<Verdict> m_verification;
};

} // namespace corvane
