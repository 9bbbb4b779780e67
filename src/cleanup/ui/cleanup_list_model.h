#pragma once

#include <map>
#include <memory>
#include <set>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "cleanup/ui/card_opening.h"
#include "cleanup/ui/cleanup_rows.h"
#include "core/selection_facts.h"
#include "shell/ui/command_clipboard.h"
#include "shell/ui/node_actions.h"
#include "shell/ui/row_list_model.h"
#include "shell/ui/store_registration.h"

namespace corvane {

/// The cleanup list: the catalogue in its groups, the contents of expanded cards, and the build folders of the last
/// scan. Rows are inserted, removed and moved as the store's figures change; only this model knows which cards are
/// expanded. Main thread only.
class CleanupListModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(corvane::NodeActions *menuTarget READ menuTarget CONSTANT)
    Q_PROPERTY(corvane::CommandClipboard *clipboard READ clipboard CONSTANT)

public:
    enum Role {
        KindRole = Qt::UserRole + 1, ///< the name of the row's kind
        StartsBoxRole,               ///< the first of the rows that share one box
        EndsBoxRole,
        LeadsRole, ///< the first row below its card
        TitleRole,
        NoteRole, ///< a line of text about it
        SymbolRole,
        TintRole, ///< its colour's index in the catalogue
        RiskRole, ///< "safe" or "review"
        TagRole,  ///< the kind of build folder
        SizeTextRole,
        CountTextRole,
        UnreadableRole,
        CheckStateRole, ///< Qt::CheckState
        CheckableRole,
        CheckReasonRole, ///< why it is not checkable
        ExpandedRole,
        OpeningRole, ///< the expanded fraction of the row's card, from 0 to 1
        IconKeyRole,
        ElideRole,   ///< Qt::TextElideMode
        ActionRole,  ///< the label of the row's button; for a command the command itself
        WorkingRole, ///< whether a scan is running
        DescriptionRole,
    };
    Q_ENUM(Role)

    explicit CleanupListModel(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] NodeActions *menuTarget() { return &m_menuTarget; }
    [[nodiscard]] CommandClipboard *clipboard() { return &m_clipboard; }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// Rows that the keyboard skips are not enabled.
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

    /// Handles a press on the row: expands or collapses a card or the folded locations; the last row of a card reveals
    /// the location, a build folder is shown in the map, a command is copied, and the prompt for a missing or partial
    /// scan starts one.
    Q_INVOKABLE void activate(int row);
    /// Handles a double click: the same, and opens the item of an entry, a file in its default application, a folder of
    /// the tree in the map.
    Q_INVOKABLE void open(int row);
    /// Expands or collapses the card that the row is or belongs to, or the folded locations that it stands for.
    Q_INVOKABLE void setExpanded(int row, bool expanded);
    /// The row of the card that the row belongs to; otherwise the row itself.
    Q_INVOKABLE [[nodiscard]] int cardRow(int row) const;
    /// Toggles the selection of the row's item, or of all entries of a card; shows a toast if that is refused.
    Q_INVOKABLE void toggle(int row);
    /// Selects the same; shows a toast if that is refused.
    Q_INVOKABLE void select(int row);
    /// Selects everything listed: the contents of every card, and the build folders.
    Q_INVOKABLE void selectAll();
    /// Shows the row's item in the file manager.
    Q_INVOKABLE void reveal(int row);
    /// Makes the row's item the target of the context menu; returns false if the row has none.
    Q_INVOKABLE bool prepareMenu(int row);

private:
    void follow();
    void followSelection();
    void install();
    void announceOpening(const CleanupDefinition &def);
    [[nodiscard]] std::vector<CleanupRow> makeRows() const;

    [[nodiscard]] const CleanupRow *rowAt(int row) const;
    [[nodiscard]] bool startsBox(int row) const;
    [[nodiscard]] bool endsBox(int row) const;
    [[nodiscard]] const CleanupItem *item(const CleanupDefinition *def) const;
    /// The location of a card; null for other rows, and before the measurement.
    [[nodiscard]] const CleanupItem *locationOf(const CleanupRow &row) const;
    [[nodiscard]] const CardOpening *opening(const CleanupDefinition *def) const;
    [[nodiscard]] CardOpening &openingToChange(const CleanupDefinition &def);
    [[nodiscard]] std::string pathOf(const CleanupRow &row) const;

    [[nodiscard]] SelectionFacts selectionFacts(const CleanupRow &row) const;

    StorageStore &m_store;
    std::map<const CleanupDefinition *, std::unique_ptr<CardOpening>> m_openings; // of those expanded at least once
    std::vector<CleanupRow> m_rows;
    std::map<const CleanupDefinition *, SelectionFacts> m_cardChecks;
    std::set<int> m_unfolded; // sections
    NodeActions m_menuTarget{m_store};
    CommandClipboard m_clipboard;
};

} // namespace corvane
