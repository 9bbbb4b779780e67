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

/// The web service of the product's website, which takes messages that the user sends. Main thread only; the answers
/// arrive there, and none after it is destroyed.
class API : public QObject {
    Q_OBJECT

public:
    /// Why a message did not arrive.
    struct Failure {
        QString message; ///< one short sentence for people

        friend bool operator==(const Failure &, const Failure &) = default;
    };

    /// Called once: nothing when the service has taken the message, or why it has not.
    using Receiver = std::function<void(std::optional<Failure>)>;

    /// What tests set otherwise.
    struct Options {
        /// How long the sending may pause, the answer may take to begin, and to end once it has begun.
        std::chrono::milliseconds timeout = std::chrono::seconds(60);
        QNetworkAccessManager *network = nullptr; ///< outlives the service; one of its own by default
    };

    /// `site` is the base that paths such as "api/feedback" are appended to.
    explicit API(QUrl site, Options options = defaultOptions(), QObject *parent = nullptr);
    ~API() override;

    [[nodiscard]] const QUrl &site() const { return m_site; }

    /// Posts the body as JSON. Nothing is sent twice, and nothing to another place than the site: an answer that sends
    /// elsewhere is a failure. Of an answer no more is read than its first megabytes.
    void post(const QString &path, const QJsonObject &body, Receiver received);

private:
    class Exchange;

    [[nodiscard]] static Options defaultOptions() { return {}; }

    void finish(Exchange &exchange);

    const QUrl m_site;
    const Options m_options;
    std::unique_ptr<QNetworkAccessManager> m_ownNetwork;
    std::vector<std::unique_ptr<Exchange>> m_exchanges; // goes first, for they use the network
};

} // namespace corvane
