#pragma once

#include <optional>
#include <vector>

#include <QList>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "disk/disk_breakdown.h"
#include "shell/ui/row_list_model.h"
#include "shell/ui/stacked_bar.h"

namespace corvane {

/// A name and its size, formatted; a value type for QML.
struct NamedSizeText {
    Q_GADGET
    QML_VALUE_TYPE(namedSizeText)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString size MEMBER size)

public:
    QString name;
    QString size;

    friend bool operator==(const NamedSizeText &, const NamedSizeText &) = default;
};

/// The segments of a breakdown as rows, in its order. A new breakdown moves, inserts, removes and updates only the rows
/// that differ. Main thread only.
class SegmentModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Given by the presenter")

public:
    enum Role {
        SegmentIdRole = Qt::UserRole + 1,
        TitleRole,
        DetailRole,
        SymbolRole,
        ColorRole,
        SizeTextRole,
        ShareTextRole,    ///< of the used space
        UnexplainedRole,  ///< whether its contents are unknown
        LargestItemsRole, ///< a list of NamedSizeText
        ActionTitleRole,  ///< empty for none
        NeedsIdleRole,    ///< whether the action starts a scan
        DescriptionRole,  ///< the row's figures in one line
    };

    using RowListModel::RowListModel;

    /// `used`, in bytes, is the total that the shares refer to.
    void setSegments(const std::vector<BreakdownSegment> &segments, std::int64_t used);
    /// The action of a row, if it has one.
    [[nodiscard]] std::optional<BreakdownAction> action(int row) const;
    /// The id of a row's segment; empty for an invalid row.
    Q_INVOKABLE [[nodiscard]] QString idOf(int row) const;
    /// The row of a segment, or -1.
    Q_INVOKABLE [[nodiscard]] int rowOf(const QString &id) const;
    /// A row's part of a bar.
    [[nodiscard]] StackedBarPart barPart(int row) const;
    [[nodiscard]] bool isUnexplained(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    struct Row {
        QString id; ///< the segment's, made unique if two segments share one
        BreakdownSegment segment;
        QString share;

        friend bool operator==(const Row &, const Row &) = default;
    };
    std::vector<Row> m_rows;
};

} // namespace corvane
