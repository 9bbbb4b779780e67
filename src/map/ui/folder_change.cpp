#include "map/ui/folder_change.h"

#include "map/ui/tree_path.h"
#include "shell/ui/theme.h"

namespace corvane {

namespace {

/// The tile of a folder below the layout's folder, or of its closest ancestor that has one; -1 if there is none.
int tileTowards(const TreemapLayout &layout, const FileNode *node)
{
    while (node) {
        if (const int index = layout.indexOf(node); index >= 0)
            return index;
        node = node->parent.lock().get();
    }
    return -1;
}

} // namespace

FolderChange::FolderChange(QObject *parent) : QObject(parent)
{
    m_animation.setStartValue(0.0);
    m_animation.setEndValue(1.0);
    m_animation.setEasingCurve(QEasingCurve::InOutCubic);
    connect(&m_animation, &QVariantAnimation::valueChanged, this, &FolderChange::moved);
    connect(&m_animation, &QVariantAnimation::finished, this, &FolderChange::stop);
}

void FolderChange::start(const Place &from, const Place &to, const QImage &picture, const Paint &paint)
{
    const int duration = Theme::instance()->motion(Theme::mapDuration());
    if (!from.folder || !to.folder || picture.isNull() || duration == 0)
        return;
    m_isInward = childTowards(from.folder.get(), to.folder) != nullptr;
    if (!m_isInward && !childTowards(to.folder.get(), from.folder))
        return;
    const Place &outer = m_isInward ? from : to;
    const Place &inner = m_isInward ? to : from;
    const int index = tileTowards(outer.layout, inner.folder.get());
    if (index < 0)
        return;
    m_tile = outer.layout.rect(index);
    m_picture = picture;
    m_tinted = paint(inner, outer.layout.tile(index).color);
    m_animation.setDuration(duration);
    m_animation.start();
}

void FolderChange::stop()
{
    m_animation.stop();
    if (m_picture.isNull())
        return;
    m_picture = QImage();
    m_tinted = QImage();
    emit ended();
}

double FolderChange::part() const
{
    const double progress = m_animation.currentValue().toDouble();
    return m_isInward ? progress : 1 - progress;
}

} // namespace corvane
