#include "core/app_delegate.h"

#include "clicks/click_ring.h"
#include "commands/status_item.h"
#include "toolbar/toolbar_placement.h"
#include "updater/updater_controller.h"

#include <utility>

namespace zeigewerk {

QPointer<AppDelegate> gApp;

AppDelegate::AppDelegate(platform::Desktop &desktop, UserDefaults &defaults, Clock clock, BundleInfo info)
    : m_desktop(desktop)
    , m_defaults(defaults)
    , m_clock(std::move(clock))
    , m_info(std::move(info))
    , m_autoFadeOn(defaults.boolForKey(kAutoFadeKey).value_or(false))
    , m_darkUI(defaults.boolForKey(kDarkUIKey).value_or(true))
    , m_spotRadius(defaults.doubleForKey(kSpotRadiusKey).value_or(kDefaultSpotRadius))
{
    if (!(m_spotRadius > 0.0))
        m_spotRadius = kDefaultSpotRadius;
}

AppDelegate::~AppDelegate()
{
    // They use the desktop and the clock, which need not outlive the controller.
    ClickRing::dropAll(m_desktop);
}

void AppDelegate::applicationDidFinishLaunching()
{
    gApp = this;
    if (m_info.feedUrl)
        m_updaterController = std::make_unique<UpdaterController>(
            m_desktop, UpdaterController::Setup{.feedUrl = *m_info.feedUrl});
    buildOverlays();
    buildPanel();
    m_statusItem = std::make_unique<StatusItem>(m_desktop, *this);
    rebuildMenu();
    installClickMonitors();
    registerHotKeys();
    connect(&m_desktop, &platform::Desktop::screensChanged, this, &AppDelegate::buildOverlays);
    connect(&m_desktop, &platform::Desktop::featuresChanged, this, &AppDelegate::endUnavailableModes);
    refreshAll();
}

void AppDelegate::buildOverlays()
{
    for (const auto &overlay : m_overlays)
        overlay->window().orderOut();
    // It points to canvases of the old overlays.
    m_shapeOrder.clear();
    m_overlays.clear();
    for (const platform::Screen &screen : m_desktop.screens())
        m_overlays.push_back(std::make_unique<Overlay>(m_desktop, screen, *this));
    if (m_toolbar)
        m_toolbar->placement->place();
    refreshAll();
}

void AppDelegate::setTool(Tool tool)
{
    m_tool = tool;
    refreshToolbar();
}

void AppDelegate::setColor(const Color &color)
{
    m_color = color;
    refreshToolbar();
}

void AppDelegate::setLineWidth(double width)
{
    m_lineWidth = width;
    refreshToolbar();
}

} // namespace zeigewerk
