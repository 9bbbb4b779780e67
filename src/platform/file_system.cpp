#include "platform/file_system.h"

namespace corvane {

SystemKind FileSystem::systemKind()
{
    std::call_once(m_kindKnown,
                   [this] { m_kind = exists(std::string(macSystemFile)) ? SystemKind::mac : SystemKind::linuxSystem; });
    return m_kind;
}

} // namespace corvane
