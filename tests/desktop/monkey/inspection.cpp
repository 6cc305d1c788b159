#include "inspection.h"

#include "rig/grab_probe.h"
#include "text_of.h"

#include <QRegion>

#include <array>

namespace zeigewerk::rig {

namespace {

const std::array kSlideColors = {QColor(0x20, 0x60, 0xA0), QColor(0x60, 0x20, 0x40),
                                 QColor(0x40, 0x70, 0x20)};
constexpr std::array kWatchedKeys = {Key::D, Key::S, Key::W, Key::K, Key::T, Key::P};

QString nameOf(const WindowInfo &window)
{
    return QStringLiteral("0x%1, ").arg(window.id, 0, 16) + textOf(window.geometry);
}

QStringList complainUnless(bool holds, const QString &complaint)
{
    return holds ? QStringList() : QStringList(complaint);
}

} // namespace

Inspection::Inspection(DesktopSession &session, Controls &controls)
    : m_session(session)
    , m_controls(controls)
{
    showSlides();
}

void Inspection::showSlides()
{
    std::vector<std::unique_ptr<WindowBeneath>> slides;
    for (const QRect &screen : m_session.display().screens())
        slides.push_back(std::make_unique<WindowBeneath>(m_session, screen, kSlideColors[slides.size()]));
    m_slides = std::move(slides);
}

QStringList Inspection::inspectProgram(const Program &program, RandomChoice &random)
{
    QStringList complaints = inspectWindows(program);
    complaints += inspectFocus(program);
    complaints += inspectGrabs();
    // The following inspections rely on these.
    if (!complaints.isEmpty())
        return complaints;
    showSlides();
    complaints += inspectScreen(toolbarOf(m_session, program));
    complaints += inspectInput(program, random);
    complaints += inspectDrawing(program);
    complaints += inspectHiddenToolbar(program);
    return complaints;
}

QStringList Inspection::inspectWindows(const Program &program)
{
    QList<WindowInfo> left;
    const bool isClear = eventually([&] {
        const auto toolbar = toolbarOf(m_session, program);
        left = shownWindowsOf(m_session, program);
        left.removeIf([&](const WindowInfo &window) { return toolbar && window.id == toolbar->id; });
        return left.isEmpty();
    });
    QStringList complaints;
    for (const WindowInfo &window : std::as_const(left))
        complaints += QStringLiteral("a window of the program is left on the screen: ") + nameOf(window);
    return isClear ? QStringList() : complaints;
}

bool Inspection::belongsToProgram(xcb_window_t window, const Program &program)
{
    // "None" and "pointer root" are not windows.
    return window > XCB_INPUT_FOCUS_POINTER_ROOT &&
           m_session.client().isOfProcess(window, program.processId());
}

QStringList Inspection::inspectFocus(const Program &program)
{
    // When the focused window goes away, the server leaves the focus unset; only a window manager gives it to
    // the next window.
    const bool hasManager = m_session.windowManagerProcessId() != 0;
    const auto isElsewhere = [&] {
        const xcb_window_t focus = m_session.client().inputFocus();
        return !belongsToProgram(focus, program) && (!hasManager || focus != XCB_INPUT_FOCUS_NONE);
    };
    return complainUnless(eventually(isElsewhere),
                          QStringLiteral("the focus is on a window of the program, or unset"));
}

QStringList Inspection::inspectGrabs()
{
    return complainUnless(eventually([&] { return canGrabKeyboard(m_session); }),
                          QStringLiteral("the keyboard is grabbed")) +
           complainUnless(eventually([&] { return canGrabPointer(m_session); }),
                          QStringLiteral("the pointer is grabbed")) +
           complainUnless(eventually([&] { return !isGrabbedByAnother(m_session, {}, Key::Escape); }),
                          QStringLiteral("Esc is grabbed"));
}

QStringList Inspection::unexpectedPixels(const std::optional<WindowInfo> &toolbar)
{
    QStringList unexpected;
    const Screenshot picture = m_session.screenshot();
    for (std::size_t i = 0; i < m_slides.size(); ++i) {
        const auto slide = m_session.client().window(m_slides[i]->id());
        const QRect rect = slide ? slide->geometry : QRect();
        for (const QRect &part : QRegion(rect) - (toolbar ? toolbar->geometry : QRect())) {
            if (!picture.isFilled(kSlideColors[i], part))
                unexpected +=
                    QStringLiteral("other pixels than %1 in ").arg(kSlideColors[i].name()) + textOf(part);
        }
    }
    return unexpected;
}

QStringList Inspection::inspectScreen(const std::optional<WindowInfo> &toolbar)
{
    QStringList unexpected;
    const bool isExact = eventually([&] { return (unexpected = unexpectedPixels(toolbar)).isEmpty(); });
    return complainUnless(isExact, QStringLiteral("the screen does not show just the windows beneath: ") +
                                       unexpected.join(QStringLiteral("; ")));
}

QStringList Inspection::inspectInput(const Program &program, RandomChoice &random)
{
    QStringList complaints;
    const auto toolbar = toolbarOf(m_session, program);
    for (const auto &slide : m_slides) {
        const QRect rect = m_session.client().window(slide->id()).value_or(WindowInfo()).geometry;
        QPoint place = random.in(rect);
        while (toolbar && toolbar->geometry.contains(place))
            place = random.in(rect);
        slide->forget();
        m_session.pointer().clickAt(place);
        complaints += complainUnless(
            eventually([&] { return slide->presses() == QList<QPoint>{place}; }),
            QStringLiteral("a click at %1 does not reach the window beneath").arg(textOf(place)));
    }
    // The window manager focuses the window that was clicked last, which may take a moment.
    if (m_session.windowManagerProcessId() != 0)
        eventually([&] { return m_slides.back()->hasFocus(); });
    const bool hasFocus = m_slides.front()->takeFocus();
    m_session.keyboard().tap(Key::A);
    complaints += complainUnless(
        hasFocus && eventually([&] { return m_slides.front()->pressedKeys().contains(Key::A); }),
        QStringLiteral("a key does not reach the window beneath"));
    return complaints;
}

QStringList Inspection::inspectDrawing(const Program &program)
{
    WindowBeneath &focused = *m_slides.front();
    m_session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::D);
    if (!eventually([&] { return belongsToProgram(m_session.client().inputFocus(), program); }))
        return {QStringLiteral("drawing does not start")};
    m_session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::D);
    QStringList complaints = complainUnless(eventually([&] { return focused.hasFocus(); }),
                                            QStringLiteral("the keyboard does not return after drawing"));
    complaints += inspectWindows(program);
    complaints += inspectScreen(toolbarOf(m_session, program));
    return complaints;
}

