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

/// The leftovers of one application, and which of them go with it. What belongs to it for certain is ticked when it is
/// shown, what only shares its name is not. Main thread only.
class AppLeftoversModel : public corvane::LeftoverListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Given by the presenter of the application")

public:
    using LeftoverListModel::LeftoverListModel;

    /// Shows another application.
    void show(const InstalledApp &app);
    /// Takes over what is known of the same application by now. Ticks stay with the items that are still there; what
    /// has come since is not ticked, nor is what turned out to share its name only.
    void update(const InstalledApp &app);
    void clear();

    /// In the order of the list, that of the application's own for items of one kind.
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
