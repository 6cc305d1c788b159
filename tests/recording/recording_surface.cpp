#include "platform/paint_damage.h"
#include "recording/recording_desktop.h"

#include <algorithm>
#include <utility>

namespace zeigewerk::platform {

RecordingSurface::RecordingSurface(RecordingDesktop &desktop, QString name, const QRectF &frame)
    : m_desktop(desktop)
    , m_name(std::move(name))
    , m_frame(frame)
    , m_scale(desktop.m_layout.scaleAt(frame.center()))
{
}

RecordingSurface::~RecordingSurface()
{
    m_desktop.forgetKey(m_name);
    for (auto &[role, surfaces] : m_desktop.m_surfaces)
        surfaces.erase(std::remove(surfaces.begin(), surfaces.end(), this), surfaces.end());
}

void RecordingSurface::setFrameOrigin(QPointF origin)
{
    m_frame.moveTopLeft(origin);
    m_desktop.note(QStringLiteral("%1: move to %2, %3").arg(m_name).arg(origin.x()).arg(origin.y()));
    adoptScale();
}

void RecordingSurface::adoptScale()
{
    const double scale = m_desktop.m_layout.scaleAt(m_frame.center());
    if (scale == m_scale)
        return;
    m_scale = scale;
    if (!m_visible)
        return;
    m_image = blankImage();
    setNeedsDisplay(Damage::everything());
}

QImage RecordingSurface::blankImage() const
{
    QImage image(m_desktop.m_layout.nativeRect(m_frame).size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

void RecordingSurface::orderFrontRegardless()
{
    m_desktop.note(m_name + QStringLiteral(": order front"));
    m_orderedFront = ++m_desktop.m_lastOrder;
    if (m_visible)
        return;
    m_visible = true;
    m_image = blankImage();
}

void RecordingSurface::orderOut()
{
    m_desktop.note(m_name + QStringLiteral(": order out"));
    m_desktop.forgetKey(m_name);
    m_visible = false;
    m_image = {};
    m_damage = {};
    m_isDisplayWanted = false;
}

void RecordingSurface::setIgnoresMouseEvents(bool ignores)
{
    m_ignoresMouseEvents = ignores;
    m_desktop.note(m_name +
                   (ignores ? QStringLiteral(": ignore the mouse") : QStringLiteral(": take the mouse")));
}

void RecordingSurface::makeKey()
{
    m_desktop.note(m_name + QStringLiteral(": make key"));
    if (m_visible)
        m_desktop.m_keyWindow = m_name;
}

void RecordingSurface::setNeedsDisplay(const Damage &damage)
{
    if (!m_visible)
        return;
    m_isDisplayWanted = true;
    m_damage.add(damage);
}

bool RecordingSurface::display()
{
    if (!m_content || !m_isDisplayWanted)
        return false;
    m_content->willDisplay();
    const QRegion painted = paintDamage(m_image, m_scale, m_damage, *m_content);
    m_damage = {};
    m_isDisplayWanted = false;
    for (const QRect &rect : painted)
        m_paintedPixels += static_cast<qint64>(rect.width()) * rect.height();
    return !painted.isEmpty();
}

} // namespace zeigewerk::platform
