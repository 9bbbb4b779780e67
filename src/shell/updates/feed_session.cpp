#include "shell/updates/feed_session.h"

#include <utility>

#include <QNetworkAccessManager>

namespace corvane {

namespace {

using Kind = UpdateFailure::Kind;
using Phase = UpdateState::Phase;

bool isUnderWay(Phase phase)
{
    return phase == Phase::checking || phase == Phase::downloading || phase == Phase::verifying;
}

// A file that could be the download, by its length. The signature of a larger one is not checked, which could take
// hours.
bool hasLength(const FileDescriptor &file, std::optional<qint64> stated, qint64 most)
{
    const auto length = lengthOf(file);
    return length && (stated ? *length == *stated : *length <= most);
}

} // namespace

FeedSession::FeedSession(Options options, QObject *parent)
    : UpdateSession(parent),
      m_options(std::move(options)),
      m_verification([this](const Verdict &verdict) { takeVerdict(verdict); })
{
    constexpr std::chrono::milliseconds progressInterval(100);
    m_state = startState();
    m_progress.setSingleShot(true);
    m_progress.setInterval(progressInterval);
    connect(&m_progress, &QTimer::timeout, this, &UpdateSession::stateChanged);
}

FeedSession::~FeedSession()
{
    dropTransfer();
}

UpdateState FeedSession::startState() const
{
    UpdateState state;
    state.runningVersion = m_options.version;
    return state;
}

void FeedSession::check(Origin origin, OnUpdate onUpdate)
{
    if (isUnderWay(m_state.phase))
        return;
    m_onUpdate = onUpdate;
    m_feed.clear();
    m_update.reset();
    m_isFromEarlier = false;
    m_state = startState();
    m_state.isShown = origin == Origin::user;
    m_key = UpdateKey::fromBase64(m_options.publicKey);
    if (!m_key) {
        fail({Kind::badKey});
        return;
    }
    if (m_options.feed.scheme() != QLatin1String("https") || !m_options.feed.isValid()) {
        fail({Kind::insecureFeed});
        return;
    }
    changeTo(Phase::checking);
    fetch(
        m_options.feed, {Appcast::maximumBytes, m_options.timeout, Kind::feedTooLarge, Kind::feedCut},
        [this](QByteArrayView bytes) {
            m_feed.append(bytes.data(), bytes.size());
            return std::nullopt;
        },
        [this](const std::optional<UpdateFailure> &failure) { takeFeed(failure); });
}

void FeedSession::takeFeed(std::optional<UpdateFailure> failure)
{
    if (failure) {
        fail(*failure);
        return;
    }
    const auto items = Appcast::parse(std::exchange(m_feed, {}));
    if (!items) {
        fail({items.error() == Appcast::Failure::tooLarge ? Kind::feedTooLarge : Kind::feedMalformed});
        return;
    }
    const DottedVersion running = DottedVersion::parse(m_options.build).value_or(DottedVersion());
    const auto newest = newestUpdate(*items, running, m_options.system);
    if (!newest) {
        fail(newest.error());
        return;
    }
    m_update = *newest;
    if (!m_update) {
        changeTo(m_state.isShown ? Phase::upToDate : Phase::idle);
        return;
    }
    m_state.version = m_update->version;
    m_state.size = m_update->length.value_or(-1);
    m_state.releaseNotes = m_update->releaseNotes;
    const bool asksFirst = m_onUpdate == OnUpdate::offer || m_state.isShown;
    m_state.isShown = asksFirst;
    changeTo(Phase::available);
    if (!asksFirst)
        download();
}

void FeedSession::show()
{
    if (m_state.phase == Phase::idle || m_state.isShown)
        return;
    m_state.isShown = true;
    emit stateChanged();
}

void FeedSession::download()
{
    if (m_state.phase != Phase::available)
        return;
    if (m_update->length.value_or(0) > m_options.mostBytes) {
        fail({Kind::downloadTooLarge});
        return;
    }
    auto folder = UpdateFolder::open(m_options.caches);
    if (!folder) {
        fail(UpdateFailure::ofFolder(folder.error()));
        return;
    }
    m_folder = std::move(*folder);
    m_name = UpdateName::of(m_update->version, m_update->download);
    m_state.received = 0;
    auto earlier = m_folder->finished(m_name);
    if (earlier && hasLength(*earlier, m_update->length, m_options.mostBytes)) {
        m_file = std::make_shared<FileDescriptor>(std::move(*earlier));
        m_isFromEarlier = true;
        verify();
        return;
    }
    startTransfer();
}

void FeedSession::startTransfer()
{
    m_isFromEarlier = false;
    auto file = m_folder->startDownload(m_name);
    if (!file) {
        fail(UpdateFailure::ofFolder(file.error()));
        return;
    }
    m_file = std::make_shared<FileDescriptor>(std::move(*file));
    changeTo(Phase::downloading);
    const Kind tooLarge = m_update->length ? Kind::wrongLength : Kind::downloadTooLarge;
    fetch(
        m_update->download,
        {m_update->length.value_or(m_options.mostBytes), m_options.timeout, tooLarge, Kind::downloadCut},
        [this](QByteArrayView bytes) { return write(bytes); },
        [this](const std::optional<UpdateFailure> &failure) { takeDownload(failure); });
}

std::optional<UpdateFailure> FeedSession::write(QByteArrayView bytes)
{
    if (const auto written = writeBytes(*m_file, {bytes.data(), static_cast<std::size_t>(bytes.size())}); !written)
        return UpdateFailure::ofWriting(written.error());
    m_state.received += bytes.size();
    if (!m_progress.isActive())
        m_progress.start();
    return std::nullopt;
}

void FeedSession::takeDownload(std::optional<UpdateFailure> failure)
{
    if (!failure && m_update->length && m_state.received != *m_update->length)
        failure = UpdateFailure{Kind::wrongLength};
    if (failure)
        fail(*failure);
    else
        verify();
}

void FeedSession::verify()
{
    m_fetch.reset();
    changeTo(Phase::verifying);
    m_verification.start(
        [file = m_file, key = *m_key, signature = m_update->signature, isNew = !m_isFromEarlier](const StopFlag &) {
            // A full disk may be reported only now.
            if (isNew) {
                if (const auto flushed = flushToDisk(*file); !flushed)
                    return Verdict{tl::unexpected(flushed.error())};
            }
            return Verdict{key.verifiesFile(file->number(), signature)};
        });
}

void FeedSession::takeVerdict(const Verdict &verdict)
{
    if (!verdict.verified || !*verdict.verified) {
        if (m_isFromEarlier)
            startTransfer(); // it replaces what is there
        else
            fail(verdict.verified ? UpdateFailure{Kind::wrongSignature}
                                  : UpdateFailure::ofWriting(verdict.verified.error()));
        return;
    }
    if (!m_isFromEarlier) {
        if (const auto finished = m_folder->finishDownload(m_name, *m_file); !finished) {
            fail(UpdateFailure::ofWriting(finished.error()));
            return;
        }
    }
    m_state.size = lengthOf(*m_file).value_or(-1);
    m_state.received = m_state.size;
    m_state.path = m_folder->path() + "/" + m_name;
    m_state.isPackage = UpdateName::isPackage(m_name);
    m_state.isShown = true;
    m_file.reset();
    m_folder.reset();
    changeTo(Phase::ready);
}

void FeedSession::end()
{
    dropTransfer();
    m_update.reset();
    m_state = startState();
    changeTo(Phase::idle);
}

void FeedSession::fail(const UpdateFailure &failure)
{
    if (!m_state.isShown) {
        end();
        return;
    }
    dropTransfer();
    m_state.failure = failure.sentence();
    changeTo(Phase::failed);
}

void FeedSession::changeTo(UpdateState::Phase phase)
{
    m_state.phase = phase;
    emit stateChanged();
}

void FeedSession::fetch(const QUrl &address, HttpsFetch::Limits limits, HttpsFetch::Sink sink,
                        HttpsFetch::Receiver received)
{
    m_fetch = std::make_unique<HttpsFetch>(network(), address, limits, std::move(sink), std::move(received));
}

void FeedSession::dropTransfer()
{
    m_verification.drop();
    m_fetch.reset();
    m_progress.stop();
    m_feed.clear();
    m_file.reset();
    if (m_folder && !m_isFromEarlier)
        m_folder->abandonDownload(m_name);
    m_folder.reset();
}

QNetworkAccessManager &FeedSession::network()
{
    if (m_options.network != nullptr)
        return *m_options.network;
    if (!m_ownNetwork)
        m_ownNetwork = std::make_unique<QNetworkAccessManager>();
    return *m_ownNetwork;
}

} // namespace corvane
