#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "apps/ui/app_row.h"
#include "shell/ui/row_list_model.h"

namespace corvane {

/// The filtered and sorted list of applications, below the entry for leftovers of deleted ones. At most one row is
/// selected; the selection survives every change of the list, even while a search hides it. Main thread only.
class AppListModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Given by the presenter of the screen")
    /// Lists only applications that contain this text.
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged)
    /// The index of the sort order in `sorts`.
    Q_PROPERTY(int sort READ sort WRITE setSort NOTIFY sortChanged)
    Q_PROPERTY(QList<QString> sorts READ sorts NOTIFY sortsChanged)
    /// The selected row; -1 if nothing is selected, or the selection is hidden.
    Q_PROPERTY(int chosenRow READ chosenRow NOTIFY rowsChanged)
    /// Shown if the search matches no application.
    Q_PROPERTY(QString emptyText READ emptyText NOTIFY rowsChanged)

public:
    enum Role {
        OrphansRole = Qt::UserRole + 1, ///< the entry for leftovers of deleted applications
        NameRole,
        BadgeRole, ///< how it was installed
        NoteRole,
        UnusedRole, ///< whether the note says how long it has not been opened
        SizeTextRole,
        IconKeyRole,
        ChosenRole,
        DescriptionRole,
    };
    Q_ENUM(Role)

    explicit AppListModel(QObject *parent = nullptr);

    [[nodiscard]] const QString &search() const { return m_search; }
    void setSearch(const QString &search);
    using RowListModel::sort;
    [[nodiscard]] int sort() const;
    void setSort(int sort);
    [[nodiscard]] QList<QString> sorts() const;
    /// Adds or removes the order by last use. If it is removed while active, the order changes to size.
    void setTellsLastUse(bool tellsLastUse);
    [[nodiscard]] int chosenRow() const;
    [[nodiscard]] QString emptyText() const;

    /// Replaces the inventory.
    void setRows(AppRow orphans, AppRows apps);

    /// The selection: an application by its path, or the orphans.
    struct Choice {
        AppRow::Kind kind = AppRow::Kind::app;
        std::string path; ///< of the bundle, bytes; empty for the orphans

        friend bool operator==(const Choice &, const Choice &) = default;
    };
    void setChoice(std::optional<Choice> choice);
    /// The entry of a row; nullopt for invalid rows.
    [[nodiscard]] std::optional<Choice> choiceAt(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void searchChanged();
    void sortChanged();
    void sortsChanged();
    void rowsChanged(); ///< the rows, or the selected row

private:
    void install();
    [[nodiscard]] bool isChosen(const AppRow &row) const;

    AppRow m_orphans;
    AppRows m_apps;
    std::vector<AppRow> m_rows;
    std::optional<Choice> m_choice;
    QString m_search;
    std::vector<AppSort> m_sorts = appSorts(true);
    AppSort m_sort = AppSort::size;
};

} // namespace corvane
