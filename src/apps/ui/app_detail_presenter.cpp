#include "apps/ui/app_detail_presenter.h"

#include <utility>

#include <QFontMetrics>
#include <QLocale>
#include <QStringList>

#include "apps/ui/app_row.h"
#include "core/checked_add.h"
#include "core/store/qt_words.h"
#include "shell/ui/theme.h"

namespace corvane {

namespace {

constexpr int longestNameInButton = 200; // points; the button must fit into the confirmation

} // namespace

AppDetailPresenter::AppDetailPresenter(StorageStore &store, QObject *parent) : QObject(parent), m_store(store)
{
    m_runningTimer.setInterval(runningInterval);
    connect(&m_runningTimer, &QTimer::timeout, this, &AppDetailPresenter::lookWhetherRunning);
    connect(&m_leftovers, &AppLeftoversModel::chosenChanged, this, &AppDetailPresenter::planChanged);
    connect(&m_leftovers, &AppLeftoversModel::chosenChanged, this, &AppDetailPresenter::canUninstallChanged);
    connect(&m_store, &StorageStore::uninstallsChanged, this, &AppDetailPresenter::canUninstallChanged);
}

// --- The application

void AppDetailPresenter::show(const InstalledApp &app)
{
    m_app = app;
    m_isRunning = m_store.isRunning(app);
    m_runningTimer.start();
    m_leftovers.show(app);
    emit changed();
    emit canUninstallChanged();
}

void AppDetailPresenter::update(const InstalledApp &app)
{
    m_app = app;
    m_leftovers.update(app);
    emit changed();
}

void AppDetailPresenter::clear()
{
    m_app.reset();
    m_isRunning = false;
    m_runningTimer.stop();
    m_leftovers.clear();
    emit changed();
    emit canUninstallChanged();
}

void AppDetailPresenter::lookWhetherRunning()
{
    const bool isRunning = m_app && m_store.isRunning(*m_app);
    if (std::exchange(m_isRunning, isRunning) != isRunning)
        emit changed();
}

// --- Words

QString AppDetailPresenter::name() const
{
    return m_app ? displayText(m_app->name) : QString();
}

QString AppDetailPresenter::iconKey() const
{
    return m_app ? appIconKey(*m_app) : QString();
}

QString AppDetailPresenter::badge() const
{
    return m_app ? displayText(caseName(m_app->source)) : QString();
}

QString AppDetailPresenter::removeCommand() const
{
    return m_app ? displayText(m_app->removeCommand) : QString();
}

QString AppDetailPresenter::ownSize() const
{
    return m_app ? sizeText(m_app->appSize) : QString();
}

QString AppDetailPresenter::removeText() const
{
    return m_app && !asks() ? QStringLiteral("Move Data to Trash") : QStringLiteral("Uninstall…");
}

QString AppDetailPresenter::facts() const
{
    if (!m_app)
        return {};
    QStringList facts;
    if (!m_app->version.empty())
        facts << QStringLiteral("Version ") + bundleText(m_app->version);
    if (m_store.appsTable().tellsIdentifier)
        facts << bundleText(m_app->bundleID);
    if (m_app->isAppStore)
        facts << QStringLiteral("App Store");
    if (m_app->lastUsed)
        facts << QStringLiteral("Last opened ") + abbreviatedDate(localDate(*m_app->lastUsed), QLocale());
    return facts.join(QStringLiteral(" · "));
}

QString AppDetailPresenter::sizes() const
{
    return m_app ? sizesText(*m_app) : QString();
}

QString AppDetailPresenter::total() const
{
    return m_app ? sizeText(m_app->totalSize()) : QString();
}

QString AppDetailPresenter::warning() const
{
    return m_isRunning
               ? name() + QStringLiteral(" is running. Corvane will quit it before uninstalling. Save your work "
                                         "first.")
               : QString();
}

AppDetailPresenter::Plan AppDetailPresenter::currentPlan() const
{
    Plan plan;
    if (!m_app)
        return plan;
    plan.size = asks() ? m_app->appSize : 0;
    for (const Leftover &leftover : m_leftovers.chosenLeftovers()) {
        ++plan.leftovers;
        plan.size = checkedAdd(plan.size, leftover.size);
    }
    return plan;
}

QStringList AppDetailPresenter::partsOfPlan() const
{
    const Plan plan = currentPlan();
    if (m_app && !asks())
        return {countText(plan.leftovers, "item", "items") + QStringLiteral(" of its data"), sizeText(plan.size)};
    const QString leftovers =
        plan.leftovers == 0 ? QString() : QStringLiteral(" and ") + countText(plan.leftovers, "leftover", "leftovers");
    return {QStringLiteral("App") + leftovers, sizeText(plan.size)};
}

QString AppDetailPresenter::plan() const
{
    return partsOfPlan().join(QStringLiteral(" · "));
}

QString AppDetailPresenter::planInTwoLines() const
{
    return partsOfPlan().join(u'\n');
}

QString AppDetailPresenter::question() const
{
    return QStringLiteral("Uninstall %1?").arg(name());
}

QString AppDetailPresenter::explanation() const
{
    const Plan plan = currentPlan();
    // The rest of the sentence is in the plural.
    const QString what = plan.leftovers == 0
                             ? QStringLiteral("The app's files")
                             : QStringLiteral("The app and ") + countText(plan.leftovers, "leftover", "leftovers");
    return what + QStringLiteral(" (") + sizeText(plan.size) + QStringLiteral(") ") +
           displayText(m_store.words().uninstallAdvice);
}

QString AppDetailPresenter::confirmText() const
{
    const QFontMetrics metrics(Theme::bodyMediumFont());
    return QStringLiteral("Move ") + metrics.elidedText(name(), Qt::ElideMiddle, longestNameInButton) +
           QStringLiteral(" to Trash");
}

// --- Actions

bool AppDetailPresenter::canUninstall() const
{
    return m_app && !isUninstalling() && (asks() || !m_leftovers.chosenLeftovers().empty());
}

bool AppDetailPresenter::isUninstalling() const
{
    return m_app && m_store.isUninstalling(m_app->path);
}

void AppDetailPresenter::uninstall()
{
    if (!canUninstall())
        return;
    // Another application may be shown by the time the store answers.
    const InstalledApp app = *m_app;
    m_store.uninstall(app, m_leftovers.chosenLeftovers());
}

void AppDetailPresenter::reveal()
{
    if (m_app)
        m_store.reveal(m_app->path);
}

} // namespace corvane
