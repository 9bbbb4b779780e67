#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "apps/installed_app.h"
#include "apps/ui/leftover_list_model.h"

namespace corvane {

/// The leftovers of one application, and which of them are removed with it. Items that certainly belong to it are
/// checked initially, items that only share its name are not. Main thread only.
class AppLeftoversModel : public corvane::LeftoverListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Given by the presenter of the application")

public:
    using LeftoverListModel::LeftoverListModel;

    /// Shows another application.
    void show(const InstalledApp &app);
    /// Updates the facts of the same application. Items that are still there stay checked; new ones, and those that
    /// turn out to only share its name, are unchecked.
    void update(const InstalledApp &app);
    void clear();

    /// In the order of the list; items of one kind in the application's own order.
    [[nodiscard]] std::vector<Leftover> chosenLeftovers() const;

    void toggle(int row) override;
    void select(int row) override;
    void selectAll() override;

signals:
    void chosenChanged();

protected:
    [[nodiscard]] CheckFacts checkFacts(const Leftover &leftover) const override;

private:
    void installRowsOf(const InstalledApp &app);
    void setChosen(const std::string &path, bool isChosen);

    std::set<std::string> m_chosen; // paths
};

} // namespace corvane
