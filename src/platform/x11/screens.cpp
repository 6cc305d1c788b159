#include "platform/x11/screens.h"

#include <QGuiApplication>
#include <QScreen>

#include <xcb/randr.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace zeigewerk::platform::x11 {

using namespace std::chrono_literals;

namespace {

/// Far longer than Qt needs to notice a change. Only reached if Qt makes no screen for a monitor.
constexpr auto kMaxWaitForQt = 250ms;

QScreen *qtScreen(const QString &name)
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    const auto found =
        std::find_if(screens.begin(), screens.end(), [&](QScreen *screen) { return screen->name() == name; });
    return found == screens.end() ? nullptr : *found;
}

double scaleOf(const QString &name)
{
    const QScreen *screen = qtScreen(name);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    return screen ? screen->devicePixelRatio() : 1.0;
}

/// In Qt a screen's corner is in pixels, and its size is in points.
bool isKnownToQt(const Screen &screen)
{
    const QScreen *known = qtScreen(screen.name);
    if (!known || known->geometry().topLeft() != screen.nativeFrame.topLeft())
        return false;
    const QSizeF difference = QSizeF(known->size()) - QSizeF(screen.nativeFrame.size()) / screen.scale;
    // Qt rounds to whole points.
    return std::abs(difference.width()) <= 1.0 && std::abs(difference.height()) <= 1.0;
}

/// Qt reads each changed screen separately, on its own connection. Until it has read all of them, it would
/// place windows by old positions and scales.
bool areKnownToQt(const std::vector<Screen> &screens)
{
    // While all outputs are off, Qt keeps a placeholder screen.
    const auto count = static_cast<std::size_t>(QGuiApplication::screens().size());
    return screens.empty() ||
           (screens.size() == count && std::all_of(screens.begin(), screens.end(), &isKnownToQt));
}

/// Ignores the names: of two mirrored outputs, the one that named the screen may be unplugged.
bool haveSameGeometry(const ScreenLayout &a, const ScreenLayout &b)
{
    return std::equal(a.screens().begin(), a.screens().end(), b.screens().begin(), b.screens().end(),
                      [](const Screen &one, const Screen &other) {
                          return one.nativeFrame == other.nativeFrame && one.scale == other.scale;
                      });
}

} // namespace

Screens::Screens(Connection &connection)
    : m_connection(connection)
    , m_layout(read())
{
    m_readAgain.setSingleShot(true);
    m_readAgain.callOnTimeout(this, &Screens::readAgain);

    // Qt sends no signal when the last output is turned off, so listen to the server as well.
    m_firstEvent = xcb_get_extension_data(connection.xcb(), &xcb_randr_id)->first_event;
    xcb_randr_select_input(connection.xcb(), connection.root(),
                           XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                               XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
    for (QScreen *screen : QGuiApplication::screens())
        watch(screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &Screens::watch);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &Screens::changeAnnounced);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &Screens::changeAnnounced);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &Screens::changeAnnounced);
}

void Screens::watch(QScreen *screen)
{
    connect(screen, &QScreen::geometryChanged, this, &Screens::changeAnnounced);
    connect(screen, &QScreen::physicalDotsPerInchChanged, this, &Screens::changeAnnounced);
    connect(screen, &QScreen::logicalDotsPerInchChanged, this, &Screens::changeAnnounced);
}

bool Screens::isChangeEvent(std::uint8_t eventType) const
{
    return eventType == m_firstEvent + XCB_RANDR_SCREEN_CHANGE_NOTIFY ||
           eventType == m_firstEvent + XCB_RANDR_NOTIFY;
}

void Screens::changeAnnounced()
{
    m_readAgain.start(0ms);
}

void Screens::readAgain()
{
    const std::vector<Screen> screens = read();
    if (!areKnownToQt(screens)) {
        if (!m_waitForQt)
            m_waitForQt.emplace(kMaxWaitForQt);
        if (!m_waitForQt->hasExpired()) {
            m_readAgain.start(static_cast<int>(m_waitForQt->remainingTime()));
            return;
        }
    }
    m_waitForQt.reset();
    const ScreenLayout layout(screens);
    const bool isChange = !haveSameGeometry(layout, m_layout);
    m_layout = layout;
    if (isChange)
        Q_EMIT changed();
}

std::vector<Screen> Screens::read()
{
    constexpr std::uint8_t kActiveOnly = 1;
    const auto cookie = xcb_randr_get_monitors(m_connection.xcb(), m_connection.root(), kActiveOnly);
    const auto reply = owned(xcb_randr_get_monitors_reply(m_connection.xcb(), cookie, nullptr));
    std::vector<Screen> screens;
    if (!reply)
        return screens;
    for (auto monitor = xcb_randr_get_monitors_monitors_iterator(reply.get()); monitor.rem;
         xcb_randr_monitor_info_next(&monitor)) {
        const xcb_randr_monitor_info_t &info = *monitor.data;
        const QString name = atomName(info.name);
        const Screen screen{.name = name,
                            .nativeFrame = {info.x, info.y, info.width, info.height},
                            .scale = scaleOf(name),
                            .frame = {}};
        screens.insert(info.primary ? screens.begin() : screens.end(), screen);
    }
    return screens;
}

QString Screens::atomName(xcb_atom_t atom)
{
    const auto cookie = xcb_get_atom_name(m_connection.xcb(), atom);
    const auto reply = owned(xcb_get_atom_name_reply(m_connection.xcb(), cookie, nullptr));
    return reply ? QString::fromUtf8(xcb_get_atom_name_name(reply.get()),
                                     xcb_get_atom_name_name_length(reply.get()))
                 : QString();
}

} // namespace zeigewerk::platform::x11
