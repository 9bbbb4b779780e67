#pragma once

#include <chrono>

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include "core/words/system_words.h"
#include "shell/ui/services_registration.h"
#include "shell/ui/store_registration.h"
#include "shell/user_defaults.h"

namespace corvane {

/// The first launch: explains the program and asks for full disk access. While its sheet is visible, the access is
/// checked immediately and then every second until it is granted. Main thread only.
class OnboardingPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// Whether to show the sheet: it has not been dismissed yet, or was requested again.
    Q_PROPERTY(bool wanted READ isWanted NOTIFY wantedChanged)
    /// Whether the sheet is on screen.
    Q_PROPERTY(bool visible READ isVisible WRITE setVisible NOTIFY visibleChanged)
    Q_PROPERTY(bool granted READ isGranted NOTIFY accessChanged)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString welcomeLine READ welcomeLine CONSTANT)
    Q_PROPERTY(QString accessTitle READ accessTitle CONSTANT)
    Q_PROPERTY(QString accessLine READ accessLine NOTIFY accessChanged)
    Q_PROPERTY(QString status READ status NOTIFY accessChanged)
    /// Whether the access is granted in the system's settings. The steps for that, as rich text; empty if there are
    /// none.
    Q_PROPERTY(bool hasSettings READ hasSettings CONSTANT)
    Q_PROPERTY(QStringList steps READ steps CONSTANT)
    /// The same in plain text.
    Q_PROPERTY(QStringList plainSteps READ plainSteps CONSTANT)
    Q_PROPERTY(QString dragHelp READ dragHelp CONSTANT)
    /// The file URL to drag into the list of the settings.
    Q_PROPERTY(QString applicationUrl READ applicationUrl CONSTANT)

public:
    explicit OnboardingPresenter(StorageStore &store = StoreRegistration::store(),
                                 Services &services = ServicesRegistration::services(), QObject *parent = nullptr);

    [[nodiscard]] bool isWanted() const { return !m_defaults.didOnboard(); }
    [[nodiscard]] bool isVisible() const { return m_visible; }
    void setVisible(bool visible);
    [[nodiscard]] bool isGranted() const { return m_store.hasFullDiskAccess(); }
    [[nodiscard]] QString title() const { return QStringLiteral("Welcome to Corvane"); }
    [[nodiscard]] QString welcomeLine() const;
    [[nodiscard]] QString accessTitle() const;
    [[nodiscard]] QString accessLine() const;
    [[nodiscard]] QString status() const;
    [[nodiscard]] bool hasSettings() const;
    [[nodiscard]] QStringList steps() const;
    [[nodiscard]] QStringList plainSteps() const;
    [[nodiscard]] QString dragHelp() const;
    [[nodiscard]] static QString applicationUrl();

    /// The bundle that contains a program's file; the file itself if there is none.
    [[nodiscard]] static QString bundleOf(const QString &programFile);

    /// The sheet was closed, in any way.
    Q_INVOKABLE void dismiss();
    Q_INVOKABLE void openSettings();

    /// One second by default; tests shorten it.
    void setPollInterval(std::chrono::milliseconds interval) { m_poll.setInterval(interval); }
    [[nodiscard]] std::chrono::milliseconds pollInterval() const { return m_poll.intervalAsDuration(); }
    [[nodiscard]] bool isPolling() const { return m_poll.isActive(); }

signals:
    void wantedChanged();
    void visibleChanged();
    void accessChanged();

private:
    [[nodiscard]] const SystemWords &words() const { return m_store.words(); }
    void testAccess();

    StorageStore &m_store;
    UserDefaults &m_defaults;
    QTimer m_poll;
    bool m_visible = false;
};

} // namespace corvane
