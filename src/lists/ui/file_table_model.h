#pragma once

#include <memory>
#include <unordered_set>
#include <vector>

#include <QLocale>
#include <QtQml/qqmlregistration.h>

#include "core/store/storage_store.h"
#include "duplicates/listed_files.h"
#include "shell/ui/node_actions.h"
#include "shell/ui/row_list_model.h"

namespace corvane {

/// The rows of a table of files: what each column says, which are highlighted, and what the selection holds of them.
/// Which files there are, and in which order, its owner says, who listens to `sortChanged`. Main thread only.
class FileTableModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Given by the presenter")
    Q_PROPERTY(int sortColumn READ sortColumn NOTIFY sortChanged) ///< `FileColumn`
    Q_PROPERTY(bool sortDescending READ sortDescending NOTIFY sortChanged)
    Q_PROPERTY(int highlightedCount READ highlightedCount NOTIFY highlightChanged)
    /// What the context menu of several rows offers.
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
        DescriptionRole, ///< the row in words
    };
    Q_ENUM(Role)

    explicit FileTableModel(StorageStore &store, QObject *parent = nullptr);

    /// Shows other rows. Where the tree is the same, the list begins anew; else its rows stay where they are.
    void setRows(std::shared_ptr<const ListedFiles> files, std::vector<const FileNode *> rows);
    [[nodiscard]] const std::vector<const FileNode *> &rows() const { return m_rows; }

    using RowListModel::sort;
    [[nodiscard]] FileSort sort() const { return m_sort; }
    [[nodiscard]] int sortColumn() const { return static_cast<int>(m_sort.column); }
    [[nodiscard]] bool sortDescending() const { return m_sort.descending; }
    /// Sorts by a column, largest first by size and in ascending order by the others; once more, the other way round.
    Q_INVOKABLE void sortBy(int column);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    // --- The highlight
    [[nodiscard]] int highlightedCount() const { return static_cast<int>(m_highlighted.size()); }
    /// What a press of a mouse button does: plain, with Ctrl or with Shift; the right button keeps what is highlighted
    /// where it is pressed on it.
    Q_INVOKABLE void press(int row, int modifiers, bool forMenu);
    /// That row alone.
    Q_INVOKABLE void highlight(int row);
    /// All from the row last highlighted or pressed to this one.
    Q_INVOKABLE void extendTo(int row);
    Q_INVOKABLE void highlightAll();

    // --- Actions, on all highlighted rows where the given one is one of several
    /// Selects the files, or takes them out of the selection where all are in it; says why where one alone is refused.
    Q_INVOKABLE void toggle(int row);
    /// Selects the files; says why where one alone is refused.
    Q_INVOKABLE void select(int row);
    /// That one alone, whatever is highlighted.
    Q_INVOKABLE void toggleOne(int row);
    /// Shows the file in its own program, or a package in the explorer.
    Q_INVOKABLE void open(int row);
    /// Makes the row the target of the context menu, or all highlighted ones where it is one of them; false where there
    /// is none.
    Q_INVOKABLE bool prepareMenu(int row);
    Q_INVOKABLE void toggleHighlighted();

    /// Whether the selection holds every one of the files, without those that may not be selected.
    [[nodiscard]] bool areSelected() const { return areSelected(m_rows); }
    /// Selects all files, or takes all out of the selection.
    void setAllSelected(bool selected) { setSelected(m_rows, selected); }

    [[nodiscard]] QString severalText() const;
    [[nodiscard]] NodeActions *menuTarget() { return &m_menuTarget; }

signals:
    void sortChanged();
    void highlightChanged();
    void menuChanged();
    /// The list begins anew: its top is to be seen.
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
    std::shared_ptr<const ListedFiles> m_files; // what the rows belong to
    std::vector<const FileNode *> m_rows;
    FileSort m_sort;
    std::unordered_set<const FileNode *> m_highlighted; // of the rows
    const FileNode *m_anchor = nullptr;                 // of the rows, or null
    NodeActions m_menuTarget{m_store};
    QLocale m_locale;
};

} // namespace corvane
