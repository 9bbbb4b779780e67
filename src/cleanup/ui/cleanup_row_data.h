#pragma once

#include <string_view>

#include <QVariant>

#include "cleanup/ui/cleanup_rows.h"
#include "core/words/system_words.h"

namespace corvane {

/// What a row of the cleanup list shows by itself, for a role of CleanupListModel: its words, figures and icons.
/// Without a value for what depends on the rows around it, on its card's opening and on the selection. `measured` is
/// what a card stands for, null before the measurement; the user's home folder is shown as "~".
[[nodiscard]] QVariant cleanupRowData(const CleanupRow &row, int role, const CleanupItem *measured,
                                      std::string_view home, const SystemWords &words);

} // namespace corvane
