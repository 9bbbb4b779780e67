#pragma once

#include <vector>

#include <QColor>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/row_list_model.h"

namespace corvane {

/// One row of an overview card; a card shows of it what it has room for.
struct OverviewRow {
    QString id; ///< what the row stands for, unlike any other of its list
    QString title;
    QString sizeText;
    QString countText = {};
    QString symbol = {};  ///< of what the catalogue lists
    QString iconKey = {}; ///< of files and folders
    QColor color = {};
    int tint = 0;        ///< the place of its colour among the catalogue's
    double fraction = 0; ///< of the largest row, from 0 to 1
    int elideMode = Qt::ElideRight;
    bool leads = true; ///< somewhere; else the row is no stop of the keyboard

    friend bool operator==(const OverviewRow &, const OverviewRow &) = default;
};

/// The few rows of one card. New rows take the place of the old ones row by row. Main thread only.
class OverviewRowsModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Given by the overview")

public:
    enum Role {
        TitleRole = Qt::UserRole + 1,
        SizeTextRole,
        CountTextRole,
        SymbolRole,
        IconKeyRole,
        ColorRole,
        TintRole,
        FractionRole,
        ElideRole, ///< Qt::TextElideMode
        LeadsRole,
        DescriptionRole, ///< the row in words
    };
    Q_ENUM(Role)

    using RowListModel::RowListModel;

    void setRows(std::vector<OverviewRow> rows);
    [[nodiscard]] const std::vector<OverviewRow> &rows() const { return m_rows; }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    std::vector<OverviewRow> m_rows;
};

} // namespace corvane
