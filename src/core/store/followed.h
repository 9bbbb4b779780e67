#pragma once

#include <QObject>
#include <QPointer>

namespace corvane {

/// Lets `follower` follow another object, such as the settings, or none: it hears nothing of the former one any more.
/// False, and nothing happens, where that is the object that it follows already.
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
