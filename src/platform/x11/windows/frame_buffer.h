#pragma once

#include "platform/x11/connection.h"

#include <QImage>
#include <QRegion>

#include <xcb/shm.h>

namespace zeigewerk::platform::x11 {

/// The picture of one surface: premultiplied ARGB in memory that the server reads in place, or, on a display
/// that shares no memory, in memory of our own that is sent.
class FrameBuffer
{
public:
    FrameBuffer(Connection &connection, QSize size);
    ~FrameBuffer();
    FrameBuffer(const FrameBuffer &) = delete;
    FrameBuffer &operator=(const FrameBuffer &) = delete;

    /// The picture; transparent until painted on.
    QImage &image();

    /// Shows that part of the picture in the window. Pixels that are changed before the server has read them
    /// are shown as they are then.
    void put(xcb_window_t window, xcb_gcontext_t context, const QRegion &region);

    /// Gives the memory back, on both sides; the picture is transparent again.
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
    /// The server's name for the memory; 0 where none is shared.
    xcb_shm_seg_t m_segment = 0;
    QImage m_image;
};

} // namespace zeigewerk::platform::x11
