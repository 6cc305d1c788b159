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

/// How far the program may lag behind the clock on a busy machine, in seconds.
constexpr double kMaxLag = 1.0;
/// Differences in opacity below this cannot be seen in a screenshot.
constexpr double kOpacityTolerance = 0.02;

/// The opacity of a stroke of that age in seconds.
double opacityAt(double age)
{
    return std::clamp((4.8 - age) / 0.8, 0.0, 1.0);
}

/// One observation of the stroke.
struct StrokeSample
{
    /// The stroke's age at that moment was between these, in seconds. The screen may show an older state,
    /// never a newer one, so the stroke is at least as opaque as at its maximum age.
    double minAge = 0.0;
    double maxAge = 0.0;
    double opacity = 0.0;
};

double opacityOf(const QColor &seen)
{
    return double(seen.red() - kGround.red()) / (kInk.red() - kGround.red());
}

/// A stroke drawn with auto-fade on, observed until it has disappeared.
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
        m_sinceBeforeRelease.start();
        const bool released = pointer.release();
        m_sinceAfterRelease.start();
        return drawn && released;
    }

    StrokeSample sample()
    {
        StrokeSample sample;
        sample.minAge = double(m_sinceAfterRelease.elapsed()) / 1000.0;
        sample.opacity = opacityOf(m_session.screenshot().pixel(kStroke));
        sample.maxAge = double(m_sinceBeforeRelease.elapsed()) / 1000.0;
        return sample;
    }

private:
    DesktopSession &m_session;
    QElapsedTimer m_sinceBeforeRelease;
    QElapsedTimer m_sinceAfterRelease;
};

/// Drawing with auto-fade on.
struct AutoFade
{
    AutoFade()
        : isStored(SettingsFile(session).write("ZeigewerkAutoFade=true\n"))
        , beneath(session, kSmallScreen, kGround)
        , program(session)
    {
        if (!isStored || !beneath.opensWithFocus() || !program.waitUntilReady())
            failRig("the program does not start with auto-fade on");
        session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::D);
    }

    bool isDrawing() { return session.client().inputFocus() != beneath.id(); }

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
    void aStrokeStaysThenFadesAndTheProgramSleeps();
    void theWhiteboardPausesFading();
};

void FadeScenarios::aStrokeStaysThenFadesAndTheProgramSleeps()
{
    AutoFade show;
    EVENTUALLY(show.isDrawing());
    WatchedStroke stroke(show.session);
    QVERIFY(stroke.draw());
    EVENTUALLY(stroke.sample().opacity == 1.0);

    QList<StrokeSample> samples;
    do
        samples.append(stroke.sample());
    while (samples.constLast().opacity != 0.0 && samples.constLast().minAge < 10.0);

    double previous = 1.0;
    int fadingSamples = 0;
    for (const StrokeSample &sample : std::as_const(samples)) {
        const QByteArray message = QByteArray::number(sample.opacity) + " between " +
                                   QByteArray::number(sample.minAge) + " and " +
                                   QByteArray::number(sample.maxAge) + " s";
        QVERIFY2(sample.opacity >= opacityAt(sample.maxAge) - kOpacityTolerance, message);
        QVERIFY2(sample.opacity <= opacityAt(sample.minAge - kMaxLag) + kOpacityTolerance, message);
        QVERIFY2(sample.opacity <= previous, message);
        previous = sample.opacity;
        fadingSamples += sample.opacity > 0.1 && sample.opacity < 0.9 ? 1 : 0;
    }
    QCOMPARE(previous, 0.0);
    QVERIFY(fadingSamples > 0);
    QVERIFY(show.session.screenshot().isFilled(kGround, {200, 200, 200, 200}));

    // Drawing is still on, but nothing is left to fade.
    EVENTUALLY_WITHIN(10s, sleepsFor(show.program.processId(), 1s));
    QVERIFY(show.session.client().inputFocus() != show.beneath.id());
}

void FadeScenarios::theWhiteboardPausesFading()
{
    AutoFade show;
    EVENTUALLY(show.isDrawing());
    WatchedStroke stroke(show.session);
    QVERIFY(stroke.draw());
    show.session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::W);
    EVENTUALLY(show.session.screenshot().pixel({300, 400}) == QColor(Qt::white));
    // It is still there long after it would have disappeared …
    EVENTUALLY_WITHIN(10s, stroke.sample().minAge > 5.5);
    QCOMPARE(show.session.screenshot().pixel(kStroke), kInk);
    // … and fades without the whiteboard.
    show.session.keyboard().chord({Key::Ctrl, Key::Alt}, Key::W);
    EVENTUALLY(show.session.screenshot().isFilled(kGround, {200, 200, 200, 300}));
    EVENTUALLY_WITHIN(10s, sleepsFor(show.program.processId(), 1s));
}

REGISTER_GUILESS_TEST(FadeScenarios)
#include "fade_scenarios.moc"
