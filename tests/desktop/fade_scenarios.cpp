#include "presentation.h"
#include "registered_test.h"
#include "settings_file.h"

#include <algorithm>

using namespace zeigewerk::rig;
using namespace std::chrono_literals;

namespace {

const QRect kSmallScreen(0, 0, 1280, 800);
const QPoint kStroke(300, 300);
const QColor kGround(0x20, 0x60, 0xA0);

/// What a program on a busy machine may lag behind the clock, in seconds.
constexpr double kLag = 1.0;
/// A step of opacity that a screenshot cannot tell.
constexpr double kUnseenStep = 0.02;

/// How opaque a stroke of that age in seconds is.
double opacityAt(double age)
{
    return std::clamp((4.8 - age) / 0.8, 0.0, 1.0);
}

/// One look at the stroke.
struct StrokeLook
{
    /// Between these the stroke's age was at that time, in seconds. What is on the screen may be older, not
    /// newer, so the stroke is at least as opaque as the older age says.
    double youngest = 0.0;
    double oldest = 0.0;
    double opacity = 0.0;
};

double opacityOf(const QColor &seen)
{
    return double(seen.red() - kGround.red()) / (kInk.red() - kGround.red());
}

/// A stroke with auto-fade on, watched until it has gone.
class WatchedStroke
{
public:
    explicit WatchedStroke(DesktopSession &session)
        : m_session(session)
    {
    }

    bool draw()
    {
        Pointer &pointer = m_session.pointer();
        const bool drawn = pointer.moveTo(kStroke - QPoint(50, 0)) && pointer.press() &&
                           pointer.moveTo(kStroke + QPoint(50, 0));
        m_sinceBefore.start();
        const bool released = pointer.release();
        m_sinceAfter.start();
        return drawn && released;
    }

    StrokeLook look()
    {
        StrokeLook look;
        look.youngest = double(m_sinceAfter.elapsed()) / 1000.0;
        look.opacity = opacityOf(m_session.screenshot().pixel(kStroke));
        look.oldest = double(m_sinceBefore.elapsed()) / 1000.0;
        return look;
    }

private:
    DesktopSession &m_session;
    QElapsedTimer m_sinceBefore;
    QElapsedTimer m_sinceAfter;
};

/// Somebody draws with auto-fade on.
struct Fading
{
    Fading()
        : isStored(SettingsFile(session).write("ZeigewerkAutoFade=true\n"))
        , beneath(session, kSmallScreen, kGround)
        , program(session)
    {
        if (!isStored || !beneath.opensWithFocus() || !program.waitUntilReady())
            failRig("the program does not start with auto-fade on");
        session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::D);
    }

    bool isDrawnOn() { return session.client().inputFocus() != beneath.id(); }

    DesktopSession session{{.screens = {kSmallScreen}}};
    bool isStored;
    WindowBeneath beneath;
    Program program;
};

} // namespace

class FadeScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aStrokeHoldsDissolvesAndLeavesTheProgramAsleep();
    void theWhiteboardHoldsWhatWouldFade();
};

void FadeScenarios::aStrokeHoldsDissolvesAndLeavesTheProgramAsleep()
{
    Fading on;
    EVENTUALLY(on.isDrawnOn());
    WatchedStroke stroke(on.session);
    QVERIFY(stroke.draw());
    EVENTUALLY(stroke.look().opacity == 1.0);

    QList<StrokeLook> looks;
    do
        looks.append(stroke.look());
    while (looks.constLast().opacity != 0.0 && looks.constLast().youngest < 10.0);

    double last = 1.0;
    int dissolving = 0;
    for (const StrokeLook &look : std::as_const(looks)) {
        const QByteArray what = QByteArray::number(look.opacity) + " between " +
                                QByteArray::number(look.youngest) + " and " +
                                QByteArray::number(look.oldest) + " s";
        QVERIFY2(look.opacity >= opacityAt(look.oldest) - kUnseenStep, what);
        QVERIFY2(look.opacity <= opacityAt(look.youngest - kLag) + kUnseenStep, what);
        QVERIFY2(look.opacity <= last, what);
        last = look.opacity;
        dissolving += look.opacity > 0.1 && look.opacity < 0.9 ? 1 : 0;
    }
    QCOMPARE(last, 0.0);
    QVERIFY(dissolving > 0);
    QVERIFY(on.session.screenshot().isFilled(kGround, {200, 200, 200, 200}));

    // Still drawing, but nothing is left to fade.
    EVENTUALLY_WITHIN(10s, sleepsFor(on.program.processId(), 1s));
    QVERIFY(on.session.client().inputFocus() != on.beneath.id());
}

void FadeScenarios::theWhiteboardHoldsWhatWouldFade()
{
    Fading on;
    EVENTUALLY(on.isDrawnOn());
    WatchedStroke stroke(on.session);
    QVERIFY(stroke.draw());
    on.session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::W);
    EVENTUALLY(on.session.screenshot().pixel({300, 400}) == QColor(Qt::white));
    // Long after it would have gone it is as it was …
    EVENTUALLY_WITHIN(10s, stroke.look().youngest > 5.5);
    QCOMPARE(on.session.screenshot().pixel(kStroke), kInk);
    // … and without the whiteboard it goes.
    on.session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::W);
    EVENTUALLY(on.session.screenshot().isFilled(kGround, {200, 200, 200, 300}));
    EVENTUALLY_WITHIN(10s, sleepsFor(on.program.processId(), 1s));
}

REGISTER_GUILESS_TEST(FadeScenarios)
#include "fade_scenarios.moc"
