#pragma once

#include "base/clock.h"
#include "core/repeating_timer.h"
#include "drawing/color.h"
#include "platform/desktop.h"

#include <memory>
#include <vector>

namespace zeigewerk {

/// How far a ring has come in its life: it grows and fades, fast at first.
struct RingPhase
{
    /// Of its size, about its middle.
    double scale = 0.0;
    double opacity = 0.0;

    /// `progress` is the part of its life that has passed, 0 to 1.
    static RingPhase at(double progress);
};

/// The ring that pops up round a click and fades out: a small surface above everything of ours, on its way
/// for less than half a second.
class ClickRing : private platform::SurfaceContent
{
public:
    /// The side of its square surface, in points; the ring at its largest fits in.
    static constexpr double kSide = 72.0;
    /// How long it lives.
    static constexpr std::chrono::milliseconds kDuration{450};

    /// The rings on their way, oldest first, and what moves them on: one timer for all, which is there only
    /// while there is a ring.
    struct Live
    {
        std::vector<std::unique_ptr<ClickRing>> rings;
        std::unique_ptr<RepeatingTimer> timer;
    };
    static Live live;

    /// Shows a ring with its middle there (points, global coordinates, y up), also beyond a screen's edge.
    /// `desktop`, and what the clock refers to, must live until the ring has gone or `dropAll` was called.
    static void show(platform::Desktop &desktop, QPointF at, const Color &color, Clock clock);
    /// Has each ring show the phase that it has reached by now; those that have finished go.
    static void step();
    /// Removes the rings of that desktop in mid-life.
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
    /// What is painted: that of the last step.
    RingPhase m_phase = RingPhase::at(0.0);
    std::unique_ptr<platform::Surface> m_surface;
};

} // namespace zeigewerk
