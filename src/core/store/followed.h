#pragma once

#include <QObject>
#include <QPointer>

namespace corvane {

/// Makes `follower` follow another object, such as the settings, or none, and disconnects it from the previous one.
/// Returns false and does nothing if it follows that object already.
template <typename Object>
[[nodiscard]] bool followObject(QPointer<Object> &followed, Object *object, const QObject *follower)
{
    if (followed == object)
        return false;
    if (followed)
        followed->disconnect(follower);
    followed = object;
    return true;
}

} // namespace corvane
