#include "platform/walk_conditions.h"

#include <pthread.h>
#include <sys/qos.h>
#include <sys/resource.h>

namespace corvane {

namespace {

/// The calling thread's settings before the outermost walk.
struct Before {
    int walks = 0;
    int materialization = 0;
    int accessTimes = 0;
    qos_class_t quality = QOS_CLASS_UNSPECIFIED;
    int priority = 0;
};

thread_local Before before;

} // namespace

void enterWalk()
{
    if (before.walks++ > 0)
        return;
    before.materialization = getiopolicy_np(IOPOL_TYPE_VFS_MATERIALIZE_DATALESS_FILES, IOPOL_SCOPE_THREAD);
    before.accessTimes = getiopolicy_np(IOPOL_TYPE_VFS_ATIME_UPDATES, IOPOL_SCOPE_THREAD);
    pthread_get_qos_class_np(pthread_self(), &before.quality, &before.priority);
    setiopolicy_np(IOPOL_TYPE_VFS_MATERIALIZE_DATALESS_FILES, IOPOL_SCOPE_THREAD, IOPOL_MATERIALIZE_DATALESS_FILES_OFF);
    setiopolicy_np(IOPOL_TYPE_VFS_ATIME_UPDATES, IOPOL_SCOPE_THREAD, IOPOL_ATIME_UPDATES_OFF);
    pthread_set_qos_class_self_np(QOS_CLASS_USER_INITIATED, 0);
}

void leaveWalk()
{
    if (--before.walks > 0)
        return;
    // If the previous value is unknown, restore the process default.
    setiopolicy_np(IOPOL_TYPE_VFS_MATERIALIZE_DATALESS_FILES, IOPOL_SCOPE_THREAD,
                   before.materialization >= 0 ? before.materialization : IOPOL_MATERIALIZE_DATALESS_FILES_DEFAULT);
    setiopolicy_np(IOPOL_TYPE_VFS_ATIME_UPDATES, IOPOL_SCOPE_THREAD,
                   before.accessTimes >= 0 ? before.accessTimes : IOPOL_ATIME_UPDATES_DEFAULT);
    // A thread cannot be reset to having no QoS class.
    pthread_set_qos_class_self_np(before.quality == QOS_CLASS_UNSPECIFIED ? QOS_CLASS_DEFAULT : before.quality,
                                  before.priority);
}

} // namespace corvane
