#pragma once

#include <vector>

#include <QAbstractListModel>
#include <QQmlListProperty>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/store_registration.h"
#include "shell/ui/window/sidebar_items.h"
#include "shell/ui/window/window_screen.h"

namespace corvane {

/// The rows of the sidebar: one per screen, in the sidebar's order regardless of the order of addScreen(). Also
/// describes the selected screen to the window. The store holds the selection; an item without a screen falls back to
/// the first screen. Main thread only.
class SidebarModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_CLASSINFO("DefaultProperty", "screens")
    Q_PROPERTY(QQmlListProperty<corvane::WindowScreen> screens READ screens NOTIFY currentChanged)
    Q_PROPERTY(int currentRow READ currentRow NOTIFY currentChanged)
    Q_PROPERTY(QQmlComponent *content READ content NOTIFY currentChanged)
    Q_PROPERTY(bool goesBeneathBar READ goesBeneathBar NOTIFY currentChanged)
    Q_PROPERTY(bool needsScan READ needsScan NOTIFY currentChanged)
    Q_PROPERTY(QString title READ title NOTIFY currentChanged)
    Q_PROPERTY(QString symbol READ symbol NOTIFY currentChanged)
    Q_PROPERTY(QString scanTitle READ scanTitle NOTIFY currentChanged)
    Q_PROPERTY(QString scanPrompt READ scanPrompt NOTIFY currentChanged)

public:
    enum Role {
        KeyRole = Qt::UserRole + 1,
        TitleRole,
        SymbolRole,
        SectionRole,       ///< the section's title
        StartsSectionRole, ///< whether the section's title is above this row
        CurrentRole,
        ShortcutRole, ///< "Ctrl+1" for the first row, and so on
    };

    explicit SidebarModel(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] QQmlListProperty<WindowScreen> screens();
    /// Not owned; the screen must outlive the model.
    void addScreen(WindowScreen *screen);

    /// -1 if there is no screen.
    [[nodiscard]] int currentRow() const;
    [[nodiscard]] QQmlComponent *content() const;
    [[nodiscard]] bool goesBeneathBar() const;
    [[nodiscard]] bool needsScan() const;
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString symbol() const;
    /// The heading and text that replace a screen that needs a scan.
    [[nodiscard]] QString scanTitle() const;
    [[nodiscard]] QString scanPrompt() const;

    /// Shows the row's screen; ignores invalid rows.
    Q_INVOKABLE void choose(int row);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void currentChanged();

private:
    [[nodiscard]] const SidebarItemInfo &info(int row) const;
    [[nodiscard]] const SidebarItemInfo *current() const;
    [[nodiscard]] bool startsSection(int row) const;
    void announceCurrent();

    StorageStore &m_store;
    std::vector<WindowScreen *> m_screens; // in the sidebar's order
};

} // namespace corvane
