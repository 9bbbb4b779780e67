#pragma once

#include <memory>
#include <optional>

#include <QDateTime>
#include <QObject>
#include <QSettings>
#include <QString>

namespace corvane {

/// The user's settings and the state kept between runs, under fixed keys of the settings file. A value that is missing
/// or invalid for its key reads as the default. If the file cannot be written, values last for this run. Main thread
/// only.
class UserDefaults : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool didOnboard READ didOnboard WRITE setDidOnboard NOTIFY didOnboardChanged)
    Q_PROPERTY(corvane::UserDefaults::ReportMode crashReportMode READ crashReportMode WRITE setCrashReportMode NOTIFY
                   crashReportModeChanged)

public:
    /// What to do with the reports of earlier crashes.
    enum class ReportMode { ask, always, never };
    Q_ENUM(ReportMode)

    /// `settings` must not be null.
    explicit UserDefaults(std::unique_ptr<QSettings> settings, QObject *parent = nullptr);

    /// "didOnboard": the welcome sheet has been dismissed once.
    [[nodiscard]] bool didOnboard() const;
    void setDidOnboard(bool did);

    /// "crashReportMode": "ask", "always" or "never".
    [[nodiscard]] ReportMode crashReportMode() const;
    void setCrashReportMode(ReportMode mode);

    /// "crashReportLastCheck"; nothing before the first check.
    [[nodiscard]] std::optional<QDateTime> crashReportLastCheck() const;
    void setCrashReportLastCheck(const QDateTime &when);

    /// A boolean under a key that another part of the program owns; false by default.
    [[nodiscard]] bool flag(const QString &key) const;
    void setFlag(const QString &key, bool value);
    /// A date and time under such a key; nullopt if it is not set.
    [[nodiscard]] std::optional<QDateTime> moment(const QString &key) const;
    void setMoment(const QString &key, const QDateTime &when);

    /// The underlying storage, for parts that keep groups of their own in it.
    [[nodiscard]] QSettings &settings() { return *m_settings; }

signals:
    void didOnboardChanged();
    void crashReportModeChanged();

private:
    const std::unique_ptr<QSettings> m_settings;
};

} // namespace corvane
