#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include "apps/installed_app.h"
#include "apps/ui/app_leftovers_model.h"
#include "core/store/storage_store.h"

namespace corvane {

/// One application: its details, its leftovers, and what uninstalling it would remove. Main thread only.
class AppDetailPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Given by the presenter of the screen")
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(QString iconKey READ iconKey NOTIFY changed)
    /// How it was installed; empty if there is only one way.
    Q_PROPERTY(QString badge READ badge NOTIFY changed)
    /// The command that removes the application itself; empty if the application can be moved to the Trash.
    Q_PROPERTY(QString removeCommand READ removeCommand NOTIFY changed)
    /// The size of the application itself.
    Q_PROPERTY(QString ownSize READ ownSize NOTIFY changed)
    /// The label of the button that moves items to the Trash.
    Q_PROPERTY(QString removeText READ removeText NOTIFY changed)
    /// Whether to ask for confirmation first, because the application itself would be removed.
    Q_PROPERTY(bool asks READ asks NOTIFY changed)
    /// Its version, source and date of last use, as far as known.
    Q_PROPERTY(QString facts READ facts NOTIFY changed)
    Q_PROPERTY(QString sizes READ sizes NOTIFY changed)
    Q_PROPERTY(QString total READ total NOTIFY changed)
    /// Empty if the application is not running.
    Q_PROPERTY(QString warning READ warning NOTIFY changed)
    Q_PROPERTY(corvane::AppLeftoversModel *leftovers READ leftovers CONSTANT)
    /// What would be moved to the Trash.
    Q_PROPERTY(QString plan READ plan NOTIFY planChanged)
    Q_PROPERTY(QString planInTwoLines READ planInTwoLines NOTIFY planChanged)
    Q_PROPERTY(bool canUninstall READ canUninstall NOTIFY canUninstallChanged)
    /// Whether it is being moved to the Trash, or is being quit before that.
    Q_PROPERTY(bool uninstalling READ isUninstalling NOTIFY canUninstallChanged)
    Q_PROPERTY(QString question READ question NOTIFY changed)
    Q_PROPERTY(QString explanation READ explanation NOTIFY planChanged)
    Q_PROPERTY(QString confirmText READ confirmText NOTIFY changed)

public:
    static constexpr int runningInterval = 2'000; // milliseconds between checks whether it is running

    explicit AppDetailPresenter(StorageStore &store, QObject *parent = nullptr);

    /// Shows another application.
    void show(const InstalledApp &app);
    /// Updates the facts of the current application.
    void update(const InstalledApp &app);
    void clear();
    [[nodiscard]] bool isShown() const { return m_app.has_value(); }

    [[nodiscard]] QString name() const;
    [[nodiscard]] QString iconKey() const;
    [[nodiscard]] QString badge() const;
    [[nodiscard]] QString removeCommand() const;
    [[nodiscard]] QString ownSize() const;
    /// "Uninstall…", or "Move Data to Trash"
    [[nodiscard]] QString removeText() const;
    [[nodiscard]] bool asks() const { return m_app && m_app->removeCommand.empty(); }
    /// "Version 5.4.1 · App Store · Last opened 20 Nov 2026"
    [[nodiscard]] QString facts() const;
    /// "app 740 MB + data 8.66 GB"
    [[nodiscard]] QString sizes() const;
    /// "9.4 GB"
    [[nodiscard]] QString total() const;
    [[nodiscard]] QString warning() const;
    [[nodiscard]] AppLeftoversModel *leftovers() { return &m_leftovers; }
    /// "App and 6 leftovers · 8.95 GB", or "4 items of its data · 3.04 GB"
    [[nodiscard]] QString plan() const;
    /// The plan with its size in a second line, for a place too narrow for one.
    [[nodiscard]] QString planInTwoLines() const;
    /// Whether there is anything to remove.
    [[nodiscard]] bool canUninstall() const;
    [[nodiscard]] bool isUninstalling() const;
    [[nodiscard]] QString question() const;
    [[nodiscard]] QString explanation() const;
    [[nodiscard]] QString confirmText() const;

    /// Quits the application, then moves it, unless a command removes it, and the checked leftovers to the Trash.
    Q_INVOKABLE void uninstall();
    /// Shows the bundle in the file manager.
    Q_INVOKABLE void reveal();

signals:
    void changed();
    void planChanged();
    void canUninstallChanged();

private:
    struct Plan {
        std::int64_t leftovers = 0;
        std::int64_t size = 0; ///< bytes, including the application itself if it is removed
    };

    void lookWhetherRunning();
    [[nodiscard]] Plan currentPlan() const;
    /// What would be removed, and its size.
    [[nodiscard]] QStringList partsOfPlan() const;

    StorageStore &m_store;
    std::optional<InstalledApp> m_app;
    bool m_isRunning = false;
    AppLeftoversModel m_leftovers{m_store};
    QTimer m_runningTimer;
};

} // namespace corvane
