#pragma once

#include <memory>
#include <unordered_set>
#include <vector>

#include <QLocale>
#include <QtQml/qqmlregistration.h>

#include "core/store/storage_store.h"
#include "lists/listed_files.h"
#include "shell/ui/node_actions.h"
#include "shell/ui/row_list_model.h"

namespace corvane {

/// The rows of a table of files: the text of each column, the highlight, and the selection state. The owner provides
/// the files in their order and handles `sortChanged`. Main thread only.
class FileTableModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Given by the presenter")
    Q_PROPERTY(int sortColumn READ sortColumn NOTIFY sortChanged) ///< `FileColumn`
    Q_PROPERTY(bool sortDescending READ sortDescending NOTIFY sortChanged)
    Q_PROPERTY(int highlightedCount READ highlightedCount NOTIFY highlightChanged)
    /// The label of the context menu for several rows.
    Q_PROPERTY(QString severalText READ severalText NOTIFY menuChanged)
    Q_PROPERTY(corvane::NodeActions *menuTarget READ menuTarget CONSTANT)

public:
    enum Role {
        NameRole = Qt::UserRole + 1,
        ElideRole, ///< Qt::TextElideMode
        SizeTextRole,
        KindRole,
        ModifiedRole,
        LocationRole,
        IconKeyRole,
        HighlightedRole,
        CheckStateRole, ///< Qt::CheckState
        CheckableRole,
        CheckReasonRole, ///< why it is not checkable
        DescriptionRole, ///< the row as one text
    };
    Q_ENUM(Role)

    explicit FileTableModel(StorageStore &store, QObject *parent = nullptr);

    /// Replaces the rows. For the same tree this resets the list; for a new one, rows that remain keep their place.
    void setRows(std::shared_ptr<const ListedFiles> files, std::vector<const FileNode *> rows);
    [[nodiscard]] const std::vector<const FileNode *> &rows() const { return m_rows; }

    using RowListModel::sort;
    [[nodiscard]] FileSort sort() const { return m_sort; }
    [[nodiscard]] int sortColumn() const { return static_cast<int>(m_sort.column); }
    [[nodiscard]] bool sortDescending() const { return m_sort.descending; }
    /// Sorts by a column, sizes in descending and the others in ascending order; reverses the order if already sorted
    /// by it.
    Q_INVOKABLE void sortBy(int column);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    // --- The highlight
    [[nodiscard]] int highlightedCount() const { return static_cast<int>(m_highlighted.size()); }
    /// Handles a mouse press: plain, with Ctrl or with Shift; a right click on a highlighted row keeps the highlight.
    Q_INVOKABLE void press(int row, int modifiers, bool forMenu);
    /// Highlights this row only.
    Q_INVOKABLE void highlight(int row);
    /// Highlights all rows from the anchor, the row last highlighted or pressed, to this one.
    Q_INVOKABLE void extendTo(int row);
    Q_INVOKABLE void highlightAll();

    // --- Actions; they apply to all highlighted rows if the given row is one of several
    /// Selects the files, or deselects them if all are selected; shows a toast if a single one is refused.
    Q_INVOKABLE void toggle(int row);
    /// Selects the files; shows a toast if a single one is refused.
    Q_INVOKABLE void select(int row);
    /// Toggles this file only, regardless of the highlight.
    Q_INVOKABLE void toggleOne(int row);
    /// Opens a file in its default application, or a package in the explorer.
    Q_INVOKABLE void open(int row);
    /// Makes the row, or all highlighted rows if it is one of them, the target of the context menu; returns false for
    /// an invalid row.
    Q_INVOKABLE bool prepareMenu(int row);
    Q_INVOKABLE void toggleHighlighted();

    /// Whether all files that may be selected are selected.
    [[nodiscard]] bool areSelected() const { return areSelected(m_rows); }
    /// Selects or deselects all files.
    void setAllSelected(bool selected) { setSelected(m_rows, selected); }

    [[nodiscard]] QString severalText() const;
    [[nodiscard]] NodeActions *menuTarget() { return &m_menuTarget; }

signals:
    void sortChanged();
    void highlightChanged();
    void menuChanged();
    /// The list was reset and should scroll to its top.
    void startedAnew();

private:
    void followSelection();
    [[nodiscard]] const FileNode *fileAt(int row) const;
    [[nodiscard]] int anchorRow() const;
    [[nodiscard]] bool isAmongSeveral(int row) const;
    [[nodiscard]] std::vector<const FileNode *> highlighted() const;
    void setHighlighted(std::unordered_set<const FileNode *> files);
    void keepHighlightOfRows();
    [[nodiscard]] bool areSelected(const std::vector<const FileNode *> &files) const;
    void setSelected(const std::vector<const FileNode *> &files, bool selected);
    [[nodiscard]] QString description(const FileNode &file) const;
    [[nodiscard]] QString modifiedText(const FileNode &file) const;
    [[nodiscard]] QString locationText(const FileNode &file) const;

    StorageStore &m_store;
    // Shares the ownership of every file below. A file that leaves the tree, or whose tree is replaced, therefore stays
    // valid until `setRows` has replaced the rows, the highlight and the anchor; only then are the former files freed.
    std::shared_ptr<const ListedFiles> m_files;
    std::vector<const FileNode *> m_rows;
    FileSort m_sort;
    std::unordered_set<const FileNode *> m_highlighted; // subset of the rows
    const FileNode *m_anchor = nullptr;                 // one of the rows, or null
    NodeActions m_menuTarget{m_store};
    QLocale m_locale;
};

} // namespace corvane
