#include "shell/ui/services/feedback_presenter.h"

#include <array>

#include <QPointer>

#include "core/store/qt_words.h"
#include "core/words/system_words.h"
#include "shell/app_info.h"

namespace corvane {

namespace {

struct Category {
    const char *tag; ///< the service's name for it
    const char *name;
    const char *hint;
};

constexpr std::array<Category, 3> categoryList{{
    {"idea", "💡 Idea", ""},
    {"bug", "🐞 Bug", "What happened, and what did you expect?"},
    {"other", "💬 Other", ""},
}};

} // namespace

FeedbackPresenter::FeedbackPresenter(StorageStore &store, Services &services, QObject *parent)
    : QObject(parent), m_store(store), m_api(*services.api())
{
    connect(&m_store, &StorageStore::showFeedbackChanged, this, &FeedbackPresenter::followStore);
    followStore();
}

void FeedbackPresenter::followStore()
{
    if (m_wasWanted == isWanted())
        return;
    m_wasWanted = isWanted();
    if (!m_wasWanted) {
        m_isSeen = true;
    } else if (m_isSeen) {
        m_isSeen = false;
        m_errorText.clear();
        if (m_sent)
            startAnew();
        emit changed();
    }
    emit wantedChanged();
}

// --- Input

QList<QString> FeedbackPresenter::categories()
{
    QList<QString> names;
    for (const Category &category : categoryList)
        names << QString::fromUtf8(category.name);
    return names;
}

void FeedbackPresenter::setCategoryIndex(int index)
{
    if (index == m_draft.category || index < 0 || index >= static_cast<int>(categoryList.size()))
        return;
    m_draft.category = index;
    emit changed();
}

QString FeedbackPresenter::category() const
{
    return QString::fromLatin1(categoryList[static_cast<std::size_t>(m_draft.category)].tag);
}

QString FeedbackPresenter::messageHint() const
{
    return QString::fromLatin1(categoryList[static_cast<std::size_t>(m_draft.category)].hint);
}

void FeedbackPresenter::setMessage(const QString &message)
{
    if (message == m_draft.message)
        return;
    m_draft.message = message;
    emit changed();
}

void FeedbackPresenter::setEmail(const QString &email)
{
    if (email == m_draft.email)
        return;
    m_draft.email = email;
    emit changed();
}

void FeedbackPresenter::setIncludeInfo(bool include)
{
    if (include == m_draft.includesInfo)
        return;
    m_draft.includesInfo = include;
    emit changed();
}

QString FeedbackPresenter::infoText() const
{
    return displayText(m_store.words().includeSystemInfo);
}

// --- Sending

bool FeedbackPresenter::canSend() const
{
    return !m_sending && !m_sent && !m_draft.message.trimmed().isEmpty();
}

QJsonObject FeedbackPresenter::body() const
{
    QJsonObject body{
        {QStringLiteral("message"), m_draft.message.trimmed()},
        {QStringLiteral("email"), m_draft.email.trimmed()},
        {QStringLiteral("category"), category()},
        {QStringLiteral("source"), QStringLiteral("app")},
    };
    if (m_draft.includesInfo)
        body.insert(QStringLiteral("info"), AppInfo::system(m_store.host().files));
    return body;
}

void FeedbackPresenter::send()
{
    if (!canSend())
        return;
    m_sending = true;
    m_errorText.clear();
    emit changed();
    m_api.post(QStringLiteral("api/feedback"), body(),
               [presenter = QPointer(this)](const std::optional<API::Failure> &failure) {
                   if (presenter)
                       presenter->receive(failure);
               });
}

void FeedbackPresenter::receive(const std::optional<API::Failure> &failure)
{
    m_sending = false;
    if (failure) {
        m_errorText = failure->message;
    } else {
        m_sent = isWanted();
        if (!m_sent)
            startAnew();
    }
    emit changed();
    if (isWanted())
        return;
    // The form was closed meanwhile, so report the outcome in a toast.
    m_isSeen = false;
    if (failure)
        m_store.showToast("Feedback not sent: " + failure->message.toStdString(), true);
    else
        m_store.showToast("Feedback sent. Thank you!");
}

QString FeedbackPresenter::errorLines() const
{
    return QString(m_errorText).replace(QStringLiteral(". "), QStringLiteral(".\n"));
}

void FeedbackPresenter::close()
{
    m_store.setShowFeedback(false);
}

void FeedbackPresenter::startAnew()
{
    m_draft = {};
    m_sent = false;
}

QString FeedbackPresenter::thanksText() const
{
    const QString address = m_draft.email.trimmed();
    return address.isEmpty() ? QString() : QStringLiteral("We'll reply to ") + address;
}

} // namespace corvane
