#pragma once

#include <vector>

#include <QPointer>
#include <QtQml/qqmlregistration.h>

#include "core/selected_entry.h"
#include "core/store/storage_store.h"
#include "shell/ui/row_list_model.h"

namespace corvane {

/// The entries that a removal would take, largest first, then by path: the effective selection. Main thread
/// only.
class SelectionReviewModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(corvane::StorageStore *store READ store WRITE setStore NOTIFY storeChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role {
        NameRole = Qt::UserRole + 1,
        PathRole, ///< to be shown: the home folder is "~"
        SizeRole, ///< as text
        IconKeyRole,
        DropTitleRole, ///< the name of the button that drops the entry
    };

    using RowListModel::RowListModel;

    [[nodiscard]] StorageStore *store() const { return m_store; }
    void setStore(StorageStore *store);
    [[nodiscard]] int count() const { return static_cast<int>(m_entries.size()); }

    /// Takes the row's entry out of the selection. What it covered, if that was selected too, comes up in its
    /// place.
    Q_INVOKABLE void drop(int row);
    /// Opens the row's item in the program that the desktop has for it, a folder in the file manager.
    Q_INVOKABLE void open(int row);
    /// Shows the row's item in the file manager.
    Q_INVOKABLE void reveal(int row);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void storeChanged();
    void countChanged();

private:
    void follow();

    QPointer<StorageStore> m_store;
    std::vector<SelectedEntry> m_entries;
};

} // namespace corvane
