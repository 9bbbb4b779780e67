#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/store_registration.h"

namespace corvane {

/// The texts and commands of the cleanup screen's header. Main thread only.
class CleanupPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed)
    Q_PROPERTY(bool measuring READ isMeasuring NOTIFY changed)
    Q_PROPERTY(bool canSelectSafe READ canSelectSafe NOTIFY changed)

public:
    explicit CleanupPresenter(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] QString subtitle() const;
    [[nodiscard]] bool isMeasuring() const;
    /// Whether there is anything that is safe to clear.
    [[nodiscard]] bool canSelectSafe() const;

    Q_INVOKABLE void refresh();
    Q_INVOKABLE void selectAllSafe();

signals:
    void changed();

private:
    StorageStore &m_store;
};

} // namespace corvane
