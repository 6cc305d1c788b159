// What can be seen of the modes between two steps, as plain values.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace zeigewerk::test {

/// Where the screens of the model lie in points, y up; it has the first few of them. They are small, as
/// showing an overlay clears its picture.
inline const std::vector<QRectF> kModelScreens = {{0, 0, 100, 80}, {100, 20, 80, 60}, {180, 32, 64, 48}};

/// One letter for each that is on: d draw, w whiteboard, s spotlight, k clicks, p pin, r cursor ring, f
/// auto-fade.
QString lettersOf(const std::array<bool, 7> &isOn);

/// What can be seen of the program between two steps.
struct Seen
{
    struct Mark
    {
        double x = 0.0;
        qint64 finished = 0;

        friend bool operator==(const Mark &, const Mark &) = default;
    };
    struct Screen
    {
        bool isShown = false;
        bool takesMouse = false;
        bool hasKeyboard = false;
        QPointF spotlight;
        std::vector<Mark> marks;
        /// Where the stroke under way began.
        std::optional<double> stroke;
        /// What stands in the open text field, and whether its window is as its overlay's.
        std::optional<QString> text;
        bool isFieldInStep = true;

        friend bool operator==(const Screen &, const Screen &) = default;
    };

    // The letters of what is on, by the flags themselves, the menu's check marks and the toolbar's buttons.
    QString flags;
    QString menu;
    QString buttons;
    /// Whether the toolbar is dark, and whether it is there.
    bool dark = true;
    bool darkInMenu = true;
    bool toolbar = true;
    bool toolbarInMenu = true;
    bool isToolbarShown = true;
    /// The chosen tool, colour and width by their places, and the same by the toolbar's buttons.
    std::array<int, 3> choices{};
    std::array<int, 3> shownChoices{};
    std::vector<Screen> screens;
    /// The screens of the marks that can be taken back, oldest first.
    std::vector<std::size_t> order;
    bool isFollowing = false;
    bool isFadeTimerRunning = false;
    int timesEscIsTaken = 0;
    /// The middle of the cursor ring.
    std::optional<QPointF> ring;
    bool hearsClicks = false;
    bool hearsWheel = false;
    /// The settings on disk, where they have been written.
    std::optional<bool> storedFade;
    std::optional<bool> storedDark;

    friend bool operator==(const Seen &, const Seen &) = default;
};

/// What two have that is not the same, as "name: one, other"; empty if they are equal.
QString difference(const Seen &program, const Seen &model);

} // namespace zeigewerk::test
