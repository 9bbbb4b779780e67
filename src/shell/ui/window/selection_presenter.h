#pragma once

#include <cstdint>

#include <QObject>
#include <QPointer>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "core/store/storage_store.h"

namespace corvane {

/// The words of the selection bar, the review sheet and the question before a permanent delete, and the
/// removals that they start. Counts and sizes are those of the effective selection: what lies inside a
/// selected folder counts through the folder. Main thread only.
class SelectionPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(corvane::StorageStore *store READ store WRITE setStore NOTIFY storeChanged)
    Q_PROPERTY(bool empty READ isEmpty NOTIFY selectionChanged)
    Q_PROPERTY(bool removing READ isRemoving NOTIFY removingChanged)
    Q_PROPERTY(bool canRemove READ canRemove NOTIFY removableChanged)
    Q_PROPERTY(QString countText READ countText NOTIFY selectionChanged)
    Q_PROPERTY(QString totalText READ totalText NOTIFY selectionChanged)
    Q_PROPERTY(QString trashTitle READ trashTitle NOTIFY removingChanged)
    Q_PROPERTY(QString reviewTitle READ reviewTitle CONSTANT)
    Q_PROPERTY(QString reviewSubtitle READ reviewSubtitle NOTIFY selectionChanged)
    Q_PROPERTY(QString confirmTitle READ confirmTitle NOTIFY selectionChanged)
    Q_PROPERTY(QString confirmMessage READ confirmMessage CONSTANT)
    Q_PROPERTY(QString confirmDelete READ confirmDelete NOTIFY selectionChanged)

public:
    explicit SelectionPresenter(QObject *parent = nullptr) : QObject(parent) {}

    [[nodiscard]] StorageStore *store() const { return m_store; }
    void setStore(StorageStore *store);

    [[nodiscard]] bool isEmpty() const { return m_count == 0; }
    [[nodiscard]] bool isRemoving() const;
    [[nodiscard]] bool canRemove() const { return !isEmpty() && !isRemoving(); }
    [[nodiscard]] QString countText() const;
    [[nodiscard]] QString totalText() const;
    [[nodiscard]] QString trashTitle() const;
    [[nodiscard]] QString reviewTitle() const;
    [[nodiscard]] QString reviewSubtitle() const;
    [[nodiscard]] QString confirmTitle() const;
    [[nodiscard]] QString confirmMessage() const;
    [[nodiscard]] QString confirmDelete() const;

    Q_INVOKABLE void clear();
    Q_INVOKABLE void moveToTrash();
    Q_INVOKABLE void deletePermanently();

signals:
    void storeChanged();
    void selectionChanged();
    void removingChanged();
    void removableChanged();

private:
    void readSelection();
    [[nodiscard]] QString itemCount() const;
    [[nodiscard]] QString size() const;

    QPointer<StorageStore> m_store;
    // Of the effective selection, worked out once for each change.
    std::size_t m_count = 0;
    std::int64_t m_total = 0; // bytes
};

} // namespace corvane
