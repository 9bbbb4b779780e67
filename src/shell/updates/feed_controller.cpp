#include "shell/updates/feed_controller.h"

#include <utility>

namespace corvane {

namespace {

const QString checksKey = QStringLiteral("SUEnableAutomaticChecks");
const QString downloadsKey = QStringLiteral("SUAutomaticallyUpdate");
const QString lastCheckKey = QStringLiteral("SULastCheckTime");
constexpr qint64 secondsBetweenChecks = 24 * 60 * 60;

} // namespace

FeedController::FeedController(FeedSession::Options options, UserDefaults &defaults, Clock clock, QObject *parent)
    : UpdateController(parent), m_defaults(defaults), m_clock(std::move(clock)), m_session(std::move(options))
{
    connect(&m_session, &UpdateSession::stateChanged, this, &FeedController::followSession);
    connect(&m_timer, &QTimer::timeout, this, &FeedController::checkIfDue);
}

void FeedController::start()
{
    m_isStarted = true;
    followSession();
    m_timer.start(m_clock.tick);
    // Let the window appear first.
    QTimer::singleShot(0, this, &FeedController::checkIfDue);
}

bool FeedController::canCheckForUpdates() const
{
    return m_isStarted && !m_session.state().isShown;
}

void FeedController::followSession()
{
    if (std::exchange(m_couldCheck, canCheckForUpdates()) != canCheckForUpdates())
        emit canCheckForUpdatesChanged();
}

void FeedController::checkForUpdates()
{
    if (!canCheckForUpdates())
        return;
    if (m_session.state().phase == UpdateState::Phase::idle)
        check(FeedSession::Origin::user, FeedSession::OnUpdate::offer);
    else
        m_session.show(); // an automatic check is already running
}

void FeedController::check(FeedSession::Origin origin, FeedSession::OnUpdate onUpdate)
{
    m_defaults.setMoment(lastCheckKey, m_clock.now());
    m_session.check(origin, onUpdate);
}

bool FeedController::isDue() const
{
    const std::optional<QDateTime> last = m_defaults.moment(lastCheckKey);
    const QDateTime now = m_clock.now();
    // A date in the future means that the clock has been set back.
    return !last || *last > now || last->secsTo(now) >= secondsBetweenChecks;
}

void FeedController::checkIfDue()
{
    if (!m_isStarted || !automaticallyChecksForUpdates() || m_session.state().phase != UpdateState::Phase::idle ||
        !isDue())
        return;
    check(FeedSession::Origin::schedule,
          automaticallyDownloadsUpdates() ? FeedSession::OnUpdate::download : FeedSession::OnUpdate::offer);
}

bool FeedController::automaticallyChecksForUpdates() const
{
    return m_defaults.flag(checksKey);
}

void FeedController::setAutomaticallyChecksForUpdates(bool automatically)
{
    m_defaults.setFlag(checksKey, automatically);
    checkIfDue();
}

bool FeedController::automaticallyDownloadsUpdates() const
{
    return m_defaults.flag(downloadsKey);
}

void FeedController::setAutomaticallyDownloadsUpdates(bool automatically)
{
    m_defaults.setFlag(downloadsKey, automatically);
}

} // namespace corvane
