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

/// The groups of duplicates with their files, the most wasteful first. Rows come and go as the store's groups do; which
/// groups are folded is known here alone, and holds for a group that another search finds again. Main thread only.
class DuplicateListModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    /// What the context menu is about.
    Q_PROPERTY(corvane::NodeActions *menuTarget READ menuTarget CONSTANT)

public:
    enum Role {
        KindRole = Qt::UserRole + 1, ///< the name of the row's kind
        TitleRole,
        NoteRole,
        WastedRole, ///< what a group wastes
        IconKeyRole,
        ExpandedRole,
        NewestRole,
        StartsBoxRole, ///< the first of the files that stand in one box
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

    /// A group folds or unfolds; a file opens in its own program.
    Q_INVOKABLE void activate(int row);
    /// Folds or unfolds the group that the row is or belongs to.
    Q_INVOKABLE void setExpanded(int row, bool expanded);
    /// The row of the group that the row belongs to; the row itself where it is one.
    Q_INVOKABLE [[nodiscard]] int groupRow(int row) const;
    /// Selects a file or takes it out of the selection, and says why where that is refused; folds or unfolds a group.
    Q_INVOKABLE void toggle(int row);
    /// Selects a file; says why where that is refused.
    Q_INVOKABLE void select(int row);
    /// Shows a file in the file manager.
    Q_INVOKABLE void reveal(int row);
    /// Makes a file the target of the context menu; false for other rows.
    Q_INVOKABLE bool prepareMenu(int row);

signals:
    void replaced(); ///< what is listed now has nothing to do with what was

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
    std::vector<int> m_numbers; // of the store's groups
    std::unordered_map<std::shared_ptr<FileNode>, int> m_numberOf;
    int m_lastNumber = 0;
    std::unordered_set<int> m_folded;
    std::vector<DuplicateRow> m_rows;
    NodeActions m_menuTarget{m_store};
};

} // namespace corvane
