#pragma once

#include <string_view>

#include <QVariant>

#include "cleanup/ui/cleanup_rows.h"
#include "core/words/system_words.h"

namespace corvane {

/// The data of a row of the cleanup list for a role of CleanupListModel: its texts, figures and icons. Has no value for
/// roles that depend on neighbouring rows, on the card's expansion or on the selection. `measured` is the location of a
/// card, null before the measurement; the user's home folder is shown as "~".
[[nodiscard]] QVariant cleanupRowData(const CleanupRow &row, int role, const CleanupItem *measured,
                                      std::string_view home, const SystemWords &words);

} // namespace corvane
