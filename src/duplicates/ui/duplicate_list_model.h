#pragma once

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "duplicates/ui/duplicate_row.h"
#include "shell/ui/node_actions.h"
#include "shell/ui/row_list_model.h"
#include "shell/ui/store_registration.h"

namespace corvane {

/// The groups of duplicates with their files, the most wasteful first. Rows are inserted and removed as the store's
/// groups change; only this model knows which groups are folded, and remembers it when another search finds the group
/// again. Main thread only.
class DuplicateListModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    /// The target of the context menu.
    Q_PROPERTY(corvane::NodeActions *menuTarget READ menuTarget CONSTANT)

public:
    enum Role {
        KindRole = Qt::UserRole + 1, ///< the name of the row's kind
        TitleRole,
        NoteRole,
        WastedRole, ///< the space wasted by a group
        IconKeyRole,
        ExpandedRole,
        NewestRole,
        StartsBoxRole, ///< the first of the files that share one box
        EndsBoxRole,
        CheckStateRole, ///< Qt::CheckState
        CheckableRole,
        CheckReasonRole, ///< why it is not checkable
        DescriptionRole,
    };
    Q_ENUM(Role)

    explicit DuplicateListModel(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] NodeActions *menuTarget() { return &m_menuTarget; }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// Folds or unfolds a group; opens a file in its default application.
    Q_INVOKABLE void activate(int row);
    /// Folds or unfolds the group that the row is or belongs to.
    Q_INVOKABLE void setExpanded(int row, bool expanded);
    /// The row of the group that the row is or belongs to.
    Q_INVOKABLE [[nodiscard]] int groupRow(int row) const;
    /// Toggles the selection of a file, with a toast if that is refused; folds or unfolds a group.
    Q_INVOKABLE void toggle(int row);
    /// Selects a file; shows a toast if that is refused.
    Q_INVOKABLE void select(int row);
    /// Shows a file in the file manager.
    Q_INVOKABLE void reveal(int row);
    /// Makes a file the target of the context menu; returns false for other rows.
    Q_INVOKABLE bool prepareMenu(int row);

signals:
    void replaced(); ///< the new contents are unrelated to the old ones

private:
    void follow();
    void followSelection();
    void numberGroups();
    void install();
    [[nodiscard]] std::vector<DuplicateRow> makeRows() const;
    [[nodiscard]] const DuplicateRow *rowAt(int row) const;
    /// The file of a row; null for other rows.
    [[nodiscard]] std::shared_ptr<FileNode> fileAt(int row) const;

    StorageStore &m_store;
    std::vector<int> m_numbers; // one for each of the store's groups
    std::unordered_map<std::shared_ptr<FileNode>, int> m_numberOf;
    int m_lastNumber = 0;
    std::unordered_set<int> m_folded;
    std::vector<DuplicateRow> m_rows;
    NodeActions m_menuTarget{m_store};
};

} // namespace corvane
