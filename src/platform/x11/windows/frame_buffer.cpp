#include "platform/x11/windows/frame_buffer.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>

namespace zeigewerk::platform::x11 {

namespace {

constexpr int kBytesPerPixel = 4;

template <typename T>
std::uint16_t u16(T value)
{
    return static_cast<std::uint16_t>(value);
}

std::int16_t s16(int value)
{
    return static_cast<std::int16_t>(value);
}

} // namespace

FrameBuffer::FrameBuffer(Connection &connection, QSize size)
    : m_connection(connection)
    , m_size(size)
    , m_byteCount(static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()) *
                  kBytesPerPixel)
{
    if (connection.hasSharedMemory() && shareMemory())
        m_image = QImage(static_cast<uchar *>(m_address), size.width(), size.height(),
                         QImage::Format_ARGB32_Premultiplied);
}

FrameBuffer::~FrameBuffer()
{
    if (m_segment)
        xcb_shm_detach(m_connection.xcb(), m_segment);
    if (m_address)
        munmap(m_address, m_byteCount);
    if (m_memory >= 0)
        close(m_memory);
}

bool FrameBuffer::shareMemory()
{
    m_memory = memfd_create("zeigewerk-surface", MFD_CLOEXEC);
    if (m_memory < 0 || ftruncate(m_memory, static_cast<off_t>(m_byteCount)) < 0)
        return false;
    void *address = mmap(nullptr, m_byteCount, PROT_READ | PROT_WRITE, MAP_SHARED, m_memory, 0);
    if (address == MAP_FAILED)
        return false;
    m_address = address;
    const int forServer = fcntl(m_memory, F_DUPFD_CLOEXEC, 0); // xcb closes the descriptor that it sends
    if (forServer < 0)
        return false;
    m_segment = xcb_generate_id(m_connection.xcb());
    const auto cookie = xcb_shm_attach_fd_checked(m_connection.xcb(), m_segment, forServer, 0);
    if (owned(xcb_request_check(m_connection.xcb(), cookie))) {
        m_segment = 0;
        qCDebug(logX11, "the server does not share memory; pictures are sent through the socket");
        return false;
    }
    return true;
}

QImage &FrameBuffer::image()
{
    if (m_image.isNull()) {
        m_image = QImage(m_size, QImage::Format_ARGB32_Premultiplied);
        m_image.fill(Qt::transparent);
    }
    return m_image;
}

void FrameBuffer::put(xcb_window_t window, xcb_gcontext_t context, const QRegion &region)
{
    for (const QRect &rect : region) {
        if (m_segment)
            putShared(window, context, rect);
        else
            putCopied(window, context, rect);
    }
}

void FrameBuffer::putShared(xcb_window_t window, xcb_gcontext_t context, const QRect &rect)
{
    // A completion event would wake the program a second time for each sample of a stroke. It is not needed:
    // a server that reads pixels while they change only shows the new ones sooner.
    constexpr std::uint8_t kSendCompletion = 0;
    xcb_shm_put_image(m_connection.xcb(), window, context, u16(m_size.width()), u16(m_size.height()),
                      u16(rect.x()), u16(rect.y()), u16(rect.width()), u16(rect.height()), s16(rect.x()),
                      s16(rect.y()), Connection::kArgbDepth, XCB_IMAGE_FORMAT_Z_PIXMAP, kSendCompletion,
                      m_segment, 0);
}

void FrameBuffer::putCopied(xcb_window_t window, xcb_gcontext_t context, const QRect &rect)
{
    const QImage part = image().copy(rect);
    const auto requestLimit = static_cast<qsizetype>(xcb_get_maximum_request_length(m_connection.xcb())) * 4;
    constexpr qsizetype kHeader = 64;
    const int rowsAtOnce = std::max(1, static_cast<int>((requestLimit - kHeader) / part.bytesPerLine()));
    for (int row = 0; row < part.height(); row += rowsAtOnce) {
        const int rows = std::min(rowsAtOnce, part.height() - row);
        xcb_put_image(m_connection.xcb(), XCB_IMAGE_FORMAT_Z_PIXMAP, window, context, u16(part.width()),
                      u16(rows), s16(rect.x()), s16(rect.y() + row), 0, Connection::kArgbDepth,
                      static_cast<std::uint32_t>(part.bytesPerLine() * rows), part.constScanLine(row));
    }
}

void FrameBuffer::release()
{
    if (!m_segment) {
        m_image = {};
        return;
    }
    const auto size = static_cast<off_t>(m_byteCount);
    if (fallocate(m_memory, FALLOC_FL_PUNCH_HOLE | FALLOC_FL_KEEP_SIZE, 0, size) < 0)
        m_image.fill(Qt::transparent);
}

} // namespace zeigewerk::platform::x11
