#include "shell/ui/services/onboarding_presenter.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <QUrl>

#include "core/store/qt_words.h"

namespace corvane {

namespace {

/// Converts "**" around words to rich text in the weight that the program uses for bold.
QString richText(std::string_view sentence)
{
    QString text;
    bool isBold = false;
    for (const QString &piece : displayText(sentence).split(QStringLiteral("**"))) {
        const QString words = piece.toHtmlEscaped();
        text += isBold ? QStringLiteral("<span style=\"font-weight:600\">") + words + QStringLiteral("</span>") : words;
        isBold = !isBold;
    }
    return QStringLiteral("<p style=\"line-height:18px; -qt-line-height-type:fixed\">") + text + QStringLiteral("</p>");
}

} // namespace

OnboardingPresenter::OnboardingPresenter(StorageStore &store, Services &services, QObject *parent)
    : QObject(parent), m_store(store), m_defaults(*services.defaults())
{
    m_poll.setSingleShot(true);
    m_poll.setInterval(std::chrono::seconds(1));
    connect(&m_poll, &QTimer::timeout, this, &OnboardingPresenter::testAccess);
    connect(&m_store, &StorageStore::accessChanged, this, &OnboardingPresenter::accessChanged);
    connect(&m_defaults, &UserDefaults::didOnboardChanged, this, &OnboardingPresenter::wantedChanged);
}

void OnboardingPresenter::setVisible(bool visible)
{
    if (m_visible == visible)
        return;
    m_visible = visible;
    emit visibleChanged();
    m_poll.stop();
    if (m_visible)
        testAccess();
}

void OnboardingPresenter::testAccess()
{
    m_store.refreshAccess();
    if (!isGranted())
        m_poll.start();
}

QString OnboardingPresenter::welcomeLine() const
{
    return displayText(words().welcomeLine);
}

QString OnboardingPresenter::accessTitle() const
{
    return displayText(words().accessTitle);
}

QString OnboardingPresenter::accessLine() const
{
    return displayText(isGranted() ? words().accessGranted : words().accessMissing);
}

QString OnboardingPresenter::status() const
{
    return isGranted() ? QStringLiteral("Granted") : QStringLiteral("Waiting…");
}

bool OnboardingPresenter::hasSettings() const
{
    return words().accessIsInSettings;
}

QStringList OnboardingPresenter::steps() const
{
    QStringList texts;
    if (!hasSettings())
        return texts;
    for (const std::string_view step : words().accessSteps)
        texts << richText(step);
    return texts;
}

QStringList OnboardingPresenter::plainSteps() const
{
    QStringList plain;
    for (const QString &step : steps())
        plain << QTextDocumentFragment::fromHtml(step).toPlainText();
    return plain;
}

QString OnboardingPresenter::dragHelp() const
{
    return displayText(words().dragHelp);
}

QString OnboardingPresenter::bundleOf(const QString &programFile)
{
    // NAME.app/Contents/MacOS/NAME
    static const QRegularExpression insideBundle(QStringLiteral("^(.+\\.app)/Contents/MacOS/[^/]+$"));
    const QRegularExpressionMatch match = insideBundle.match(programFile);
    return match.hasMatch() ? match.captured(1) : programFile;
}

QString OnboardingPresenter::applicationUrl()
{
    return QUrl::fromLocalFile(bundleOf(QCoreApplication::applicationFilePath())).toString(QUrl::FullyEncoded);
}

void OnboardingPresenter::dismiss()
{
    m_defaults.setDidOnboard(true);
}

void OnboardingPresenter::openSettings()
{
    m_store.perform({BreakdownAction::Kind::fullDiskAccess, {}});
}

} // namespace corvane
