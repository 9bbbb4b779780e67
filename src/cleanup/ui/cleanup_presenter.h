#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "core/store/storage_store.h"

namespace corvane {

/// The words and commands of the cleanup screen's header. Main thread only.
class CleanupPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(corvane::StorageStore *store READ store WRITE setStore NOTIFY storeChanged)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed)
    Q_PROPERTY(bool measuring READ isMeasuring NOTIFY changed)
    Q_PROPERTY(bool canSelectSafe READ canSelectSafe NOTIFY changed)

public:
    explicit CleanupPresenter(QObject *parent = nullptr) : QObject(parent) {}

    [[nodiscard]] StorageStore *store() const { return m_store; }
    void setStore(StorageStore *store);

    [[nodiscard]] QString subtitle() const;
    [[nodiscard]] bool isMeasuring() const;
    /// Whether there is anything that is safe to clear.
    [[nodiscard]] bool canSelectSafe() const;

    Q_INVOKABLE void refresh();
    Q_INVOKABLE void selectAllSafe();

signals:
    void storeChanged();
    void changed();

private:
    QPointer<StorageStore> m_store;
};

} // namespace corvane
