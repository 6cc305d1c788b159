#include "toolbar/toolbar_frame.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>

namespace zeigewerk {

namespace {

constexpr double kDistanceFromEdge = 24.0;
/// In points: as much as must be visible for users to find and grab the toolbar.
constexpr double kMinVisible = 48.0;
/// Screens lie within a few thousand points; coordinates far beyond that are invalid.
constexpr double kMaxCoordinate = 1e6;

} // namespace

std::optional<SavedFrame> SavedFrame::fromString(const QString &text)
{
    constexpr int kNumbers = 4;
    const QStringList words = text.split(QLatin1Char(' '));
    if (words.size() <= kNumbers)
        return std::nullopt;
    std::array<double, kNumbers> numbers{};
    for (std::size_t i = 0; i < kNumbers; ++i) {
        bool isNumber = false;
        numbers.at(i) = words.at(static_cast<int>(i)).toDouble(&isNumber);
        if (!isNumber || !(std::abs(numbers.at(i)) < kMaxCoordinate))
            return std::nullopt;
    }
    // The name of a screen may contain spaces.
    return SavedFrame{.frame = {numbers[0], numbers[1], numbers[2], numbers[3]},
                      .screenName = words.mid(kNumbers).join(QLatin1Char(' '))};
}

QString SavedFrame::toString() const
{
    return QStringLiteral("%1 %2 %3 %4 %5")
        .arg(QString::number(frame.x()), QString::number(frame.y()), QString::number(frame.width()),
             QString::number(frame.height()), screenName);
}

QPointF firstPlace(const QRectF &visibleFrame, QSizeF size)
{
    return {visibleFrame.right() - size.width() - kDistanceFromEdge,
            visibleFrame.center().y() - size.height() / 2};
}

bool isReachable(const QRectF &frame, const std::vector<platform::Screen> &screens)
{
    return std::any_of(screens.begin(), screens.end(), [&](const platform::Screen &screen) {
        const QRectF shown = screen.frame & frame;
        return shown.width() >= std::min(kMinVisible, frame.width()) &&
               shown.height() >= std::min(kMinVisible, frame.height());
    });
}

QPointF broughtIntoView(const QRectF &frame, const QRectF &visibleFrame)
{
    const auto within = [](double value, double min, double max) {
        return std::min(std::max(value, min), max);
    };
    return {within(frame.left(), visibleFrame.left(), visibleFrame.right() - frame.width()),
            within(frame.top(), visibleFrame.top(), visibleFrame.bottom() - frame.height())};
}

} // namespace zeigewerk
