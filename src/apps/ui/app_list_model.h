#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "apps/ui/app_row.h"
#include "shell/ui/row_list_model.h"

namespace corvane {

/// The list of applications as it is searched and sorted, and above it the entry for what deleted ones have left. One
/// row may be the chosen one; it stays that through every change of the list, also while a search hides it. Main thread
/// only.
class AppListModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Given by the presenter of the screen")
    /// Only what contains this is listed.
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged)
    /// The place of the order among `sorts`.
    Q_PROPERTY(int sort READ sort WRITE setSort NOTIFY sortChanged)
    Q_PROPERTY(QList<QString> sorts READ sorts NOTIFY sortsChanged)
    /// The row of what is chosen; -1 where nothing is, and where it is not listed.
    Q_PROPERTY(int chosenRow READ chosenRow NOTIFY rowsChanged)
    /// What is said where the search leaves no application.
    Q_PROPERTY(QString emptyText READ emptyText NOTIFY rowsChanged)

public:
    enum Role {
        OrphansRole = Qt::UserRole + 1, ///< the entry for what deleted applications have left
        NameRole,
        BadgeRole, ///< how it came here
        NoteRole,
        UnusedRole, ///< the note says for how long it has not been opened
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
    /// Offers the order by last use, or not. One that is no longer offered gives way to that by size.
    void setTellsLastUse(bool tellsLastUse);
    [[nodiscard]] int chosenRow() const;
    [[nodiscard]] QString emptyText() const;

    /// Takes over another inventory.
    void setRows(AppRow orphans, AppRows apps);

    /// What is chosen: an application by its path, or the orphans.
    struct Choice {
        AppRow::Kind kind = AppRow::Kind::app;
        std::string path; ///< of the bundle, bytes; empty for the orphans

        friend bool operator==(const Choice &, const Choice &) = default;
    };
    void setChoice(std::optional<Choice> choice);
    /// What a row stands for; nothing for rows that do not exist.
    [[nodiscard]] std::optional<Choice> choiceAt(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void searchChanged();
    void sortChanged();
    void sortsChanged();
    void rowsChanged(); ///< the rows, or which of them is the chosen one

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
