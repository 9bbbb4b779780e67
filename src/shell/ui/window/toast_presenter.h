#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/store_registration.h"
#include "shell/ui/theme.h"

namespace corvane {

/// The toast at the bottom of the window: shown when the store has a message and dismissed after a timeout, which is
/// paused while the pointer is over it. Main thread only.
class ToastPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool shown READ isShown NOTIFY changed)
    Q_PROPERTY(bool warning READ isWarning NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(bool hovered READ isHovered WRITE setHovered NOTIFY hoveredChanged)

public:
    explicit ToastPresenter(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] bool isShown() const { return m_shown; }
    [[nodiscard]] bool isWarning() const { return m_warning; }
    /// Keeps the last message while it fades out.
    [[nodiscard]] QString text() const { return m_text; }
    [[nodiscard]] bool isHovered() const { return m_hovered; }
    void setHovered(bool hovered);

    Q_INVOKABLE void dismiss();

    /// In milliseconds; the theme's by default, overridden in tests.
    void setStay(int stay, int ofWarning);

signals:
    void changed();
    void hoveredChanged();

private:
    void follow();

    StorageStore &m_store;
    QTimer m_timer;
    int m_stay = Theme::toastStayDuration();                 // milliseconds
    int m_stayOfWarning = Theme::toastStayWarningDuration(); // milliseconds
    int m_remaining = 0;                                     // milliseconds, while the pointer is over it
    bool m_shown = false;
    bool m_warning = false;
    bool m_hovered = false;
    QString m_text;
};

} // namespace corvane
