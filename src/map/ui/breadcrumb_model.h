#pragma once

#include <memory>
#include <vector>

#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/row_list_model.h"
#include "shell/ui/store_registration.h"

namespace corvane {

/// The folders from the root of the scan to the folder shown, one row each. Knows how wide each is drawn, so
/// that where they do not fit, those in the middle make room for an ellipsis, and in the end the last one is
/// shortened. Main thread only.
class BreadcrumbModel : public corvane::RowListModel {
    Q_OBJECT
    QML_ELEMENT
    /// What the crumbs may take, in points; 0 as long as it is not known.
    Q_PROPERTY(double availableWidth READ availableWidth WRITE setAvailableWidth NOTIFY availableWidthChanged)
    /// The names of the crumbs behind the ellipsis.
    Q_PROPERTY(QStringList collapsedNames READ collapsedNames NOTIFY collapsedChanged)
    /// The ellipsis in words.
    Q_PROPERTY(QString collapsedText READ collapsedText NOTIFY collapsedChanged)

public:
    enum Role {
        NameRole = Qt::UserRole + 1,
        IconRole,           ///< the root's; empty for all others
        CurrentRole,        ///< the folder shown
        CollapsedRole,      ///< behind the ellipsis
        EllipsisBeforeRole, ///< the ellipsis stands before this one
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

    /// Shows the folder of a row in the explorer.
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
    /// Gives the crumbs their widths and puts as many behind the ellipsis as do not fit.
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
