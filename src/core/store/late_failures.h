#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <utility>

#include <QMetaObject>
#include <QObject>

#include "platform/error.h"

namespace corvane {

/// Forwards failures that the desktop reports later, from any thread, to the main thread while it exists. Main thread
/// only.
class LateFailures {
public:
    using Receiver = std::function<void(const Error &)>;

    explicit LateFailures(Receiver receive) : m_receive(std::move(receive)) {}
    ~LateFailures()
    {
        const std::lock_guard lock(m_address->mutex);
        m_address->owner = nullptr;
    }
    LateFailures(const LateFailures &) = delete;
    LateFailures &operator=(const LateFailures &) = delete;

    /// To be called with a failure, from any thread; does nothing once this object is destroyed.
    [[nodiscard]] Receiver reporter() const
    {
        return [address = m_address](const Error &error) {
            const std::lock_guard lock(address->mutex);
            if (LateFailures *const owner = address->owner) {
                QMetaObject::invokeMethod(
                    &owner->m_mainThread, [owner, error] { owner->m_receive(error); }, Qt::QueuedConnection);
            }
        };
    }

private:
    struct Address {
        explicit Address(LateFailures *receiver) : owner(receiver) {}

        std::mutex mutex;
        LateFailures *owner; // guarded by the mutex; null after destruction
    };

    const Receiver m_receive;
    const std::shared_ptr<Address> m_address = std::make_shared<Address>(this);
    QObject m_mainThread; // receives the queued calls; pending ones are dropped with it
};

} // namespace corvane
