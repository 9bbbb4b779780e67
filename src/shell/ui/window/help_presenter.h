#pragma once

#include <QObject>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/store_registration.h"

namespace corvane {

/// The commands of the help menu. Main thread only.
class HelpPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit HelpPresenter(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    /// Both open a page in the browser, and show a toast if that fails.
    Q_INVOKABLE void openWebsite() const;
    Q_INVOKABLE void openPrivacyPolicy() const;

private:
    StorageStore &m_store;
};

} // namespace corvane
