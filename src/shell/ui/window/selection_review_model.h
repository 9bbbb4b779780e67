#pragma once

#include <vector>

#include <QtQml/qqmlregistration.h>

#include "core/selected_entry.h"
#include "shell/ui/row_list_model.h"
#include "shell/ui/store_registration.h"

namespace corvane {

/// The effective selection, that is, the entries that a removal would take: largest first, then by path. Main thread
/// only.
class SelectionReviewModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    /// Whether a view shows the rows; the model is empty otherwise.
    Q_PROPERTY(bool active READ isActive WRITE setActive NOTIFY activeChanged REQUIRED)
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role {
        NameRole = Qt::UserRole + 1,
        PathRole, ///< for display: the home folder is "~"
        SizeRole, ///< as text
        IconKeyRole,
        DropTitleRole, ///< the label of the button that deselects the entry
    };

    explicit SelectionReviewModel(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] bool isActive() const { return m_active; }
    void setActive(bool active);
    [[nodiscard]] int count() const { return static_cast<int>(m_entries.size()); }

    /// Deselects the row's entry. Selected items that it covered appear in its place.
    Q_INVOKABLE void drop(int row);
    /// Opens the row's item in its default application, a folder in the file manager.
    Q_INVOKABLE void open(int row);
    /// Shows the row's item in the file manager.
    Q_INVOKABLE void reveal(int row);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void activeChanged();
    void countChanged();

private:
    void follow();

    StorageStore &m_store;
    bool m_active = false;
    std::vector<SelectedEntry> m_entries;
};

} // namespace corvane
