#pragma once

#include <QtQml/qqmlregistration.h>

#include "apps/ui/leftover_list_model.h"

namespace corvane {

/// What deleted applications have left, by their identifiers. A check box puts an item into the selection of the
/// program. Main thread only.
class OrphansModel : public corvane::LeftoverListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Given by the presenter of the screen")

public:
    using LeftoverListModel::LeftoverListModel;

    void setStore(StorageStore *store);

    void toggle(int row) override;
    void select(int row) override;
    void selectAll() override;

protected:
    [[nodiscard]] CheckFacts checkFacts(const Leftover &leftover) const override;
    [[nodiscard]] StorageStore *revealer() const override { return m_store; }

private:
    void follow();

    QPointer<StorageStore> m_store;
};

} // namespace corvane
