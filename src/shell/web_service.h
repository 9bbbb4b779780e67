#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <QJsonObject>
#include <QObject>
#include <QString>
#include <QUrl>

class QNetworkAccessManager;

namespace corvane {

/// The web service of the product's website, which receives messages from the user. Main thread only; receivers are
/// called there, and never after this object is destroyed.
class API : public QObject {
    Q_OBJECT

public:
    /// Why a message was not delivered.
    struct Failure {
        QString message; ///< one short sentence for the user

        friend bool operator==(const Failure &, const Failure &) = default;
    };

    /// Called once: nullopt if the service has accepted the message, otherwise the failure.
    using Receiver = std::function<void(std::optional<Failure>)>;

    /// Overridden in tests.
    struct Options {
        /// The limit for a pause while sending, for the wait until the response begins, and for the response itself.
        std::chrono::milliseconds timeout = std::chrono::seconds(60);
        QNetworkAccessManager *network = nullptr; ///< must outlive the service; it creates its own by default
    };

    /// `site` is the base that paths such as "api/feedback" are appended to.
    explicit API(QUrl site, Options options = defaultOptions(), QObject *parent = nullptr);
    ~API() override;

    [[nodiscard]] const QUrl &site() const { return m_site; }

    /// Posts the body as JSON. Never resends, and never follows a redirect: that counts as a failure. Reads at most the
    /// first megabytes of a response.
    void post(const QString &path, const QJsonObject &body, Receiver received);

private:
    class Exchange;

    [[nodiscard]] static Options defaultOptions() { return {}; }

    void finish(Exchange &exchange);

    const QUrl m_site;
    const Options m_options;
    std::unique_ptr<QNetworkAccessManager> m_ownNetwork;
    std::vector<std::unique_ptr<Exchange>> m_exchanges; // first to be destroyed: they use the network
};

} // namespace corvane
