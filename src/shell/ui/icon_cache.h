#pragma once

#include <string>

#include <QByteArray>
#include <QCache>
#include <QImage>
#include <QMutex>

#include "core/file_node.h"

namespace corvane {

/// The icons of files and folders, by path. One instance for the whole program; every function may be called from any
/// thread. Evicts the least recently used.
class IconCache {
public:
    IconCache();

    /// Made on first use.
    static IconCache &shared();

    /// The icon of the item at this path (bytes), drawn for 32 x 32 points. Does not read the disk: the name and the
    /// kind determine the icon, unless the system has a better one.
    [[nodiscard]] QImage icon(const std::string &path, FileNode::Kind kind);

private:
    QMutex m_mutex;
    QCache<QByteArray, QImage> m_icons; // guarded by m_mutex; costs are bytes
};

} // namespace corvane
