#include "shell/ui/window/help_presenter.h"

#include "shell/app_info.h"
#include "shell/ui/open_page.h"

namespace corvane {

void HelpPresenter::setStore(StorageStore *store)
{
    if (m_store == store)
        return;
    m_store = store;
    emit storeChanged();
}

void HelpPresenter::openWebsite() const
{
    if (m_store)
        openPage(*m_store, AppInfo::site());
}

void HelpPresenter::openPrivacyPolicy() const
{
    if (m_store)
        openPage(*m_store, AppInfo::privacyPage());
}

} // namespace corvane
