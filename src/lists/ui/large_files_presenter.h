#pragma once

#include "lists/ui/file_list_presenter.h"
#include "shell/ui/store_registration.h"

namespace corvane {

/// "Large Files": everything above a chosen size. Main thread only.
class LargeFilesPresenter : public corvane::FileListPresenter {
    Q_OBJECT
    QML_ELEMENT
    /// The labels of the types; the first stands for all types.
    Q_PROPERTY(QStringList types READ types CONSTANT)
    Q_PROPERTY(int typeIndex READ typeIndex WRITE setTypeIndex NOTIFY filterChanged)

public:
    explicit LargeFilesPresenter(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] QString query() const override { return QString::fromStdString(m_filter.query); }
    [[nodiscard]] QString emptyTitle() const override;
    [[nodiscard]] QString emptyText() const override;
    [[nodiscard]] QStringList types() const;
    [[nodiscard]] int typeIndex() const;
    void setTypeIndex(int index);

protected:
    [[nodiscard]] std::int64_t minSize() const override { return m_filter.minSize; }
    void changeMinSize(std::int64_t size) override { m_filter.minSize = size; }
    void changeQuery(std::string query) override { m_filter.query = std::move(query); }
    [[nodiscard]] FileRows list(const ListedFiles &files, FileSort sort) override;
    [[nodiscard]] std::string subtitleOf(std::size_t count, std::int64_t total) const override;

private:
    LargeFilesFilter m_filter;
};

} // namespace corvane
