#pragma once

#include <memory>
#include <vector>

#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/row_list_model.h"
#include "shell/ui/store_registration.h"

namespace corvane {

/// The folders from the scan root to the current folder, one row each. Tracks the width of each crumb: if they do not
/// fit, those in the middle are collapsed into an ellipsis, and finally the last one is elided. Main thread only.
class BreadcrumbModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    /// The width available for the crumbs, in points; 0 until it is known.
    Q_PROPERTY(double availableWidth READ availableWidth WRITE setAvailableWidth NOTIFY availableWidthChanged)
    /// The names of the collapsed crumbs.
    Q_PROPERTY(QStringList collapsedNames READ collapsedNames NOTIFY collapsedChanged)
    /// The description of the ellipsis for screen readers.
    Q_PROPERTY(QString collapsedText READ collapsedText NOTIFY collapsedChanged)

public:
    enum Role {
        NameRole = Qt::UserRole + 1,
        IconRole,           ///< the root's icon; empty for all others
        CurrentRole,        ///< whether it is the current folder
        CollapsedRole,      ///< whether it is collapsed into the ellipsis
        EllipsisBeforeRole, ///< whether the ellipsis precedes this crumb
        WidthRole,          ///< points
    };
    Q_ENUM(Role)

    explicit BreadcrumbModel(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] double availableWidth() const { return m_availableWidth; }
    void setAvailableWidth(double width);
    [[nodiscard]] QStringList collapsedNames() const;
    [[nodiscard]] QString collapsedText() const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// Opens the folder of a row in the explorer.
    Q_INVOKABLE void open(int row);
    /// The same for an entry of `collapsedNames`.
    Q_INVOKABLE void openCollapsed(int entry);

signals:
    void availableWidthChanged();
    void collapsedChanged();

private:
    struct Crumb {
        std::shared_ptr<FileNode> folder;
        bool collapsed = false;
        double width = 0;

        friend bool operator==(const Crumb &, const Crumb &) = default;
    };

    void followFolder();
    void show(std::vector<Crumb> crumbs);
    /// Computes the crumbs' widths and collapses as many as do not fit.
    void fit(std::vector<Crumb> &crumbs) const;
    [[nodiscard]] static double naturalWidth(const Crumb &crumb, bool isRoot, bool isCurrent);
    [[nodiscard]] static double separatorWidth();
    [[nodiscard]] static double ellipsisWidth();
    [[nodiscard]] QString rootIcon() const;

    StorageStore &m_store;
    std::vector<Crumb> m_crumbs;
    double m_availableWidth = 0;
};

} // namespace corvane
