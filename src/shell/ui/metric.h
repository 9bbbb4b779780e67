#pragma once

#include <QObject>

/// Declares a size, share or duration that C++ and QML read by the same name: `MapMetrics::crumbPadding()` and
/// `MapMetrics.crumbPadding`. Use in the public part of a QObject.
#define METRIC(Type, name, value)                                                                                      \
    Q_PROPERTY(Type name READ name CONSTANT)                                                                           \
    [[nodiscard]] static constexpr Type name()                                                                         \
    {                                                                                                                  \
        return value;                                                                                                  \
    }
