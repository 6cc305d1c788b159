#pragma once

#include "presentation.h"
#include "toolbar_user.h"

#include <cstdlib>

namespace zeigewerk::rig {

/// A presentation whose presenter shows clicks, and somebody who watches the rings.
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

    /// Comes back when clicks are shown; false if they are not.
    bool turnOn()
    {
        hotKey(Key::K);
        return eventually([&] { return presenter.isOn(button::kClicks); });
    }

    /// The rings that were on the screen since the presentation began, in their order.
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
    /// How many of them were round that pixel.
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
    /// A click far from all others whose ring has come. What an earlier press brings about comes before it.
    bool hasSettled()
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
