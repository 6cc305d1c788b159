#include "pixels/canvas.h"

#include "pixels/picture.h"
#include "platform/paint_damage.h"

namespace zeigewerk::test {

using namespace std::chrono_literals;
using platform::Damage;

namespace {

std::vector<platform::Screen> oneScreen(QSize pixels, double scale)
{
    return {{.name = QStringLiteral("A"),
             .nativeFrame = QRect(QPoint(0, 0), pixels),
             .scale = scale,
             .frame = {}}};
}

} // namespace

Canvas::Canvas(QSize pixels, double scale, Settings settings)
    : m_scale(scale)
    , m_now(1'000'000s)
    , m_desktop(oneScreen(pixels, scale))
    , m_defaults(m_home.filePath(QStringLiteral("settings.ini")))
{
    m_defaults.setBool(kAutoFadeKey, settings.autoFade);
    m_defaults.setDouble(kSpotRadiusKey, settings.spotRadius);
    m_app = std::make_unique<AppDelegate>(m_desktop, m_defaults, [this] { return m_now; });
    m_app->applicationDidFinishLaunching();
}

platform::RecordingSurface &Canvas::surface()
{
    return *m_desktop.surfaces(platform::SurfaceRole::Overlay).front();
}

void Canvas::passTime(double seconds)
{
    m_now += std::chrono::duration_cast<WallClock::duration>(std::chrono::duration<double>(seconds));
}

void Canvas::movePointer(QPointF position)
{
    m_desktop.setMouseLocation(position);
    m_app->followPointer();
}

void Canvas::drag(const Shape &shape)
{
    m_app->setTool(shape.tool);
    m_app->setColor(shape.color);
    m_app->setLineWidth(shape.width);
    if (shape.tool.isFreehand() && !shape.points.empty()) {
        view().mouseDown({shape.points.front(), {}});
        for (std::size_t i = 1; i < shape.points.size(); ++i)
            view().mouseDragged({shape.points[i], {}});
        return;
    }
    view().mouseDown({shape.start, {}});
    view().mouseDragged({shape.end, {}});
}

void Canvas::draw(const Shape &shape)
{
    drag(shape);
    view().mouseUp({shape.end, {}});
}

bool Canvas::display()
{
    const qint64 before = surface().paintedPixels();
    // As a timer's tick does: nothing else reports changes that only time makes.
    view().modesChanged();
    const bool painted = surface().display();
    m_lastPaintedPixels = surface().paintedPixels() - before;
    return painted;
}

QColor Canvas::at(QPointF viewPoint)
{
    return colorAt(image(), m_scale, viewPoint);
}

QImage Canvas::wholePicture()
{
    QImage whole(image().size(), image().format());
    whole.fill(Qt::transparent);
    platform::paintDamage(whole, m_scale, Damage::everything(), view());
    return whole;
}

} // namespace zeigewerk::test
