#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include "core/store/storage_store.h"

namespace corvane {

/// The short message at the bottom of the window: shown when the store has one, dismissed after its time,
/// which stands still while the pointer rests on it. Main thread only.
class ToastPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(corvane::StorageStore *store READ store WRITE setStore NOTIFY storeChanged)
    Q_PROPERTY(bool shown READ isShown NOTIFY changed)
    Q_PROPERTY(bool warning READ isWarning NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(bool hovered READ isHovered WRITE setHovered NOTIFY hoveredChanged)
    Q_PROPERTY(int stayDuration MEMBER m_stayDuration NOTIFY durationsChanged)
    Q_PROPERTY(int stayWarningDuration MEMBER m_stayWarningDuration NOTIFY durationsChanged)

public:
    explicit ToastPresenter(QObject *parent = nullptr);

    [[nodiscard]] StorageStore *store() const { return m_store; }
    void setStore(StorageStore *store);
    [[nodiscard]] bool isShown() const { return m_shown; }
    [[nodiscard]] bool isWarning() const { return m_warning; }
    /// The last message stays readable while it fades.
    [[nodiscard]] QString text() const { return m_text; }
    [[nodiscard]] bool isHovered() const { return m_hovered; }
    void setHovered(bool hovered);

    Q_INVOKABLE void dismiss();

signals:
    void storeChanged();
    void changed();
    void hoveredChanged();
    void durationsChanged();

private:
    void follow();

    QPointer<StorageStore> m_store;
    QTimer m_timer;
    int m_stayDuration = 0;        // milliseconds
    int m_stayWarningDuration = 0; // milliseconds
    int m_remaining = 0;           // milliseconds, while the pointer rests on it
    bool m_shown = false;
    bool m_warning = false;
    bool m_hovered = false;
    QString m_text;
};

} // namespace corvane
