// Linux: the D-Bus interface by which desktops start and call applications, on the session bus.
#include "main/running_program.h"

#include <string_view>
#include <utility>

#include <sys/stat.h>

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QObject>

#include "core/path_guard.h"
#include "core/store/file_url.h"
#include "shell/ui/linux/desktop_portal.h"

namespace corvane {

namespace {

constexpr QLatin1String service(CORVANE_APP_ID);
constexpr QLatin1String object("/app/corvane/Corvane");
constexpr QLatin1String interface("org.freedesktop.Application");
constexpr QLatin1String tokenKey("activation-token");
constexpr QLatin1String placeKey("corvane-place");
constexpr int longestAnswer = 3'000; // milliseconds: do not wait for a hanging program

/// Identifies the display, home folder and root that a process uses, since a sandbox may have its own. A running
/// instance can only handle a start with the same values.
QString ownPlace()
{
    struct stat root {};
    ::stat("/", &root);
    return QStringList{qEnvironmentVariable("DISPLAY"), qEnvironmentVariable("WAYLAND_DISPLAY"),
                       QString::fromLatin1(QByteArray::fromStdString(PathGuard::home()).toPercentEncoding("/")),
                       QString::number(root.st_dev), QString::number(root.st_ino)}
        .join(QLatin1Char('\n'));
}

} // namespace

/// The slots exported on the bus.
class RunningProgram::Listener : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    Listener(QDBusConnection bus, Answer answer) : m_bus(std::move(bus)), m_answer(std::move(answer))
    {
        // Register the name last: others may call as soon as they see it.
        m_bus.registerObject(object, this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(service);
    }
    ~Listener() override
    {
        m_bus.unregisterService(service);
        m_bus.unregisterObject(object);
    }
    Q_DISABLE_COPY_MOVE(Listener)

public slots:
    // NOLINTBEGIN(readability-identifier-naming): the interface's names
    void Activate(const QVariantMap &data) { take({}, data); }
    void Open(const QStringList &addresses, const QVariantMap &data)
    {
        take(addresses.isEmpty() ? std::string() : addresses.first().toStdString(), data);
    }
    void ActivateAction(const QString &, const QVariantList &, const QVariantMap &data) { take({}, data); }
    // NOLINTEND(readability-identifier-naming)

private:
    void take(std::string folder, const QVariantMap &data)
    {
        const QVariant place = data.value(placeKey);
        if (place.isValid() && place.toString() != ownPlace()) {
            sendErrorReply(QDBusError::Failed, QStringLiteral("runs elsewhere"));
            return;
        }
        m_answer({.folder = std::move(folder), .activationToken = data.value(tokenKey).toString().toStdString()});
    }

    QDBusConnection m_bus;
    Answer m_answer;
};

bool RunningProgram::handOver(const StartRequest &request)
{
    const std::optional<QDBusConnection> bus = runningSessionBus();
    if (!bus)
        return false;
    QVariantMap data{{placeKey, ownPlace()}};
    if (!request.activationToken.empty())
        data.insert(tokenKey, QString::fromStdString(request.activationToken));
    const bool opens = !request.folder.empty();
    QDBusMessage call = QDBusMessage::createMethodCall(service, object, interface,
                                                       opens ? QStringLiteral("Open") : QStringLiteral("Activate"));
    call.setAutoStartService(false);
    if (opens)
        call << QStringList{QString::fromLatin1(fileUrl(request.folder))};
    call << data;
    return bus->call(call, QDBus::Block, longestAnswer).type() == QDBusMessage::ReplyMessage;
}

RunningProgram::RunningProgram(Answer answer)
{
    if (std::optional<QDBusConnection> bus = runningSessionBus())
        m_listener = std::make_unique<Listener>(*std::move(bus), std::move(answer));
}

RunningProgram::~RunningProgram() = default;

} // namespace corvane

#include "running_program.moc"
