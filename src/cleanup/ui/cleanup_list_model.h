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

/// The cleanup list: the catalogue in its groups, what expanded cards hold, and the build folders of the last
/// scan. Rows come, go and move as the store's figures do; which cards are expanded is known here alone. Main
/// thread only.
class CleanupListModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(corvane::NodeActions *menuTarget READ menuTarget CONSTANT)
    Q_PROPERTY(corvane::CommandClipboard *clipboard READ clipboard CONSTANT)

public:
    enum Role {
        KindRole = Qt::UserRole + 1, ///< the name of the row's kind
        StartsBoxRole,               ///< the first of the rows that stand in one box
        EndsBoxRole,
        LeadsRole, ///< the first row beneath its card
        TitleRole,
        NoteRole, ///< a line about it
        SymbolRole,
        TintRole, ///< the place of its colour among the catalogue's
        RiskRole, ///< "safe" or "review"
        TagRole,  ///< what kind of build folder it is
        SizeTextRole,
        CountTextRole,
        UnreadableRole,
        CheckStateRole, ///< Qt::CheckState
        CheckableRole,
        CheckReasonRole, ///< why it is not checkable
        ExpandedRole,
        OpeningRole, ///< how far the card is open that the row belongs to, from 0 to 1
        IconKeyRole,
        ElideRole,   ///< Qt::TextElideMode
        ActionRole,  ///< what the row's button does; of a command the command itself
        WorkingRole, ///< a scan is under way
        DescriptionRole,
    };
    Q_ENUM(Role)

    explicit CleanupListModel(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] NodeActions *menuTarget() { return &m_menuTarget; }
    [[nodiscard]] CommandClipboard *clipboard() { return &m_clipboard; }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// Rows that the keyboard does not stop at are not enabled.
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

    /// What a press on the row does: a card opens or closes, and so do the folded locations; its last row leads to the
    /// location, a build folder is shown in the map, a command is copied, and where there is no scan, or only a part of
    /// one, one starts.
    Q_INVOKABLE void activate(int row);
    /// The same, and opens the item of an entry, as a double click does: a file in its own program, a folder of the
    /// tree in the map.
    Q_INVOKABLE void open(int row);
    /// Opens or closes the card that the row is or belongs to, or the folded locations that it stands for.
    Q_INVOKABLE void setExpanded(int row, bool expanded);
    /// The row of the card that the row belongs to; the row itself otherwise.
    Q_INVOKABLE [[nodiscard]] int cardRow(int row) const;
    /// Selects the row's item, all that a card holds, or takes it out of the selection; says why where that is
    /// refused.
    Q_INVOKABLE void toggle(int row);
    /// Selects the same; says why where that is refused.
    Q_INVOKABLE void select(int row);
    /// Selects all that is listed: what every card holds, and the build folders.
    Q_INVOKABLE void selectAll();
    /// Shows the row's item in the file manager.
    Q_INVOKABLE void reveal(int row);
    /// Makes the row's item the target of the context menu; false where there is no item.
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
    /// What a card stands for; null for other rows, and before the measurement.
    [[nodiscard]] const CleanupItem *locationOf(const CleanupRow &row) const;
    [[nodiscard]] const CardOpening *opening(const CleanupDefinition *def) const;
    [[nodiscard]] CardOpening &openingToChange(const CleanupDefinition &def);
    [[nodiscard]] std::string pathOf(const CleanupRow &row) const;

    [[nodiscard]] SelectionFacts selectionFacts(const CleanupRow &row) const;

    StorageStore &m_store;
    std::map<const CleanupDefinition *, std::unique_ptr<CardOpening>> m_openings; // of those that were opened once
    std::vector<CleanupRow> m_rows;
    std::map<const CleanupDefinition *, SelectionFacts> m_cardChecks;
    std::set<int> m_unfolded; // sections
    NodeActions m_menuTarget{m_store};
    CommandClipboard m_clipboard;
};

} // namespace corvane
