#pragma once

#include <memory>
#include <string>

#include "platform/host.h"

namespace corvane {

/// Moves one judged item to the Trash by the first of the system's methods that works, and verifies that it was that
/// item. If a system's Trash only takes a path, the path may lead to another item by then: that one is moved back.
/// Never deletes anything. Off the main thread.
class TrashMove {
public:
    /// `folder` contains the item, and `judged` are the facts found there. Both and the host's parts must outlive the
    /// object.
    TrashMove(HeldFolder &folder, std::string name, const ItemFacts &judged, const Host &host);

    [[nodiscard]] Expected<void> perform();

private:
    [[nodiscard]] Expected<void> checked(const TrashedItem &arrived);
    [[nodiscard]] Expected<void> putBack(const TrashedItem &wrongItem);
    [[nodiscard]] Expected<void> performThroughFinder(const Error &refusal);
    [[nodiscard]] std::unique_ptr<HeldFolder> otherFolderAtPath();
    [[nodiscard]] bool isStillThere();

    HeldFolder &m_folder;
    const std::string m_name;
    const ItemFacts &m_judged;
    const Host m_host;
    const std::string m_path; ///< had no link in it when the item was judged
};

} // namespace corvane
