#pragma once

#include <QIcon>
#include <QImage>
#include <QQuickImageProvider>

namespace corvane {

/// The program's icon, `pixels` wide and high. Any thread.
[[nodiscard]] QImage renderAppIcon(int pixels);

/// The icon of the program's windows, in every size that desktops use.
[[nodiscard]] QIcon appIcon();

/// Serves QML image://app/icon at the requested source size.
class AppIconProvider : public QQuickImageProvider {
public:
    AppIconProvider();

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};

} // namespace corvane
