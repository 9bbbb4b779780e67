#pragma once

#include <QtQml/qqmlregistration.h>

#include "apps/ui/leftover_list_model.h"

namespace corvane {

/// The leftovers of deleted applications, grouped by identifier. A check box selects an item for removal. Main thread
/// only.
class OrphansModel : public corvane::LeftoverListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Given by the presenter of the screen")
    Q_PROPERTY(QString title READ title CONSTANT)

public:
    explicit OrphansModel(StorageStore &store, QObject *parent = nullptr);

    [[nodiscard]] static QString title();

    void toggle(int row) override;
    void select(int row) override;
    void selectAll() override;

protected:
    [[nodiscard]] CheckFacts checkFacts(const Leftover &leftover) const override;

private:
    void follow();
};

} // namespace corvane
