#include "shell/ui/window/help_presenter.h"

#include "shell/app_info.h"

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
    openPage(AppInfo::site());
}

void HelpPresenter::openPrivacyPolicy() const
{
    openPage(AppInfo::privacyPage());
}

void HelpPresenter::openPage(const QUrl &page) const
{
    if (!m_store)
        return;
    const std::string address = page.toString(QUrl::FullyEncoded).toStdString();
    if (const auto opened = m_store->host().desktop.openUrl(address); !opened)
        m_store->showToast("Can't open " + address + ": " + opened.error().description(), true);
}

} // namespace corvane
