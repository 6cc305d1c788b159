#include "desktop_changes.h"

#include "text_of.h"

#include <array>

namespace zeigewerk::rig {

namespace {

constexpr int kOutputs = 3;
/// Beside, below and on top of one another, with gaps, and in several aspect ratios.
constexpr std::array kScreens = {QRect(0, 0, 1280, 1024),     QRect(1280, 0, 1600, 900),
                                 QRect(0, 0, 1920, 1080),     QRect(0, 1080, 800, 600),
                                 QRect(1280, 200, 720, 1280), QRect(1500, 0, 1280, 720)};

} // namespace

DesktopChanges::DesktopChanges(DesktopSession &session)
    : m_session(session)
    , m_initialScreens(session.display().screens())
    , m_hadCompositor(session.compositorProcessId() != 0)
    , m_tray(session)
    , m_embeddingTray(session, {600, 0})
{
    updateBounds();
    m_tray.start();
}

void DesktopChanges::updateBounds()
{
    QRect bounds;
    for (const QRect &screen : m_session.display().screens())
        bounds |= screen;
    // With every output off the root keeps its size, and the pointer stays.
    if (!bounds.isEmpty())
        m_bounds = bounds;
}

QString DesktopChanges::changeScreens(RandomChoice &random)
{
    const int output = random.below(kOutputs);
    const bool isLit = m_session.display().screens().contains(output);
    if (isLit && random.oneIn(2)) {
        m_session.display().unplug(output);
        updateBounds();
        return QStringLiteral("unplug %1").arg(output);
    }
    const QRect screen = random.of(kScreens);
    m_session.display().plug(output, screen);
    updateBounds();
    return QStringLiteral("plug %1 at %2").arg(output).arg(textOf(screen));
}

QString DesktopChanges::toggleCompositor()
{
    if (!m_hadCompositor)
        return QStringLiteral("skipped: no compositor");
    if (m_session.compositorProcessId() != 0) {
        m_session.stopCompositor();
        return QStringLiteral("stop");
    }
    m_session.launchCompositor();
    m_mayCompositorHaveWrongSize = true;
    return QStringLiteral("start");
}

QString DesktopChanges::restartWindowManager()
{
    if (m_session.windowManagerProcessId() == 0)
        return QStringLiteral("skipped: no window manager");
    m_session.restartWindowManager();
    return {};
}

QString DesktopChanges::toggleTray()
{
    if (m_hasTray)
        m_tray.stop();
    else
        m_tray.start();
    m_hasTray = !m_hasTray;
    return m_hasTray ? QStringLiteral("start") : QStringLiteral("stop");
}

QString DesktopChanges::toggleEmbeddingTray()
{
    if (m_hasEmbeddingTray)
        m_embeddingTray.stop();
    else
        m_embeddingTray.start();
    m_hasEmbeddingTray = !m_hasEmbeddingTray;
    return m_hasEmbeddingTray ? QStringLiteral("start") : QStringLiteral("stop");
}

QString DesktopChanges::switchKeyboardMap(RandomChoice &random)
{
    const std::array maps = {QStringLiteral("us"), QStringLiteral("de"), QStringLiteral("fr"),
                             QStringLiteral("us(dvorak)"), QStringLiteral("ru")};
    const QString &map = random.of(maps);
    m_session.display().setKeyboardMap(map);
    return map;
}

QString DesktopChanges::useTray(RandomChoice &random)
{
    const QList<TrayItem> items = m_tray.host.items();
    if (items.isEmpty())
        return QStringLiteral("skipped: no item");
    const QPoint place = m_session.pointer().location();
    switch (random.below(4)) {
    case 0:
        m_tray.host.activate(items.first(), place);
        return QStringLiteral("click the item");
    case 1:
        m_tray.host.openContextMenu(items.first(), place);
        return QStringLiteral("right-click the item");
    default:
        return clickMenu(random, items.first());
    }
}

QString DesktopChanges::clickMenu(RandomChoice &random, const TrayItem &item)
{
    const QList<TrayMenuItem> menu = m_tray.host.menu(item);
    if (menu.isEmpty())
        return QStringLiteral("skipped: the menu is empty");
    const TrayMenuItem &entry = menu.at(random.below(static_cast<int>(menu.size())));
    // Rarely, because every exit costs a start.
    if (entry.label == label::kQuit && !random.oneIn(4))
        return QStringLiteral("skipped: the Quit entry");
    m_tray.host.click(item, entry.id);
    return entry.label;
}

void DesktopChanges::restoreCompositor()
{
    if (!m_hadCompositor)
        return;
    const bool isRunning =
        m_session.compositorProcessId() != 0 && eventually([&] { return m_session.isComposited(); });
    if (isRunning && !m_mayCompositorHaveWrongSize)
        return;
    m_session.stopCompositor();
    m_session.launchCompositor();
    m_mayCompositorHaveWrongSize = false;
}

void DesktopChanges::restore()
{
    const QMap<int, QRect> screens = m_session.display().screens();
    for (auto it = m_initialScreens.cbegin(); it != m_initialScreens.cend(); ++it) {
        if (screens.value(it.key()) != *it)
            m_session.display().plug(it.key(), *it);
    }
    for (auto it = screens.cbegin(); it != screens.cend(); ++it) {
        if (!m_initialScreens.contains(it.key()))
            m_session.display().unplug(it.key());
    }
    updateBounds();
    restoreCompositor();
    if (m_hasEmbeddingTray)
        toggleEmbeddingTray();
    if (!m_hasTray)
        toggleTray();
    m_session.display().setKeyboardMap(QStringLiteral("us"));
}

} // namespace zeigewerk::rig
