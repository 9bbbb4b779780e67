#pragma once

#include <chrono>

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include "core/words/system_words.h"
#include "shell/ui/store_registration.h"
#include "shell/user_defaults.h"

namespace corvane {

/// The first launch: what the program is for, and whether it may read everything. While its sheet is visible the access
/// is tested, at once and then every second until it is granted. Main thread only.
class OnboardingPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(corvane::UserDefaults *defaults READ defaults WRITE setDefaults NOTIFY defaultsChanged)
    /// Whether the sheet is to be shown: it has not been dismissed yet, or is asked for again.
    Q_PROPERTY(bool wanted READ isWanted NOTIFY wantedChanged)
    /// Whether the sheet is seen.
    Q_PROPERTY(bool visible READ isVisible WRITE setVisible NOTIFY visibleChanged)
    Q_PROPERTY(bool granted READ isGranted NOTIFY accessChanged)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString welcomeLine READ welcomeLine CONSTANT)
    Q_PROPERTY(QString accessTitle READ accessTitle CONSTANT)
    Q_PROPERTY(QString accessLine READ accessLine NOTIFY accessChanged)
    Q_PROPERTY(QString status READ status NOTIFY accessChanged)
    /// The access is granted in the system's settings, in these steps; rich text. Where it is not, there are none.
    Q_PROPERTY(bool hasSettings READ hasSettings CONSTANT)
    Q_PROPERTY(QStringList steps READ steps CONSTANT)
    /// The same as plain text.
    Q_PROPERTY(QStringList plainSteps READ plainSteps CONSTANT)
    Q_PROPERTY(QString dragHelp READ dragHelp CONSTANT)
    /// The file address of what is dragged into the list of the settings.
    Q_PROPERTY(QString applicationUrl READ applicationUrl CONSTANT)

public:
    explicit OnboardingPresenter(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] UserDefaults *defaults() const { return m_defaults; }
    void setDefaults(UserDefaults *defaults);

    [[nodiscard]] bool isWanted() const { return m_defaults && !m_defaults->didOnboard(); }
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

    /// The bundle around a program's file; the file itself where there is none.
    [[nodiscard]] static QString bundleOf(const QString &programFile);

    /// The sheet was closed, by whatever means.
    Q_INVOKABLE void dismiss();
    Q_INVOKABLE void openSettings();

    /// One second unless a test sets it otherwise.
    void setPollInterval(std::chrono::milliseconds interval) { m_poll.setInterval(interval); }
    [[nodiscard]] std::chrono::milliseconds pollInterval() const { return m_poll.intervalAsDuration(); }
    [[nodiscard]] bool isPolling() const { return m_poll.isActive(); }

signals:
    void defaultsChanged();
    void wantedChanged();
    void visibleChanged();
    void accessChanged();

private:
    [[nodiscard]] const SystemWords &words() const { return m_store.words(); }
    void testAccess();

    StorageStore &m_store;
    QPointer<UserDefaults> m_defaults;
    QTimer m_poll;
    bool m_visible = false;
};

} // namespace corvane
