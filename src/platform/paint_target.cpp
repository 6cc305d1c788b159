#include "platform/paint_target.h"

#include <algorithm>
#include <cstring>

namespace zeigewerk::platform {

namespace {

constexpr int kBytesPerPixel = 4;

} // namespace

void PaintTarget::select(const QRect &rect)
{
    m_painting.reset();
    m_rect = rect;
    m_pixels.assign(static_cast<std::size_t>(rect.width()) * static_cast<std::size_t>(rect.height()), 0);
}

float *PaintTarget::workingMemory()
{
    // Allocated here, since only strokes need it; a spotlight on an empty canvas does not.
    m_workingMemory.resize(static_cast<std::size_t>(m_rect.width() + kMargin) *
                           static_cast<std::size_t>(m_rect.height()));
    return m_workingMemory.data();
}

void PaintTarget::fill(std::uint32_t premultiplied)
{
    std::fill(m_pixels.begin(), m_pixels.end(), premultiplied);
}

QPainter &PaintTarget::painter()
{
    if (!m_painting) {
        m_painting.emplace();
        m_painting->image =
            QImage(reinterpret_cast<uchar *>(m_pixels.data()), m_rect.width(), m_rect.height(),
                   qsizetype{m_rect.width()} * kBytesPerPixel, QImage::Format_ARGB32_Premultiplied);
        m_painting->painter.begin(&m_painting->image);
        m_painting->painter.setTransform(m_geometry.painterTransform() *
                                         QTransform::fromTranslate(-m_rect.x(), -m_rect.y()));
    }
    return m_painting->painter;
}

void PaintTarget::copyTo(QImage &image)
{
    const std::size_t byteCount = static_cast<std::size_t>(m_rect.width()) * kBytesPerPixel;
    const qsizetype offset = static_cast<qsizetype>(m_rect.x()) * kBytesPerPixel;
    for (int y = m_rect.top(); y <= m_rect.bottom(); ++y)
        std::memcpy(image.scanLine(y) + offset, row(y), byteCount);
}

} // namespace zeigewerk::platform
