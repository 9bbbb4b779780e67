#pragma once

#include <cstdint>
#include <span>
#include <string>

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include "core/store/storage_store.h"
#include "lists/ui/file_table_model.h"

namespace corvane {

class FileCatalog;

/// The contents of a screen that lists files: those that pass its filters, and the texts above them. Derived presenters
/// define the filters. Recreated with the screen, so that the filters start with their defaults. Main thread only.
class FileListPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A base of presenters")
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY filterChanged)
    Q_PROPERTY(QStringList sizes READ sizes CONSTANT)
    Q_PROPERTY(int sizeIndex READ sizeIndex WRITE setSizeIndex NOTIFY filterChanged)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed)
    Q_PROPERTY(bool preparing READ isPreparing NOTIFY changed)
    Q_PROPERTY(bool empty READ isEmpty NOTIFY changed)
    Q_PROPERTY(QString emptyTitle READ emptyTitle CONSTANT)
    Q_PROPERTY(QString emptyText READ emptyText CONSTANT)
    Q_PROPERTY(QString selectAllText READ selectAllText NOTIFY changed)
    Q_PROPERTY(corvane::FileTableModel *files READ files CONSTANT)

public:
    [[nodiscard]] virtual QString query() const = 0;
    void setQuery(const QString &query);
    /// The labels of the minimum sizes.
    [[nodiscard]] QStringList sizes() const;
    [[nodiscard]] int sizeIndex() const;
    void setSizeIndex(int index);

    /// Empty until the files are known.
    [[nodiscard]] QString subtitle() const;
    /// Whether the files of a new tree are still being prepared.
    [[nodiscard]] bool isPreparing() const;
    /// Whether no file passes the filters.
    [[nodiscard]] bool isEmpty() const;
    /// Shown if no file passes: what there is none of, and what would help or why.
    [[nodiscard]] virtual QString emptyTitle() const = 0;
    [[nodiscard]] virtual QString emptyText() const = 0;
    [[nodiscard]] QString selectAllText() const;
    [[nodiscard]] FileTableModel *files() { return &m_files; }

    /// Selects all listed files, or deselects them if all are selected.
    Q_INVOKABLE void toggleAll();

signals:
    void filterChanged();
    void changed();

protected:
    struct SizeChoice {
        const char *label;
        std::int64_t bytes;
    };

    /// `sizes` must outlive the presenter. A derived presenter calls `refilter` once its filter is constructed.
    FileListPresenter(StorageStore &store, std::span<const SizeChoice> sizes, QObject *parent);

    [[nodiscard]] virtual std::int64_t minSize() const = 0;
    virtual void changeMinSize(std::int64_t size) = 0;
    virtual void changeQuery(std::string query) = 0;
    [[nodiscard]] virtual FileRows list(const ListedFiles &files, FileSort sort) = 0;
    [[nodiscard]] virtual std::string subtitleOf(std::size_t count, std::int64_t total) const = 0;
    [[nodiscard]] const StorageStore &store() const { return m_store; }

    /// Call when the filter has changed.
    void refilter();

private:
    void followFiles();
    void followSelection();

    StorageStore &m_store;
    FileCatalog &m_catalog;
    const std::span<const SizeChoice> m_sizes;
    FileTableModel m_files{m_store};
    std::int64_t m_total = 0;
    bool m_isAllSelected = false;
};

} // namespace corvane