QStringList Inspection::inspectHiddenToolbar(const Program &program)
{
    const auto press = [&](bool isExpected) {
        m_session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::T);
        return complainUnless(
            eventually([&] { return toolbarOf(m_session, program).has_value() == isExpected; }),
            isExpected ? QStringLiteral("the toolbar does not show")
                       : QStringLiteral("the toolbar does not hide"));
    };
    QStringList complaints;
    const bool wasShown = toolbarOf(m_session, program).has_value();
    if (wasShown != m_controls.isToolbarOn())
        complaints += QStringLiteral("the menu and the screen disagree about the toolbar");
    if (wasShown)
        complaints += press(false);
    complaints += inspectScreen(std::nullopt);
    complaints += press(true);
    complaints += inspectScreen(toolbarOf(m_session, program));
    return complaints;
}

QStringList Inspection::inspectDesktopWithoutProgram()
{
    QStringList complaints = inspectGrabs();
    showSlides();
    complaints += inspectScreen(std::nullopt);
    for (const Key key : kWatchedKeys) {
        complaints +=
            complainUnless(eventually([&] {
                               return !isGrabbedByAnother(m_session, {Key::Ctrl, Key::Alt}, key);
                           }),
                           QStringLiteral("a hot key is still grabbed: %1").arg(static_cast<int>(key)));
    }
    const bool hasManager = m_session.windowManagerProcessId() != 0;
    complaints += complainUnless(!hasManager || eventually([&] { return m_slides.front()->takeFocus(); }),
                                 QStringLiteral("the window beneath cannot get the keyboard"));
    return complaints;
}

} // namespace zeigewerk::rig
