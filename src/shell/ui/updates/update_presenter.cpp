#include "shell/ui/updates/update_presenter.h"

#include <algorithm>
#include <utility>

#include "core/store/qt_words.h"
#include "shell/ui/open_page.h"

namespace corvane {

namespace {

using Phase = UpdateState::Phase;

} // namespace

UpdatePresenter::UpdatePresenter(StorageStore &store, Services &services, QObject *parent)
    : QObject(parent), m_store(store), m_session(services.updater()->controller().session()), m_step(step())
{
    if (m_session != nullptr)
        connect(m_session, &UpdateSession::stateChanged, this, &UpdatePresenter::follow);
}

void UpdatePresenter::follow()
{
    emit changed();
    if (std::exchange(m_step, step()) != step())
        emit stepChanged();
}

const UpdateState &UpdatePresenter::state() const
{
    static const UpdateState none;
    return m_session != nullptr ? m_session->state() : none;
}

bool UpdatePresenter::open() const
{
    return state().isShown && state().phase != Phase::idle;
}

QString UpdatePresenter::title() const
{
    switch (state().phase) {
    case Phase::idle:
        return {};
    case Phase::checking:
        return QStringLiteral("Checking for updates…");
    case Phase::upToDate:
        return QStringLiteral("You're up to date");
    case Phase::available:
        return QStringLiteral("Corvane %1 is available").arg(state().version);
    case Phase::downloading:
        return QStringLiteral("Downloading Corvane %1…").arg(state().version);
    case Phase::verifying:
        return QStringLiteral("Checking the signature of Corvane %1…").arg(state().version);
    case Phase::ready:
        return QStringLiteral("Corvane %1 has been downloaded").arg(state().version);
    case Phase::failed:
        return QStringLiteral("Can't update Corvane");
    }
    return {};
}

QString UpdatePresenter::message() const
{
    switch (state().phase) {
    case Phase::upToDate:
        return QStringLiteral("Corvane %1 is the newest version.").arg(state().runningVersion);
    case Phase::available: {
        const QString running = QStringLiteral("You have Corvane %1.").arg(state().runningVersion);
        return state().size < 0 ? running
                                : running + QStringLiteral(" The download is %1.").arg(sizeText(state().size));
    }
    case Phase::ready:
        return state().isPackage
                   ? QStringLiteral("Its signature is valid. Open the package to install it, or find it in the file "
                                    "manager. Corvane installs nothing by itself.")
                   : QStringLiteral("Its signature is valid. Find it in the file manager to install it. Corvane "
                                    "installs nothing by itself.");
    case Phase::failed:
        return state().failure;
    case Phase::idle:
    case Phase::checking:
    case Phase::downloading:
    case Phase::verifying:
        return {};
    }
    return {};
}

bool UpdatePresenter::hasBar() const
{
    const Phase phase = state().phase;
    return phase == Phase::checking || phase == Phase::downloading || phase == Phase::verifying;
}

double UpdatePresenter::fraction() const
{
    if (state().phase != Phase::downloading || state().size <= 0)
        return -1;
    return std::min(1.0, static_cast<double>(state().received) / static_cast<double>(state().size));
}

QString UpdatePresenter::progress() const
{
    if (state().phase != Phase::downloading)
        return {};
    const QString received = sizeText(state().received);
    return state().size > 0 ? QStringLiteral("%1 of %2").arg(received, sizeText(state().size)) : received;
}

bool UpdatePresenter::hasReleaseNotes() const
{
    return state().phase == Phase::available && !state().releaseNotes.isEmpty();
}

QString UpdatePresenter::acceptText() const
{
    switch (state().phase) {
    case Phase::upToDate:
    case Phase::failed:
        return QStringLiteral("OK");
    case Phase::available:
        return QStringLiteral("Download");
    case Phase::ready:
        return state().isPackage ? QStringLiteral("Open Package") : showText();
    case Phase::idle:
    case Phase::checking:
    case Phase::downloading:
    case Phase::verifying:
        return {};
    }
    return {};
}

QString UpdatePresenter::showText() const
{
    return displayText(m_store.words().reveal);
}

QString UpdatePresenter::revealText() const
{
    return state().phase == Phase::ready && state().isPackage ? showText() : QString();
}

QString UpdatePresenter::dismissText() const
{
    if (hasBar())
        return QStringLiteral("Cancel");
    if (state().phase == Phase::available)
        return QStringLiteral("Not Now");
    return state().phase == Phase::ready ? QStringLiteral("Later") : QString();
}

void UpdatePresenter::accept()
{
    if (state().phase == Phase::available) {
        m_session->download();
    } else if (state().phase != Phase::ready) {
        dismiss();
    } else if (!state().isPackage) {
        reveal();
    } else {
        m_store.openFile(state().path);
        dismiss();
    }
}

void UpdatePresenter::reveal()
{
    if (state().phase != Phase::ready)
        return;
    m_store.reveal(state().path);
    dismiss();
}

void UpdatePresenter::dismiss()
{
    if (state().phase != Phase::idle)
        m_session->end();
}

void UpdatePresenter::openReleaseNotes() const
{
    if (hasReleaseNotes())
        openPage(m_store, state().releaseNotes);
}

} // namespace corvane
