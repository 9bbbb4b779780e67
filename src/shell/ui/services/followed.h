#pragma once

#include <QObject>
#include <QPointer>

namespace corvane {

/// Makes `held` another object; `follower` hears nothing of the former one any more.
/// @return whether it is another one
template <typename Object>
[[nodiscard]] bool follow(QPointer<Object> &held, Object *object, const QObject *follower)
{
    if (held == object)
        return false;
    if (held)
        held->disconnect(follower);
    held = object;
    return true;
}

} // namespace corvane
