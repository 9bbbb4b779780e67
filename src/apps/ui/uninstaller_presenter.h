#pragma once

#include <functional>
#include <optional>

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "apps/ui/app_detail_presenter.h"
#include "apps/ui/app_list_model.h"
#include "apps/ui/orphans_model.h"
#include "core/calendar.h"
#include "shell/ui/store_registration.h"

namespace corvane {

/// The uninstaller's screen: the inventory, and the selected entry. Requests an inventory from the store if there is
/// none. Main thread only.
class UninstallerPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed)
    Q_PROPERTY(bool loading READ isLoading NOTIFY changed)
    /// Shown until the first inventory is complete.
    Q_PROPERTY(QString loadingText READ loadingText CONSTANT)
    /// Shown if nothing is selected, and if there is nothing to select.
    Q_PROPERTY(QString invitation READ invitation CONSTANT)
    Q_PROPERTY(QString nothingTitle READ nothingTitle CONSTANT)
    Q_PROPERTY(QString nothingText READ nothingText CONSTANT)
    Q_PROPERTY(corvane::UninstallerPresenter::Content content READ content NOTIFY changed)
    Q_PROPERTY(corvane::UninstallerPresenter::Shown shown READ shown NOTIFY shownChanged)
    Q_PROPERTY(corvane::AppListModel *apps READ apps CONSTANT)
    Q_PROPERTY(corvane::AppDetailPresenter *app READ app CONSTANT)
    Q_PROPERTY(corvane::OrphansModel *orphans READ orphans CONSTANT)
    /// The target of the list's context menu.
    Q_PROPERTY(corvane::NodeActions *menuTarget READ menuTarget CONSTANT)

public:
    /// What the screen shows.
    enum class Content {
        measuring, ///< no inventory yet
        nothing,   ///< neither applications nor leftovers
        list,
    };
    Q_ENUM(Content)
    /// What is shown beside the list.
    enum class Shown { none, app, orphans };
    Q_ENUM(Shown)

    using Clock = std::function<Time()>;

    /// The clock and the calendar determine how old things are.
    explicit UninstallerPresenter(StorageStore &store = StoreRegistration::store(), Clock clock = &currentTime,
                                  const Calendar &calendar = systemCalendar(), QObject *parent = nullptr);

    [[nodiscard]] QString subtitle() const;
    [[nodiscard]] bool isLoading() const;
    [[nodiscard]] QString loadingText() const;
    [[nodiscard]] QString invitation() const;
    [[nodiscard]] QString nothingTitle() const;
    [[nodiscard]] QString nothingText() const;
    [[nodiscard]] Content content() const;
    [[nodiscard]] Shown shown() const;
    [[nodiscard]] AppListModel *apps() { return &m_apps; }
    [[nodiscard]] AppDetailPresenter *app() { return &m_app; }
    [[nodiscard]] OrphansModel *orphans() { return &m_orphans; }
    [[nodiscard]] NodeActions *menuTarget() { return &m_menuTarget; }

    Q_INVOKABLE void refresh();
    /// Selects a row and shows its details.
    Q_INVOKABLE void choose(int row);
    /// Makes the current application the target of the list's context menu; returns false if there is none.
    Q_INVOKABLE bool prepareMenu();

signals:
    void changed();
    void shownChanged();
    void choiceGone(); ///< the selected entry no longer exists; before `shownChanged`

private:
    void follow();
    void updateShown();
    void setChoice(std::optional<AppListModel::Choice> choice);
    [[nodiscard]] const InstalledApp *chosenApp() const;

    StorageStore &m_store;
    const Clock m_clock;
    const Calendar &m_calendar;
    std::optional<AppListModel::Choice> m_choice;
    QString m_summary; // of the inventory
    AppListModel m_apps;
    AppDetailPresenter m_app{m_store};
    OrphansModel m_orphans{m_store};
    NodeActions m_menuTarget{m_store};
};

} // namespace corvane
