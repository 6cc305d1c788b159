#pragma once

#include "platform/x11/connection.h"

#include <QImage>
#include <QRegion>

#include <xcb/shm.h>

namespace zeigewerk::platform::x11 {

/// The picture of one surface, as premultiplied ARGB. The server reads it from shared memory; a display
/// without shared memory is sent the pixels.
class FrameBuffer
{
public:
    FrameBuffer(Connection &connection, QSize size);
    ~FrameBuffer();
    FrameBuffer(const FrameBuffer &) = delete;
    FrameBuffer &operator=(const FrameBuffer &) = delete;

    /// The picture. It starts transparent.
    QImage &image();

    /// Shows that part of the picture in the window. The server may read it later, and then shows newer
    /// pixels.
    void put(xcb_window_t window, xcb_gcontext_t context, const QRegion &region);

    /// Makes the picture transparent and returns its memory to the system.
    void release();

private:
    bool shareMemory();
    void putShared(xcb_window_t window, xcb_gcontext_t context, const QRect &rect);
    void putCopied(xcb_window_t window, xcb_gcontext_t context, const QRect &rect);

    Connection &m_connection;
    QSize m_size;
    std::size_t m_byteCount;
    int m_memory = -1;
    void *m_address = nullptr;
    /// The server's id of the shared memory; 0 if none is shared.
    xcb_shm_seg_t m_segment = 0;
    QImage m_image;
};

} // namespace zeigewerk::platform::x11
