#pragma once

#include "presentation.h"
#include "toolbar_user.h"

#include <cstdlib>

namespace zeigewerk::rig {

/// A presentation in which clicks can be shown, and a watch for their rings.
class ClickRings : public Presentation
{
public:
    /// The side of a ring's window, in pixels at scale 1.
    static constexpr int kSide = 72;

    explicit ClickRings(DesktopSetup setup = {})
        : Presentation(withAccessibility(std::move(setup)))
        , presenter(session, program)
        , m_watch(session)
    {
    }

    /// Turns "show clicks" on; false if that fails.
    bool turnOn()
    {
        hotKey(Key::K);
        return eventually([&] { return presenter.isOn(button::kClicks); });
    }

    /// The rings that have been on the screen since the presentation began, in order.
    QList<WatchedWindow> rings()
    {
        QList<WatchedWindow> rings;
        for (const WatchedWindow &window : m_watch.windows()) {
            if (window.wasShown && window.geometry.size() == QSize(kSide, kSide) &&
                session.client().isOfProcess(window.id, program.processId()))
                rings.append(window);
        }
        return rings;
    }
    /// How many of them were around that pixel.
    int ringsAt(QPoint place)
    {
        int count = 0;
        for (const WatchedWindow &ring : rings()) {
            const QPoint offset = ring.geometry.topLeft() + QPoint(kSide / 2, kSide / 2) - place;
            if (std::abs(offset.x()) <= 1 && std::abs(offset.y()) <= 1)
                ++count;
        }
        return count;
    }
    bool areAllGone()
    {
        const QList<WatchedWindow> all = rings();
        return std::all_of(all.begin(), all.end(), [](const WatchedWindow &ring) { return ring.isGone; });
    }
    /// Makes a click far from all others and waits for its ring: earlier clicks have been handled by then.
    bool settle()
    {
        const QPoint place(1500, 900 - 10 * m_settlingClicks++);
        return session.pointer().clickAt(place) && eventually([&] { return ringsAt(place) == 1; });
    }

    ToolbarUser presenter;

private:
    WindowWatch m_watch;
    int m_settlingClicks = 0;
};

} // namespace zeigewerk::rig
