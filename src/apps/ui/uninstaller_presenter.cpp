#include "apps/ui/uninstaller_presenter.h"

#include <algorithm>
#include <span>
#include <utility>

#include "apps/listed_items.h"
#include "core/store/qt_words.h"
#include "core/words/shared_texts.h"

namespace corvane {

namespace {

QString summaryOf(std::span<const InstalledApp> apps)
{
    if (apps.empty())
        return displayText(noAppsTitle);
    const QString size = sizeText(appTotal(apps));
    if (apps.size() == 1)
        return QStringLiteral("1 app uses %1, including its data").arg(size);
    return QStringLiteral("%1 apps use %2, including their data")
        .arg(countText(static_cast<std::int64_t>(apps.size())), size);
}

} // namespace

UninstallerPresenter::UninstallerPresenter(StorageStore &store, Clock clock, const Calendar &calendar, QObject *parent)
    : QObject(parent), m_store(store), m_clock(std::move(clock)), m_calendar(calendar)
{
    m_apps.setTellsLastUse(m_store.appsTable().tellsLastUse);
    connect(&m_store, &StorageStore::appsChanged, this, &UninstallerPresenter::follow);
    if (!m_store.appsLoaded() && !m_store.appsLoading())
        m_store.refreshApps();
    follow();
}

// --- Following the store

void UninstallerPresenter::follow()
{
    m_apps.setRows(AppRow::ofOrphans(m_store.orphanGroups(), m_store.orphanTotal()),
                   AppRows(m_store.apps(), m_clock(), m_calendar));
    m_summary = summaryOf(m_store.apps());
    emit changed();
    updateShown();
}

const InstalledApp *UninstallerPresenter::chosenApp() const
{
    if (!m_choice || m_choice->kind != AppRow::Kind::app)
        return nullptr;
    const auto found = std::ranges::find(m_store.apps(), m_choice->path, &InstalledApp::path);
    return found == m_store.apps().end() ? nullptr : &*found;
}

void UninstallerPresenter::updateShown()
{
    if (shown() != Shown::app)
        return;
    if (const InstalledApp *const app = chosenApp()) {
        m_app.update(*app);
    } else {
        emit choiceGone();
        setChoice(std::nullopt);
    }
}

void UninstallerPresenter::setChoice(std::optional<AppListModel::Choice> choice)
{
    if (m_choice == choice)
        return;
    m_choice = std::move(choice);
    m_apps.setChoice(m_choice);
    if (const InstalledApp *const app = chosenApp())
        m_app.show(*app);
    else
        m_app.clear();
    emit shownChanged();
}

// --- What the screen shows

QString UninstallerPresenter::subtitle() const
{
    if (isLoading() || !m_store.appsLoaded())
        return QStringLiteral("Finding your apps and the files they leave behind…");
    return m_summary;
}

bool UninstallerPresenter::isLoading() const
{
    return m_store.appsLoading();
}

QString UninstallerPresenter::loadingText() const
{
    return QStringLiteral("Measuring apps and their leftovers…");
}

QString UninstallerPresenter::invitation() const
{
    return displayText(m_store.appsTable().invitation);
}

QString UninstallerPresenter::nothingTitle() const
{
    return displayText(noAppsTitle);
}

QString UninstallerPresenter::nothingText() const
{
    return displayText(m_store.appsTable().noApps);
}

UninstallerPresenter::Content UninstallerPresenter::content() const
{
    if (!m_store.appsLoaded())
        return Content::measuring;
    return m_store.apps().empty() && m_store.orphanGroups().empty() ? Content::nothing : Content::list;
}

UninstallerPresenter::Shown UninstallerPresenter::shown() const
{
    if (!m_choice)
        return Shown::none;
    return m_choice->kind == AppRow::Kind::app ? Shown::app : Shown::orphans;
}

// --- Actions

void UninstallerPresenter::refresh()
{
    m_store.refreshApps();
}

void UninstallerPresenter::choose(int row)
{
    if (std::optional<AppListModel::Choice> choice = m_apps.choiceAt(row))
        setChoice(std::move(choice));
}

bool UninstallerPresenter::prepareMenu()
{
    const InstalledApp *const app = chosenApp();
    if (app == nullptr)
        return false;
    m_menuTarget.setTarget(app->path, app->appSize, FileNode::Kind::package); // the menu does not open it
    return true;
}

} // namespace corvane
