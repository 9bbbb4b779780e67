#pragma once

#include "lists/ui/file_list_presenter.h"
#include "shell/ui/store_registration.h"

namespace corvane {

/// "Old Files": everything above a chosen size that has not been modified for a chosen time. Main thread only.
class OldFilesPresenter : public corvane::FileListPresenter {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QStringList ages READ ages CONSTANT)
    Q_PROPERTY(int ageIndex READ ageIndex WRITE setAgeIndex NOTIFY filterChanged)

public:
    explicit OldFilesPresenter(StorageStore &store = StoreRegistration::store(), QObject *parent = nullptr);

    [[nodiscard]] QString query() const override { return QString::fromStdString(m_filter.query); }
    [[nodiscard]] QString emptyTitle() const override;
    [[nodiscard]] QString emptyText() const override;
    [[nodiscard]] QStringList ages() const;
    [[nodiscard]] int ageIndex() const;
    void setAgeIndex(int index);

protected:
    [[nodiscard]] std::int64_t minSize() const override { return m_filter.minSize; }
    void changeMinSize(std::int64_t size) override { m_filter.minSize = size; }
    void changeQuery(std::string query) override { m_filter.query = std::move(query); }
    [[nodiscard]] FileRows list(const ListedFiles &files, FileSort sort) override;
    [[nodiscard]] std::string subtitleOf(std::size_t count, std::int64_t total) const override;

private:
    OldFilesFilter m_filter;
};

} // namespace corvane
