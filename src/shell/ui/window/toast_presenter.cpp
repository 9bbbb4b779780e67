#include "shell/ui/window/toast_presenter.h"

#include <algorithm>

#include "core/store/qt_words.h"

namespace corvane {

ToastPresenter::ToastPresenter(StorageStore &store, QObject *parent) : QObject(parent), m_store(store)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &ToastPresenter::dismiss);
    connect(&m_store, &StorageStore::toastChanged, this, &ToastPresenter::follow);
    follow();
}

void ToastPresenter::follow()
{
    m_shown = m_store.toast().has_value();
    m_timer.stop();
    if (m_shown) {
        m_text = displayText(*m_store.toast());
        m_warning = m_store.toastIsWarning();
        m_remaining = m_warning ? m_stayOfWarning : m_stay;
        if (!m_hovered)
            m_timer.start(m_remaining);
    }
    emit changed();
}

void ToastPresenter::setStay(int stay, int ofWarning)
{
    m_stay = stay;
    m_stayOfWarning = ofWarning;
}

void ToastPresenter::setHovered(bool hovered)
{
    if (m_hovered == hovered)
        return;
    m_hovered = hovered;
    if (m_shown && m_hovered) {
        m_remaining = std::max(0, m_timer.remainingTime());
        m_timer.stop();
    } else if (m_shown) {
        m_timer.start(m_remaining);
    }
    emit hoveredChanged();
}

void ToastPresenter::dismiss()
{
    m_store.dismissToast();
}

} // namespace corvane
