#include "toolbar/toolbar_frame.h"

#include "base/stop.h"
#include "fuzz/placed_toolbar.h"
#include "fuzz/settings_file.h"
#include "fuzz/targets.h"

#include <cmath>

namespace zeigewerk::fuzz {

namespace {

/// Numbers are saved with six significant digits: a hundredth of a point on any real screen.
bool isNear(double a, double b)
{
    return std::abs(a - b) <= 1e-5 * std::abs(a);
}

bool isSame(const SavedFrame &a, const SavedFrame &b)
{
    return isNear(a.frame.x(), b.frame.x()) && isNear(a.frame.y(), b.frame.y()) &&
           isNear(a.frame.width(), b.frame.width()) && isNear(a.frame.height(), b.frame.height()) &&
           a.screenName == b.screenName;
}

} // namespace

void toolbarFrame(Bytes input)
{
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char *>(input.data()), static_cast<qsizetype>(input.size()));
    const SettingsFile file;
    UserDefaults defaults(file.name);
    defaults.setString(kToolbarFrameKey, text);
    const PlacedToolbar toolbar(twoScreens(), defaults);
    mustHold(isReachable(toolbar.frame(), toolbar.screens()), "the toolbar is within reach");

    if (const auto frame = SavedFrame::fromString(text)) {
        const auto again = SavedFrame::fromString(frame->toString());
        mustHold(again && isSame(*frame, *again), "a saved frame reads back as it was written");
    }
}

} // namespace zeigewerk::fuzz
