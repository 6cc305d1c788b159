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

QStringList unless(bool holds, const QString &complaint)
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

QStringList Inspection::ofProgram(const Program &program, RandomChoice &chance)
{
    QStringList complaints = ofWindows(program);
    complaints += ofFocus(program);
    complaints += ofGrabs();
    // What follows takes for granted that this is right.
    if (!complaints.isEmpty())
        return complaints;
    showSlides();
    complaints += ofPicture(toolbarOf(m_session, program));
    complaints += ofInput(program, chance);
    complaints += ofDrawing(program);
    complaints += ofHiddenToolbar(program);
    return complaints;
}

QStringList Inspection::ofWindows(const Program &program)
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

bool Inspection::isOurs(xcb_window_t window, const Program &program)
{
    // None and the root are no windows of anybody.
    return window > XCB_INPUT_FOCUS_POINTER_ROOT &&
           m_session.client().isOfProcess(window, program.processId());
}

QStringList Inspection::ofFocus(const Program &program)
{
    // The server gives the keyboard to nobody when its owner goes; only a window manager gives it to the
    // next.
    const bool hasManager = m_session.windowManagerProcessId() != 0;
    const auto isElsewhere = [&] {
        const xcb_window_t focus = m_session.client().inputFocus();
        return !isOurs(focus, program) && (!hasManager || focus != XCB_INPUT_FOCUS_NONE);
    };
    return unless(eventually(isElsewhere),
                  QStringLiteral("the keyboard is with a window of the program, or with none"));
}

QStringList Inspection::ofGrabs()
{
    return unless(eventually([&] { return canGrabKeyboard(m_session); }),
                  QStringLiteral("the keyboard is grabbed")) +
           unless(eventually([&] { return canGrabPointer(m_session); }),
                  QStringLiteral("the pointer is grabbed")) +
           unless(eventually([&] { return !isGrabbedByAnother(m_session, {}, Key::Escape); }),
                  QStringLiteral("Esc is grabbed"));
}

QStringList Inspection::strangePixels(const std::optional<WindowInfo> &toolbar)
{
    QStringList strange;
    const Screenshot picture = m_session.screenshot();
    for (std::size_t i = 0; i < m_slides.size(); ++i) {
        const auto slide = m_session.client().window(m_slides[i]->id());
        const QRect rect = slide ? slide->geometry : QRect();
        for (const QRect &part : QRegion(rect) - (toolbar ? toolbar->geometry : QRect())) {
            if (!picture.isFilled(kSlideColors[i], part))
                strange += QStringLiteral("not only %1 in ").arg(kSlideColors[i].name()) + textOf(part);
        }
    }
    return strange;
}

QStringList Inspection::ofPicture(const std::optional<WindowInfo> &toolbar)
{
    QStringList strange;
    const bool isExact = eventually([&] { return (strange = strangePixels(toolbar)).isEmpty(); });
    return unless(isExact, QStringLiteral("the screen shows something else than the windows beneath: ") +
                               strange.join(QStringLiteral("; ")));
}

QStringList Inspection::ofInput(const Program &program, RandomChoice &chance)
{
    QStringList complaints;
    const auto toolbar = toolbarOf(m_session, program);
    for (const auto &slide : m_slides) {
        const QRect rect = m_session.client().window(slide->id()).value_or(WindowInfo()).geometry;
        QPoint place = chance.in(rect);
        while (toolbar && toolbar->geometry.contains(place))
            place = chance.in(rect);
        slide->forget();
        m_session.pointer().clickAt(place);
        complaints +=
            unless(eventually([&] { return slide->presses() == QList<QPoint>{place}; }),
                   QStringLiteral("a click at %1 does not reach the window beneath").arg(textOf(place)));
    }
    // The window manager gives the keyboard to what was clicked on last, and may take its time.
    if (m_session.windowManagerProcessId() != 0)
        eventually([&] { return m_slides.back()->hasFocus(); });
    const bool hasFocus = m_slides.front()->takeFocus();
    m_session.keyboard().tap(Key::A);
    complaints +=
        unless(hasFocus && eventually([&] { return m_slides.front()->pressedKeys().contains(Key::A); }),
               QStringLiteral("a key does not reach the window beneath"));
    return complaints;
}

QStringList Inspection::ofDrawing(const Program &program)
{
    WindowBeneath &before = *m_slides.front();
    m_session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::D);
    if (!eventually([&] { return isOurs(m_session.client().inputFocus(), program); }))
        return {QStringLiteral("drawing does not begin")};
    m_session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::D);
    QStringList complaints = unless(eventually([&] { return before.hasFocus(); }),
                                    QStringLiteral("after drawing the keyboard is not where it was"));
    complaints += ofWindows(program);
    complaints += ofPicture(toolbarOf(m_session, program));
    return complaints;
}

QStringList Inspection::ofHiddenToolbar(const Program &program)
{
    const auto press = [&](bool isShownThen) {
        m_session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::T);
        return unless(eventually([&] { return toolbarOf(m_session, program).has_value() == isShownThen; }),
                      isShownThen ? QStringLiteral("the toolbar does not show")
                                  : QStringLiteral("the toolbar does not hide"));
    };
    QStringList complaints;
    const bool wasShown = toolbarOf(m_session, program).has_value();
    if (wasShown != m_controls.isToolbarOn())
        complaints += QStringLiteral("the menu and the screen do not agree about the toolbar");
    if (wasShown)
        complaints += press(false);
    complaints += ofPicture(std::nullopt);
    complaints += press(true);
    complaints += ofPicture(toolbarOf(m_session, program));
    return complaints;
}

QStringList Inspection::ofDesktopWithout()
{
    QStringList complaints = ofGrabs();
    showSlides();
    complaints += ofPicture(std::nullopt);
    for (const Key key : kWatchedKeys) {
        complaints += unless(eventually([&] {
                                 return !isGrabbedByAnother(m_session, {Key::Ctrl, Key::Alt}, key);
                             }),
                             QStringLiteral("a hot key is still grabbed: %1").arg(static_cast<int>(key)));
    }
    const bool hasManager = m_session.windowManagerProcessId() != 0;
    complaints += unless(!hasManager || eventually([&] { return m_slides.front()->takeFocus(); }),
                         QStringLiteral("the window beneath cannot have the keyboard"));
    return complaints;
}

} // namespace zeigewerk::rig
