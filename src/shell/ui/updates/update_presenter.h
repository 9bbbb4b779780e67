#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/services_registration.h"
#include "shell/ui/store_registration.h"
#include "shell/updates/update_session.h"

namespace corvane {

/// The contents and commands of the update sheet. Main thread only.
class UpdatePresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// Whether the sheet should be open.
    Q_PROPERTY(bool open READ open NOTIFY changed)
    /// Identifies the sheet's content: when it changes, the focus moves to the new content's button.
    Q_PROPERTY(int step READ step NOTIFY stepChanged)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    /// Empty while the progress bar is visible.
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(bool hasBar READ hasBar NOTIFY changed)
    /// Progress from 0 to 1; -1 if the total is unknown.
    Q_PROPERTY(double fraction READ fraction NOTIFY changed)
    /// The text beside the bar: "12.3 MB of 34.5 MB".
    Q_PROPERTY(QString progress READ progress NOTIFY changed)
    Q_PROPERTY(bool hasReleaseNotes READ hasReleaseNotes NOTIFY changed)
    /// The button labels, from right to left; empty if a button is hidden.
    Q_PROPERTY(QString acceptText READ acceptText NOTIFY changed)
    Q_PROPERTY(QString revealText READ revealText NOTIFY changed)
    Q_PROPERTY(QString dismissText READ dismissText NOTIFY changed)

public:
    explicit UpdatePresenter(StorageStore &store = StoreRegistration::store(),
                             Services &services = ServicesRegistration::services(), QObject *parent = nullptr);

    [[nodiscard]] bool open() const;
    [[nodiscard]] int step() const { return static_cast<int>(state().phase); }
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString message() const;
    [[nodiscard]] bool hasBar() const;
    [[nodiscard]] double fraction() const;
    [[nodiscard]] QString progress() const;
    [[nodiscard]] bool hasReleaseNotes() const;
    [[nodiscard]] QString acceptText() const;
    [[nodiscard]] QString revealText() const;
    [[nodiscard]] QString dismissText() const;

    /// The main button: downloads, opens the package, shows the file, or closes the sheet.
    Q_INVOKABLE void accept();
    /// Shows the verified download in the file manager.
    Q_INVOKABLE void reveal();
    /// Cancels the current step, or closes the sheet if there is nothing to cancel.
    Q_INVOKABLE void dismiss();
    Q_INVOKABLE void openReleaseNotes() const;

signals:
    void stepChanged();
    void changed();

private:
    void follow();
    [[nodiscard]] const UpdateState &state() const;
    [[nodiscard]] QString showText() const;

    StorageStore &m_store;
    UpdateSession *const m_session; // null if the updates have windows of their own
    int m_step;                     // as last emitted
};

} // namespace corvane
