#include "shell/ui/system_texts.h"

#include "core/store/qt_words.h"
#include "shell/ui/store_registration.h"

namespace corvane {

SystemTexts *SystemTexts::create(QQmlEngine *, QJSEngine *)
{
    return new SystemTexts(StoreRegistration::store().words());
}

QString SystemTexts::text(std::string_view words)
{
    return displayText(words);
}

} // namespace corvane
