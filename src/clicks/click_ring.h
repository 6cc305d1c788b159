#pragma once

#include "base/clock.h"
#include "base/repeating_timer.h"
#include "drawing/color.h"
#include "platform/desktop.h"

#include <memory>
#include <vector>

namespace zeigewerk {

/// One phase of a ring's animation: it grows and fades, fast at first.
struct RingPhase
{
    /// The scale factor, about the centre.
    double scale = 0.0;
    double opacity = 0.0;

    /// `progress` is the part of its duration that has passed, 0 to 1.
    static RingPhase at(double progress);
};

/// The ring that appears around a click, and fades out within half a second: a small surface above all our
/// other windows.
class ClickRing : private platform::SurfaceContent
{
public:
    /// The side of its square surface, in points. The largest phase of the ring fits in it.
    static constexpr double kSide = 72.0;
    /// How long a ring is shown.
    static constexpr std::chrono::milliseconds kDuration{450};

    /// The rings being shown, oldest first, and the one timer that advances them all. The timer exists only
    /// while there are rings.
    struct Live
    {
        std::vector<std::unique_ptr<ClickRing>> rings;
        std::unique_ptr<RepeatingTimer> timer;
    };
    static Live live;

    /// Shows a ring centred at `at` (points, global coordinates, y up), also beyond a screen's edge.
    /// `desktop`, and what the clock refers to, must live until the ring has gone or `dropAll` was called.
    static void show(platform::Desktop &desktop, QPointF at, const Color &color, Clock clock);
    /// Advances each ring to its current phase, and removes those that have finished.
    static void step();
    /// Removes the rings of that desktop at once, finished or not.
    static void dropAll(const platform::Desktop &desktop);

private:
    ClickRing(platform::Desktop &desktop, QPointF at, const Color &color, Clock clock);

    double progress() const;
    platform::Damage painted() const;
    void draw(platform::PaintTarget &target) override;
    template <typename Condition>
    static void removeWhere(Condition condition);

    const platform::Desktop &m_desktop;
    Color m_color;
    Clock m_clock;
    TimePoint m_shownAt;
    /// The phase that is painted: that of the last step.
    RingPhase m_phase = RingPhase::at(0.0);
    std::unique_ptr<platform::Surface> m_surface;
};

} // namespace zeigewerk
