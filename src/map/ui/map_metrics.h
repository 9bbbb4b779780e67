#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// The lengths, in points, that only the explorer has.
class MapMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(int crumbHeight READ crumbHeight CONSTANT)
    Q_PROPERTY(int crumbPadding READ crumbPadding CONSTANT)
    Q_PROPERTY(int crumbSpacing READ crumbSpacing CONSTANT)
    Q_PROPERTY(int crumbCaretSize READ crumbCaretSize CONSTANT)
    Q_PROPERTY(int rootIconSize READ rootIconSize CONSTANT)
    Q_PROPERTY(int rootIconGap READ rootIconGap CONSTANT)
    Q_PROPERTY(int listHeaderHeight READ listHeaderHeight CONSTANT)
    Q_PROPERTY(int rowGap READ rowGap CONSTANT)
    Q_PROPERTY(int rowCaretSize READ rowCaretSize CONSTANT)

public:
    static constexpr int crumbHeight() { return 26; }
    static constexpr int crumbPadding() { return 6; }
    static constexpr int crumbSpacing() { return 4; }
    static constexpr int crumbCaretSize() { return 12; }
    static constexpr int rootIconSize() { return 15; }
    static constexpr int rootIconGap() { return 6; }
    static constexpr int listHeaderHeight() { return 40; }
    static constexpr int rowGap() { return 9; }
    static constexpr int rowCaretSize() { return 11; }
};

} // namespace corvane
