// Linux: the desktop portal's file chooser, the dialog that users know from other programs.

#include <functional>

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QWindow>

#include "shell/ui/linux/desktop_portal.h"
#include "shell/ui/system_folder_chooser.h"

namespace corvane {

namespace {

const auto chooserInterface = QStringLiteral("org.freedesktop.portal.FileChooser");
const auto requestInterface = QStringLiteral("org.freedesktop.portal.Request");
constexpr uint firstVersionWithFolders = 3;
constexpr uint accepted = 0;    // response code
constexpr int patience = 5'000; // milliseconds until an unresponsive portal counts as missing

/// The portal's identifier of a window; Qt exposes one on X11 only.
QString portalName(const QWindow *window)
{
    if (window == nullptr || QGuiApplication::platformName() != QStringLiteral("xcb"))
        return {};
    return QStringLiteral("x11:%1").arg(window->winId(), 0, 16);
}

class PortalFolderChooser : public SystemFolderChooser {
    Q_OBJECT

public:
    explicit PortalFolderChooser(const QDBusConnection &bus) : m_bus(bus) {}
    ~PortalFolderChooser() override { takeBack(); }

    void ask(const Question &question, const QWindow *window) override
    {
        takeBack();
        ++m_number;
        QDBusMessage read = QDBusMessage::createMethodCall(
            portalService(), portalObject(), QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
        read << chooserInterface << QStringLiteral("version");
        // Earlier versions of the portal can only choose files.
        call(read, [this, question, parent = portalName(window)](const QDBusMessage &reply) {
            const QVariant version = qvariant_cast<QDBusVariant>(reply.arguments().value(0)).variant();
            if (version.toUInt() >= firstVersionWithFolders)
                open(question, parent);
            else
                emit unavailable();
        });
    }

private slots:
    void onResponse(const QDBusMessage &response)
    {
        if (response.path() != m_request)
            return;
        stopListening();
        const QVariantList arguments = response.arguments();
        const QVariantMap results = qdbus_cast<QVariantMap>(arguments.value(1));
        const QStringList addresses = results.value(QStringLiteral("uris")).toStringList();
        // Any other response means that the user dismissed the dialog.
        if (arguments.value(0).toUInt() == accepted && !addresses.isEmpty())
            emit chosen(QUrl::fromEncoded(addresses.first().toUtf8()));
        else
            emit dismissed();
    }

private:
    /// Passes the reply on unless another question has been asked meanwhile.
    void call(const QDBusMessage &message, const std::function<void(const QDBusMessage &)> &take)
    {
        auto *const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, patience), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this,
                [this, take, number = m_number](QDBusPendingCallWatcher *call) {
                    call->deleteLater();
                    if (number != m_number)
                        return;
                    if (!call->isError()) {
                        take(call->reply());
                        return;
                    }
                    takeBack();
                    emit unavailable();
                });
    }

    void open(const Question &question, const QString &parent)
    {
        // The response may arrive before the reply does, so subscribe to its path in advance.
        const QString token = QStringLiteral("corvane%1").arg(m_number);
        const QString sender = m_bus.baseService().mid(1).replace(u'.', u'_');
        listenTo(portalObject() + QStringLiteral("/request/") + sender + u'/' + token);

        QDBusMessage openFile = QDBusMessage::createMethodCall(portalService(), portalObject(), chooserInterface,
                                                               QStringLiteral("OpenFile"));
        QByteArray firstFolder = QByteArray::fromStdString(question.firstFolder);
        firstFolder.append('\0'); // the portal expects the terminating zero
        openFile << parent << question.title
                 << QVariantMap{
                        {QStringLiteral("handle_token"), token}, {QStringLiteral("accept_label"), question.acceptLabel},
                        {QStringLiteral("modal"), true},         {QStringLiteral("multiple"), false},
                        {QStringLiteral("directory"), true},     {QStringLiteral("current_folder"), firstFolder}};
        call(openFile, [this](const QDBusMessage &reply) {
            const QString place = qvariant_cast<QDBusObjectPath>(reply.arguments().value(0)).path();
            // Either already answered, or the portal chose a path of its own.
            if (!m_request.isEmpty() && !place.isEmpty() && place != m_request) {
                stopListening();
                listenTo(place);
            }
        });
    }

    void listenTo(const QString &request)
    {
        m_request = request;
        m_bus.connect(portalService(), m_request, requestInterface, QStringLiteral("Response"), this,
                      SLOT(onResponse(QDBusMessage)));
    }

    void stopListening()
    {
        m_bus.disconnect(portalService(), m_request, requestInterface, QStringLiteral("Response"), this,
                         SLOT(onResponse(QDBusMessage)));
        m_request.clear();
    }

    /// Closes the dialog of a pending question.
    void takeBack()
    {
        if (m_request.isEmpty())
            return;
        m_bus.send(
            QDBusMessage::createMethodCall(portalService(), m_request, requestInterface, QStringLiteral("Close")));
        stopListening();
    }

    QDBusConnection m_bus;
    int m_number = 0;
    QString m_request; ///< object path of the pending response; empty for none
};

} // namespace

std::unique_ptr<SystemFolderChooser> systemFolderChooser()
{
    const std::optional<QDBusConnection> bus = runningSessionBus();
    return bus ? std::make_unique<PortalFolderChooser>(*bus) : nullptr;
}

} // namespace corvane

#include "portal_folder_chooser.moc"
