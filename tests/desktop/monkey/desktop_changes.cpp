#include "desktop_changes.h"

#include "text_of.h"

#include <array>

namespace zeigewerk::rig {

namespace {

constexpr int kOutputs = 3;
/// Beside, below and over one another, with gaps, and of several shapes.
constexpr std::array kScreens = {QRect(0, 0, 1280, 1024),     QRect(1280, 0, 1600, 900),
                                 QRect(0, 0, 1920, 1080),     QRect(0, 1080, 800, 600),
                                 QRect(1280, 200, 720, 1280), QRect(1500, 0, 1280, 720)};

} // namespace

DesktopChanges::DesktopChanges(DesktopSession &session)
    : m_session(session)
    , m_firstScreens(session.display().screens())
    , m_hadCompositor(session.compositorProcessId() != 0)
    , m_tray(session)
    , m_embeddingTray(session, {600, 0})
{
    measureDesktop();
    m_tray.start();
}

void DesktopChanges::measureDesktop()
{
    QRect around;
    for (const QRect &screen : m_session.display().screens())
        around |= screen;
    // With every screen off the root stays, and the pointer with it.
    if (!around.isEmpty())
        m_desktop = around;
}

QString DesktopChanges::changeScreens(RandomChoice &chance)
{
    const int output = chance.below(kOutputs);
    const bool isLit = m_session.display().screens().contains(output);
    if (isLit && chance.oneIn(2)) {
        m_session.display().unplug(output);
        measureDesktop();
        return QStringLiteral("unplugs %1").arg(output);
    }
    const QRect screen = chance.of(kScreens);
    m_session.display().plug(output, screen);
    measureDesktop();
    return QStringLiteral("%1 is %2").arg(output).arg(textOf(screen));
}

QString DesktopChanges::toggleCompositor()
{
    if (!m_hadCompositor)
        return QStringLiteral("nothing, as there is none");
    if (m_session.compositorProcessId() != 0) {
        m_session.stopCompositor();
        return QStringLiteral("ends");
    }
    m_session.launchCompositor();
    m_mayCompositorBeWrong = true;
    return QStringLiteral("starts");
}

QString DesktopChanges::restartWindowManager()
{
    if (m_session.windowManagerProcessId() == 0)
        return QStringLiteral("nothing, as there is none");
    m_session.restartWindowManager();
    return QStringLiteral("starts again");
}

QString DesktopChanges::toggleTray()
{
    if (m_isTrayThere)
        m_tray.stop();
    else
        m_tray.start();
    m_isTrayThere = !m_isTrayThere;
    return m_isTrayThere ? QStringLiteral("comes") : QStringLiteral("goes");
}

QString DesktopChanges::toggleEmbeddingTray()
{
    if (m_isEmbeddingTrayThere)
        m_embeddingTray.stop();
    else
        m_embeddingTray.start();
    m_isEmbeddingTrayThere = !m_isEmbeddingTrayThere;
    return m_isEmbeddingTrayThere ? QStringLiteral("comes") : QStringLiteral("goes");
}

QString DesktopChanges::switchKeyboardMap(RandomChoice &chance)
{
    const std::array maps = {QStringLiteral("us"), QStringLiteral("de"), QStringLiteral("fr"),
                             QStringLiteral("us(dvorak)"), QStringLiteral("ru")};
    const QString &map = chance.of(maps);
    m_session.display().setKeyboardMap(map);
    return map;
}

QString DesktopChanges::useTray(RandomChoice &chance)
{
    const QList<TrayItem> items = m_tray.host.items();
    if (items.isEmpty())
        return QStringLiteral("nothing, as there is no item");
    const QPoint place = m_session.pointer().location();
    switch (chance.below(4)) {
    case 0:
        m_tray.host.activate(items.first(), place);
        return QStringLiteral("a click on the item");
    case 1:
        m_tray.host.openContextMenu(items.first(), place);
        return QStringLiteral("a right click on the item");
    default:
        return clickMenu(chance, items.first());
    }
}

QString DesktopChanges::clickMenu(RandomChoice &chance, const TrayItem &item)
{
    const QList<TrayMenuItem> menu = m_tray.host.menu(item);
    if (menu.isEmpty())
        return QStringLiteral("nothing, as the menu is empty");
    const TrayMenuItem &entry = menu.at(chance.below(static_cast<int>(menu.size())));
    // Not that often: each end costs a start.
    if (entry.label == label::kQuit && !chance.oneIn(4))
        return QStringLiteral("thinks better of quitting");
    m_tray.host.click(item, entry.id);
    return entry.label;
}

void DesktopChanges::bringCompositorBack()
{
    if (!m_hadCompositor)
        return;
    const bool isRunning =
        m_session.compositorProcessId() != 0 && eventually([&] { return m_session.isComposited(); });
    if (isRunning && !m_mayCompositorBeWrong)
        return;
    m_session.stopCompositor();
    m_session.launchCompositor();
    m_mayCompositorBeWrong = false;
}

void DesktopChanges::tidyUp()
{
    const QMap<int, QRect> screens = m_session.display().screens();
    for (auto it = m_firstScreens.cbegin(); it != m_firstScreens.cend(); ++it) {
        if (screens.value(it.key()) != *it)
            m_session.display().plug(it.key(), *it);
    }
    for (auto it = screens.cbegin(); it != screens.cend(); ++it) {
        if (!m_firstScreens.contains(it.key()))
            m_session.display().unplug(it.key());
    }
    measureDesktop();
    bringCompositorBack();
    if (m_isEmbeddingTrayThere)
        toggleEmbeddingTray();
    if (!m_isTrayThere)
        toggleTray();
    m_session.display().setKeyboardMap(QStringLiteral("us"));
}

} // namespace zeigewerk::rig
