// Performs random sequences of user actions on the program and on a model of its modes, and compares them.

#include "commands/hot_key_table.h"
#include "modes_operations.h"
#include "modes_program.h"
#include "random_input.h"
#include "registered_test.h"

#include <QLoggingCategory>
#include <QTest>

#include <array>
#include <chrono>

namespace zeigewerk::test {

namespace {

using platform::KeyEvent;
using platform::Modifier;

constexpr std::size_t kInitialScreens = 2;
constexpr double kPressY = 40.0;

/// Performs random actions on the program and the model, and records them.
class Walk
{
public:
    explicit Walk(RandomInput &random)
        : m_random(random)
    {
    }

    void step();
    QString steps() const { return m_steps.join(QStringLiteral(", ")); }
    /// Describes how the program and the model differ; empty if they agree.
    QString disagreement() { return difference(m_program.state(), m_model.state()); }

private:
    void note(const char *what, int number = 0)
    {
        m_steps += QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(number);
    }
    std::size_t randomScreen();
    void operateModes();
    void pickOnToolbar();
    void usePointer();
    void press(std::size_t screen);
    void release(std::size_t screen);
    void useKeyboard();
    void passTime();
    void changeDesktop();
    void pressEscHotKey();

    RandomInput &m_random;
    ModesProgram m_program{kInitialScreens};
    ModesModel m_model{kInitialScreens};
    QStringList m_steps;
    int m_presses = 0;
};

void Walk::step()
{
    const int kind = m_random.integer(0, 99);
    const bool hasScreens = !m_model.screens.empty();
    if (kind < 20 && hasScreens)
        usePointer();
    else if (kind < 32 && hasScreens)
        useKeyboard();
    else if (kind < 44)
        passTime();
    else if (kind < 52)
        pickOnToolbar();
    else if (kind < 58)
        changeDesktop();
    else
        operateModes();
    m_program.desktop.takeLog();
}

void Walk::operateModes()
{
    const ModeOperation operation = m_random.oneOf(modeOperations());
    const int control = m_random.integer(0, 2);
    if (control == 0 && operation.hotKey > 0) {
        note("hot key", static_cast<int>(operation.hotKey));
        m_program.desktop.hotKeys().press({kHotKeySignature, operation.hotKey});
    } else if (control == 1 && !operation.titles.isEmpty()) {
        const QString title = operation.titles.at(m_model.toolbar ? 0 : operation.titles.size() - 1);
        m_steps += QStringLiteral("menu \"%1\"").arg(title);
        item(m_program, title).trigger();
    } else if (m_model.toolbar) {
        PalButton *button = operation.button(*m_program.app().toolbar());
        m_steps += QStringLiteral("button \"%1\"").arg(button->accessibleName());
        button->click();
    } else {
        return;
    }
    (m_model.*operation.rule)();
}

void Walk::pickOnToolbar()
{
    if (!m_model.toolbar)
        return;
    const Toolbar &bar = *m_program.app().toolbar();
    if (m_random.chance(0.6)) {
        const int tool = m_random.integer(0, 6);
        note("pick tool", tool);
        bar.toolButtons.at(*Tool::fromRawValue(tool))->click();
        m_model.pickTool(tool);
    } else if (m_random.chance(0.5)) {
        m_model.colour = m_random.integer(0, static_cast<int>(bar.colorButtons.size()) - 1);
        note("pick colour", m_model.colour);
        bar.colorButtons.at(static_cast<std::size_t>(m_model.colour))->click();
    } else {
        m_model.width = m_random.integer(0, static_cast<int>(bar.widthButtons.size()) - 1);
        note("pick width", m_model.width);
        bar.widthButtons.at(static_cast<std::size_t>(m_model.width))->click();
    }
}

std::size_t Walk::randomScreen()
{
    return static_cast<std::size_t>(m_random.integer(0, static_cast<int>(m_model.screens.size()) - 1));
}

void Walk::usePointer()
{
    const std::size_t screen = randomScreen();
    // Most strokes are finished at once; during the others, modes change.
    if (!m_model.screens.at(screen).stroke || m_random.chance(0.2))
        press(screen);
    if (m_random.chance(0.7))
        release(screen);
}

void Walk::press(std::size_t screen)
{
    note("press on", static_cast<int>(screen));
    const double x = 10.0 * ++m_presses;
    m_program.view(screen).mouseDown({{x, kPressY}, {}});
    m_model.press(screen, x);
}

void Walk::release(std::size_t screen)
{
    note("release on", static_cast<int>(screen));
    m_program.view(screen).mouseDragged({{0.0, 0.0}, {}});
    m_program.view(screen).mouseUp({{0.0, 0.0}, {}});
    m_model.release(screen);
}

void Walk::useKeyboard()
{
    const std::size_t screen = randomScreen();
    const auto press = [&](const char *name, const KeyEvent &key) {
        note(name, static_cast<int>(screen));
        m_program.view(screen).keyDown(key);
    };
    switch (m_model.screens.at(screen).text ? m_random.integer(0, 6) : m_random.integer(2, 6)) {
    case 0:
    case 1:
        press("letter on", {.character = U'a', .modifiers = {}});
        return m_model.type(screen, u'a');
    case 2:
        press("return on", {.character = U'\r', .modifiers = {}});
        return m_model.pressReturn(screen);
    case 3:
        press("Esc on", {.isEscape = true, .character = 0, .modifiers = {}});
        return m_model.pressEsc(screen);
    case 4:
        press("Super+Z on", {.character = U'z', .modifiers = Modifier::Super});
        return m_model.pressUndo(screen);
    case 5:
        press("Ctrl+Z on", {.character = U'z', .modifiers = Modifier::Ctrl});
        return m_model.pressUndo(screen);
    default:
        return pressEscHotKey();
    }
}

void Walk::pressEscHotKey()
{
    // An event may arrive after the hot key was unregistered.
    const bool isLate = m_random.chance(0.2);
    note("Esc hot key, late", isLate ? 1 : 0);
    if (isLate)
        m_program.desktop.hotKeys().deliver(kEscHotKey.id());
    else
        m_program.desktop.hotKeys().press(kEscHotKey.id());
    if (isLate || m_model.isEscRegistered)
        m_model.endModes();
}

void Walk::passTime()
{
    const int milliseconds = m_random.oneOf(std::array{-3000, 100, 700, 800, 2000, 4000, 4799, 4800});
    note("milliseconds", milliseconds);
    m_program.now += std::chrono::milliseconds(milliseconds);
    m_model.now += milliseconds;
    if (m_model.fadeTimer && m_random.chance(0.7)) {
        note("fade tick");
        m_program.app().tickFade();
        m_model.tickFade();
    }
}

void Walk::changeDesktop()
{
    if (m_random.chance(0.6)) {
        // One point on each screen, and one outside all of them.
        m_model.mouse =
            m_random.oneOf(std::array{QPointF(50, 40), QPointF(120, 70), QPointF(200, 50), QPointF(140, 5)});
        note("pointer to", static_cast<int>(m_model.mouse.x()));
        m_program.desktop.setMouseLocation(m_model.mouse);
        if ((m_model.spot || m_model.ring) && m_random.chance(0.7)) {
            note("follow tick");
            m_program.app().followPointer();
            m_model.follow();
        }
    } else if (m_random.chance(0.5)) {
        const int count = m_random.integer(0, static_cast<int>(kModelScreens.size()));
        note("screens", count);
        m_program.changeScreens(static_cast<std::size_t>(count));
        m_model.changeScreens(static_cast<std::size_t>(count));
    } else {
        m_model.isEscRefused = !m_model.isEscRefused;
        note("Esc refused", m_model.isEscRefused ? 1 : 0);
        if (m_model.isEscRefused)
            m_program.desktop.hotKeys().refuse(kEscHotKey.id());
        else
            m_program.desktop.hotKeys().refuseNone();
    }
}

} // namespace

class ModesModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theProgramAndTheModelAgreeAfterEveryStep();
};

void ModesModelTest::initTestCase()
{
    // The offscreen platform warns about every window that it cannot raise.
    QLoggingCategory::defaultCategory()->setEnabled(QtWarningMsg, false);
}

void ModesModelTest::theProgramAndTheModelAgreeAfterEveryStep()
{
    constexpr int kWalks = 2000;
    constexpr int kStepsPerWalk = 30;
    RandomInput random;
    for (int i = 0; i < kWalks; ++i) {
        Walk walk(random);
        for (int step = 0; step < kStepsPerWalk; ++step) {
            walk.step();
            const QString disagreement = walk.disagreement();
            QVERIFY2(disagreement.isEmpty(), qPrintable(QStringLiteral("seed %1, walk %2, after %3: %4")
                                                            .arg(random.seed())
                                                            .arg(i)
                                                            .arg(walk.steps(), disagreement)));
        }
    }
}

REGISTER_TEST(ModesModelTest)

} // namespace zeigewerk::test

#include "modes_model_test.moc"
