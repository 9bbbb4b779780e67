#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/store_registration.h"

namespace corvane {

/// The startup volume as one line of text and one bar. Main thread only.
class DiskGaugePresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(double usedFraction READ usedFraction NOTIFY changed)

public:
    explicit DiskGaugePresenter(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] QString text() const;
    /// From 0 to 1; 0 while the volume's size is unknown.
    [[nodiscard]] double usedFraction() const;

signals:
    void changed();

private:
    StorageStore &m_store;
};

} // namespace corvane
