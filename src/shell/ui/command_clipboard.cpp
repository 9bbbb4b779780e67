#include "shell/ui/command_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace corvane {

CommandClipboard::CommandClipboard(QObject *parent) : QObject(parent)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(copiedStay);
    connect(&m_timer, &QTimer::timeout, this, [this] { setCopied({}); });
}

void CommandClipboard::copy(const QString &command)
{
    QGuiApplication::clipboard()->setText(command);
    setCopied(command);
    m_timer.start();
}

void CommandClipboard::setCopied(const QString &command)
{
    if (m_copied == command)
        return;
    m_copied = command;
    emit copiedChanged();
}

} // namespace corvane
