#include "registered_test.h"
#include "seam/seam_contract.h"
#include "seam_stand_in.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

using namespace zeigewerk;
using namespace zeigewerk::rig;

namespace {

constexpr QRect kScreen = VirtualDisplay::kFullHd;

void mustSucceed(bool isDone, const char *what)
{
    if (!isDone)
        throw RigError(what);
}

/// A virtual X11 desktop, with the subject in a process of its own.
class X11World : public test::SeamWorld
{
public:
    X11World() { mustSucceed(m_other.opensWithFocus(), "the other application does not get the keyboard"); }

    QString tell(const QString &line) override { return m_standIn.tell(line); }

    void movePointer(QPointF place) override
    {
        mustSucceed(m_session.pointer().moveTo(pixelAt(place)), "the pointer does not get there");
    }
    void pressButton() override { mustSucceed(m_session.pointer().press(), "the button is not pressed"); }
    void releaseButton() override
    {
        mustSucceed(m_session.pointer().release(), "the button is not released");
    }
    void turnWheel(int steps) override
    {
        mustSucceed(m_session.pointer().wheel(steps), "the wheel is stuck");
    }

    void holdModifiers(platform::Modifiers modifiers) override
    {
        for (const auto &[modifier, key] : kModifierKeys) {
            if (modifiers.testFlag(modifier)) {
                m_session.keyboard().press(key);
                m_held.append(key);
            }
        }
    }
    void releaseModifiers() override
    {
        for (const Key key : std::exchange(m_held, {}))
            m_session.keyboard().release(key);
    }
    void pressKey(platform::PhysicalKey key) override { m_session.keyboard().press(keyAt(key)); }
    void releaseKey(platform::PhysicalKey key) override { m_session.keyboard().release(keyAt(key)); }

    QColor pixel(QPointF place) override { return m_session.screenshot().pixel(pixelAt(place)); }

    int otherClicks() override { return static_cast<int>(m_other.presses().size()); }
    int otherKeys() override
    {
        const QList<Key> keys = m_other.pressedKeys();
        return static_cast<int>(std::count_if(keys.begin(), keys.end(), [](Key key) {
            return std::none_of(kModifierKeys.begin(), kModifierKeys.end(),
                                [key](const auto &row) { return row.second == key; });
        }));
    }
    void forgetOtherInput() override { m_other.forget(); }
    bool otherHasKeyboard() override { return m_other.hasFocus(); }
    void otherGrabsHotKey() override { m_grab.emplace(m_session, Modifiers{Key::Ctrl, Key::Alt}, Key::D); }

    void setDocks(const QMargins &margins) override
    {
        m_dock.reset();
        const auto depth = [](int margin) { return static_cast<quint32>(margin); };
        m_dock.emplace(m_session, QRect(0, 0, 100, 30), "_NET_WM_STRUT",
                       QList<quint32>{depth(margins.left()), depth(margins.right()), depth(margins.top()),
                                      depth(margins.bottom())});
    }

private:
    static constexpr std::array kModifierKeys = {
        std::pair(platform::Modifier::Ctrl, Key::Ctrl),
        std::pair(platform::Modifier::Alt, Key::Alt),
        std::pair(platform::Modifier::Shift, Key::Shift),
    };

    static QPoint pixelAt(QPointF place)
    {
        return {static_cast<int>(place.x()), kScreen.height() - 1 - static_cast<int>(place.y())};
    }
    /// An X key code is the evdev code plus 8.
    static Key keyAt(platform::PhysicalKey key) { return static_cast<Key>(static_cast<int>(key) + 8); }

    DesktopSession m_session;
    WindowBeneath m_other{m_session, kScreen, Qt::blue};
    SeamStandIn m_standIn{m_session};
    std::optional<KeyGrab> m_grab;
    std::optional<Dock> m_dock;
    QList<Key> m_held;
};

} // namespace

class SeamScenarios : public test::SeamContract
{
    Q_OBJECT

protected:
    std::unique_ptr<test::SeamWorld> makeWorld() override { return std::make_unique<X11World>(); }
};

REGISTER_GUILESS_TEST(SeamScenarios)
#include "seam_scenarios.moc"
