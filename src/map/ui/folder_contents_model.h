#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "core/selection_facts.h"
#include "shell/ui/node_actions.h"
#include "shell/ui/row_list_model.h"
#include "shell/ui/store_registration.h"

namespace corvane {

/// The contents of the current folder: one row per child in the order of the tree, and a last row for its small files.
/// Opening another folder resets the model; changes of the tree or of the selection update rows. Main thread only.
class FolderContentsModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(corvane::NodeActions *menuTarget READ menuTarget CONSTANT)

public:
    enum Role {
        NameRole = Qt::UserRole + 1,
        ElideRole, ///< Qt::TextElideMode
        SizeTextRole,
        IconKeyRole,  ///< empty for the small files
        FractionRole, ///< relative to the largest row, from 0 to 1
        BarColorRole, ///< the colour of the item's tile
        OpensRole,    ///< whether it is a folder or a package
        SmallFilesRole,
        CheckStateRole, ///< Qt::CheckState
        CheckableRole,
        CheckReasonRole, ///< why it is not checkable
        DescriptionRole, ///< the row as one text
    };
    Q_ENUM(Role)

    explicit FolderContentsModel(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] NodeActions *menuTarget() { return &m_menuTarget; }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// Handles a click: opens the folder or package of the row in the explorer.
    Q_INVOKABLE void click(int row);
    /// Handles the second click of a double click: opens the file that was clicked. If the first click opened a folder,
    /// the second one hits an unrelated row and is ignored.
    Q_INVOKABLE void doubleClick(int row);
    /// Opens a folder or package in the explorer, and a file in its default application.
    Q_INVOKABLE void open(int row);
    /// Toggles the selection of the row's item; shows a toast if that is refused.
    Q_INVOKABLE void toggle(int row);
    /// Selects the row's item; shows a toast if that is refused.
    Q_INVOKABLE void select(int row);
    Q_INVOKABLE void selectAll();
    /// Makes the row's item the target of the context menu; returns false if the row has none.
    Q_INVOKABLE bool prepareMenu(int row);

signals:
    /// Another folder is shown; `row` is that of the previous folder, or else the first.
    void folderShown(int row);

private:
    void followFolder();
    void followTree();
    void followSelection();
    void updateFigures();
    [[nodiscard]] std::vector<std::shared_ptr<FileNode>> rowsOfFolder() const;
    [[nodiscard]] FolderSelection readSelection() const;

    [[nodiscard]] const FileNode *nodeAt(int row) const;
    [[nodiscard]] QVariant nodeData(const FileNode &node, int row, int role) const;
    [[nodiscard]] QVariant smallFilesData(int role) const;
    [[nodiscard]] SelectionRefusal refusal(const FileNode &node) const;
    [[nodiscard]] int rowOf(std::string_view name);

    StorageStore &m_store;
    std::shared_ptr<FileNode> m_folder;
    std::vector<std::shared_ptr<FileNode>> m_nodes; ///< one for each row; null for the small files
    std::int64_t m_largest = 0;
    std::unordered_map<const FileNode *, int> m_places; ///< positions in the map, which determine the folders' colours
    FolderSelection m_selection;
    std::unordered_map<std::string_view, int> m_rows; ///< by name; built on first use
    std::weak_ptr<FileNode> m_clicked;                ///< the last item that was clicked
    NodeActions m_menuTarget{m_store};
};

} // namespace corvane
