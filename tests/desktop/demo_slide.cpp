#include "demo_slide.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>

namespace zeigewerk::rig {

namespace {

constexpr QPoint kTitle(160, 190);
constexpr QRect kChart(160, 320, 900, 560);
constexpr QRect kButton(1120, 760, 360, 90);
constexpr std::array<int, 4> kQuarters = {210, 300, 260, 430};
const QColor kPaper(0xFA, 0xFA, 0xF7);
const QColor kText(0x22, 0x2B, 0x3A);
const QColor kBlue(0x2F, 0x6D, 0xB5);

QRect column(int quarter)
{
    const int height = kQuarters.at(static_cast<std::size_t>(quarter));
    return {kChart.x() + 60 + quarter * 220, kChart.bottom() - height, 130, height};
}

void write(QPainter &painter, int size, QPoint baseline, const QString &text)
{
    QFont font = painter.font();
    font.setPixelSize(size);
    painter.setFont(font);
    painter.drawText(baseline, text);
}

void paintChart(QPainter &painter)
{
    painter.setPen(QPen(kText, 2));
    painter.drawLine(kChart.bottomLeft(), kChart.bottomRight());
    for (int quarter = 0; quarter < 4; ++quarter) {
        painter.fillRect(column(quarter), quarter == 3 ? kBlue : kBlue.lighter(150));
        write(painter, 30, {column(quarter).x() + 40, kChart.bottom() + 42},
              QStringLiteral("Q%1").arg(quarter + 1));
    }
}

void paintButton(QPainter &painter, bool isPressed)
{
    QPainterPath outline;
    outline.addRoundedRect(kButton, 14, 14);
    painter.fillPath(outline, isPressed ? QColor(0x2E, 0x8B, 0x57) : QColor(0xD8, 0xDE, 0xE6));
    painter.setPen(isPressed ? QColor(Qt::white) : kText);
    write(painter, 34, kButton.topLeft() + QPoint(46, 58),
          isPressed ? QStringLiteral("✓ geklickt") : QStringLiteral("Details zeigen"));
}

QImage paintedSlide(QSize size, bool isPressed)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(kPaper);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(kText);
    write(painter, 76, kTitle, QStringLiteral("Umsatz nach Quartal"));
    painter.setPen(kText);
    const std::array lines = {QStringLiteral("Rekord im Herbst"), QStringLiteral("Zwei neue Standorte"),
                              QStringLiteral("Ausblick: plus 12 %")};
    int baseline = 420;
    for (const QString &line : lines) {
        write(painter, 34, {1110, baseline}, QStringLiteral("•  ") + line);
        baseline += 90;
    }
    paintChart(painter);
    paintButton(painter, isPressed);
    return picture;
}

} // namespace

QPoint slideTitleLeft()
{
    return kTitle - QPoint(0, 40);
}

QPoint slideChartTop()
{
    return column(3).center() - QPoint(0, 60);
}

QPoint slideButton()
{
    return kButton.center();
}

DemoSlide::DemoSlide(DesktopSession &session, const QRect &rect)
    : m_session(session)
    , m_rect(rect)
    , m_window(session, rect, kPaper)
{
}

bool DemoSlide::present()
{
    setPicture(paintedSlide(m_rect.size(), false));
    return m_window.takeFocus() &&
           eventually([&] { return m_session.screenshot().pixel(column(3).center()) == kBlue; });
}

bool DemoSlide::isButtonPressed()
{
    const QList<QPoint> presses = m_window.presses();
    if (!std::any_of(presses.begin(), presses.end(), [](QPoint place) { return kButton.contains(place); }))
        return false;
    setPicture(paintedSlide(m_rect.size(), true));
    return true;
}

void DemoSlide::setPicture(const QImage &picture)
{
    // Set as the window's background, so that the server repaints it without us.
    Client &client = m_session.client();
    xcb_connection_t *xcb = client.connection();
    const xcb_pixmap_t pixmap = xcb_generate_id(xcb);
    const xcb_gcontext_t context = xcb_generate_id(xcb);
    const auto width = static_cast<std::uint16_t>(picture.width());
    const std::uint8_t depth = client.screen().root_depth;
    xcb_create_pixmap(xcb, depth, pixmap, m_window.id(), width, static_cast<std::uint16_t>(picture.height()));
    xcb_create_gc(xcb, context, pixmap, 0, nullptr);
    constexpr int kRowsAtOnce = 100; // small enough for any server's maximum request size
    for (int row = 0; row < picture.height(); row += kRowsAtOnce) {
        const int rows = std::min(kRowsAtOnce, picture.height() - row);
        xcb_put_image(xcb, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, width,
                      static_cast<std::uint16_t>(rows), 0, static_cast<std::int16_t>(row), 0, depth,
                      static_cast<std::uint32_t>(picture.bytesPerLine() * rows), picture.constScanLine(row));
    }
    xcb_change_window_attributes(xcb, m_window.id(), XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(xcb, 0, m_window.id(), 0, 0, 0, 0);
    xcb_free_gc(xcb, context);
    xcb_free_pixmap(xcb, pixmap);
    client.roundTrip();
}

} // namespace zeigewerk::rig
