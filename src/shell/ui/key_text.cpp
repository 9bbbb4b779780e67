#include "shell/ui/key_text.h"

#include <QKeySequence>

namespace corvane {

QString KeyText::text(const QVariant &shortcut)
{
    const QKeySequence keys = shortcut.metaType() == QMetaType::fromType<int>()
                                  ? QKeySequence(static_cast<QKeySequence::StandardKey>(shortcut.toInt()))
                                  : shortcut.value<QKeySequence>();
    return keys.toString(QKeySequence::NativeText);
}

} // namespace corvane
