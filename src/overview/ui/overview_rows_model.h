#pragma once

#include <vector>

#include <QColor>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/row_list_model.h"

namespace corvane {

/// One row of an overview card; a card shows as many as fit.
struct OverviewRow {
    QString id; ///< the row's identity, unique within its list
    QString title;
    QString sizeText;
    QString countText = {};
    QString symbol = {};  ///< for items of the catalogue
    QString iconKey = {}; ///< for files and folders
    QColor color = {};
    int tint = 0;        ///< its colour's index in the catalogue
    double fraction = 0; ///< relative to the largest row, from 0 to 1
    int elideMode = Qt::ElideRight;
    bool leads = true; ///< whether it is a link; otherwise the keyboard skips the row

    friend bool operator==(const OverviewRow &, const OverviewRow &) = default;
};

/// The few rows of one card. New rows replace the old ones one by one. Main thread only.
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
        DescriptionRole, ///< the row as one text
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
