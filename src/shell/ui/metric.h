#pragma once

#include <QObject>

/// One size, share or duration, which C++ and QML read by the same name: `MapMetrics::crumbPadding()` and
/// `MapMetrics.crumbPadding`. For the public part of a QObject.
#define METRIC(Type, name, value)                                                                                      \
    Q_PROPERTY(Type name READ name CONSTANT)                                                                           \
    [[nodiscard]] static constexpr Type name()                                                                         \
    {                                                                                                                  \
        return value;                                                                                                  \
    }
