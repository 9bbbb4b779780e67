#pragma once

#include <optional>

#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/services_registration.h"
#include "shell/ui/store_registration.h"
#include "shell/web_service.h"

namespace corvane {

/// The feedback form. Keeps its input until it has been sent, even while the form is closed. Closing the form does not
/// cancel sending; the outcome is then shown as a toast. Main thread only.
class FeedbackPresenter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// Whether to show the form.
    Q_PROPERTY(bool wanted READ isWanted NOTIFY wantedChanged)
    Q_PROPERTY(QList<QString> categories READ categories CONSTANT)
    Q_PROPERTY(int categoryIndex READ categoryIndex WRITE setCategoryIndex NOTIFY changed)
    Q_PROPERTY(QString message READ message WRITE setMessage NOTIFY changed)
    Q_PROPERTY(QString messageHint READ messageHint NOTIFY changed)
    Q_PROPERTY(QString email READ email WRITE setEmail NOTIFY changed)
    Q_PROPERTY(bool includeInfo READ includesInfo WRITE setIncludeInfo NOTIFY changed)
    Q_PROPERTY(QString infoText READ infoText CONSTANT)
    Q_PROPERTY(bool sending READ isSending NOTIFY changed)
    /// Empty for none.
    Q_PROPERTY(QString errorText READ errorText NOTIFY changed)
    /// The same with each sentence on a separate line.
    Q_PROPERTY(QString errorLines READ errorLines NOTIFY changed)
    Q_PROPERTY(bool sent READ isSent NOTIFY changed)
    Q_PROPERTY(bool canSend READ canSend NOTIFY changed)
    Q_PROPERTY(QString thanksText READ thanksText NOTIFY changed)

public:
    explicit FeedbackPresenter(StorageStore &store = StoreRegistration::store(),
                               Services &services = ServicesRegistration::services(), QObject *parent = nullptr);

    [[nodiscard]] bool isWanted() const { return m_store.showFeedback(); }
    /// The names of the categories.
    [[nodiscard]] static QList<QString> categories();
    [[nodiscard]] int categoryIndex() const { return m_draft.category; }
    void setCategoryIndex(int index);
    /// The service's name for the category: "idea", "bug" or "other".
    [[nodiscard]] QString category() const;
    [[nodiscard]] QString message() const { return m_draft.message; }
    void setMessage(const QString &message);
    /// The placeholder of the message field.
    [[nodiscard]] QString messageHint() const;
    [[nodiscard]] QString email() const { return m_draft.email; }
    void setEmail(const QString &email);
    [[nodiscard]] bool includesInfo() const { return m_draft.includesInfo; }
    void setIncludeInfo(bool include);
    [[nodiscard]] QString infoText() const;
    [[nodiscard]] bool isSending() const { return m_sending; }
    [[nodiscard]] QString errorText() const { return m_errorText; }
    [[nodiscard]] QString errorLines() const;
    [[nodiscard]] bool isSent() const { return m_sent; }
    [[nodiscard]] bool canSend() const;
    [[nodiscard]] QString thanksText() const;

    /// The JSON to post.
    [[nodiscard]] QJsonObject body() const;

    /// Does nothing while `canSend` is false.
    Q_INVOKABLE void send();
    /// The form was closed, in any way.
    Q_INVOKABLE void close();

signals:
    void wantedChanged();
    void changed();

private:
    struct Draft {
        int category = 0;
        QString message;
        QString email;
        bool includesInfo = true;
    };

    void followStore();
    void receive(const std::optional<API::Failure> &failure);
    void startAnew();

    StorageStore &m_store;
    API &m_api;
    Draft m_draft;
    bool m_wasWanted = false;
    bool m_sending = false;
    QString m_errorText;
    bool m_sent = false;
    bool m_isSeen = false; // the current outcome has been dismissed and is not shown again
};

} // namespace corvane
