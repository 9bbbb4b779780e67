#pragma once

#include <string>

#include <QUrl>

#include "core/store/storage_store.h"

namespace corvane {

/// Opens a page in the browser, and shows a toast if that fails. Main thread only.
inline void openPage(StorageStore &store, const QUrl &page)
{
    const std::string address = page.toString(QUrl::FullyEncoded).toStdString();
    if (const auto opened = store.host().desktop.openUrl(address); !opened)
        store.showToast("Can't open " + address + ": " + opened.error().description(), true);
}

} // namespace corvane
