#pragma once

#include <QObject>
#include <QPointer>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include "core/store/storage_store.h"

namespace corvane {

/// What the help commands do. Main thread only.
class HelpPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(corvane::StorageStore *store READ store WRITE setStore NOTIFY storeChanged)

public:
    explicit HelpPresenter(QObject *parent = nullptr) : QObject(parent) {}

    [[nodiscard]] StorageStore *store() const { return m_store; }
    void setStore(StorageStore *store);

    /// Both open a page in the browser; the toast says so where that cannot be done.
    Q_INVOKABLE void openWebsite() const;
    Q_INVOKABLE void openPrivacyPolicy() const;

signals:
    void storeChanged();

private:
    QPointer<StorageStore> m_store;
};

} // namespace corvane
