#pragma once

#include <memory>
#include <string>

#include "platform/host.h"

namespace corvane {

/// Moves one judged item to the Trash by the first of the system's ways that takes it, and makes sure that it was that
/// item. Where a system's Trash takes a path only, the path may lead to another item by then: that one is put back
/// where it was. Nothing here deletes. Off the main thread.
class TrashMove {
public:
    /// `folder` holds the item, and `judged` is what was found there. Both and the host's parts outlive the object.
    TrashMove(HeldFolder &folder, std::string name, const ItemFacts &judged, const Host &host);

    [[nodiscard]] Expected<void> perform();

private:
    [[nodiscard]] Expected<void> checked(const TrashedItem &arrived);
    [[nodiscard]] Expected<void> putBack(const TrashedItem &stranger);
    [[nodiscard]] Expected<void> performThroughFinder(const Error &refusal);
    [[nodiscard]] std::unique_ptr<HeldFolder> folderThatHasThePathNow();
    [[nodiscard]] bool isStillThere();

    HeldFolder &m_folder;
    const std::string m_name;
    const ItemFacts &m_judged;
    const Host m_host;
    const std::string m_path; ///< without a link on its way when it was judged
};

} // namespace corvane
