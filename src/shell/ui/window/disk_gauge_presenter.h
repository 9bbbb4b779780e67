#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "core/store/storage_store.h"

namespace corvane {

/// The startup volume in one line and one bar. Main thread only.
class DiskGaugePresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(corvane::StorageStore *store READ store WRITE setStore NOTIFY storeChanged)
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(double usedFraction READ usedFraction NOTIFY changed)

public:
    explicit DiskGaugePresenter(QObject *parent = nullptr) : QObject(parent) {}

    [[nodiscard]] StorageStore *store() const { return m_store; }
    void setStore(StorageStore *store);
    [[nodiscard]] QString text() const;
    /// From 0 to 1; 0 while the volume's size is unknown.
    [[nodiscard]] double usedFraction() const;

signals:
    void storeChanged();
    void changed();

private:
    QPointer<StorageStore> m_store;
};

} // namespace corvane
