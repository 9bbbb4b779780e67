#include "shell/ui/window/help_presenter.h"

#include "shell/app_info.h"
#include "shell/ui/open_page.h"

namespace corvane {

HelpPresenter::HelpPresenter(StorageStore &store, QObject *parent) : QObject(parent), m_store(store) {}

void HelpPresenter::openWebsite() const
{
    openPage(m_store, AppInfo::site());
}

void HelpPresenter::openPrivacyPolicy() const
{
    openPage(m_store, AppInfo::privacyPage());
}

} // namespace corvane
