// The state of the modes as an observer sees it, as plain values.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace zeigewerk::test {

/// The frames of the screens, of which the model has the first few, in points, y up. They are small because
/// showing an overlay clears its picture.
inline const std::vector<QRectF> kModelScreens = {{0, 0, 100, 80}, {100, 20, 80, 60}, {180, 32, 64, 48}};

/// One letter for each mode that is on: d draw, w whiteboard, s spotlight, k clicks, p pin, r cursor ring, f
/// auto-fade.
QString lettersOf(const std::array<bool, 7> &isOn);

/// What can be observed of the program, or is expected by the model, between two steps.
struct ModesState
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
        /// Where the stroke in progress began.
        std::optional<double> stroke;
        /// The text of the open field, and whether the field's window is in sync with its overlay.
        std::optional<QString> text;
        bool isFieldInSync = true;

        friend bool operator==(const Screen &, const Screen &) = default;
    };

    // The letters of the modes that are on: by their flags, the menu's check marks and the toolbar's buttons.
    QString flags;
    QString menu;
    QString buttons;
    /// Whether the toolbar is dark and whether it is visible.
    bool dark = true;
    bool darkInMenu = true;
    bool toolbar = true;
    bool toolbarInMenu = true;
    bool isToolbarShown = true;
    /// The indices of the chosen tool, colour and width, and the same as the toolbar's buttons show them.
    std::array<int, 3> choices{};
    std::array<int, 3> shownChoices{};
    std::vector<Screen> screens;
    /// The screens of the marks that can be undone, oldest first.
    std::vector<std::size_t> order;
    bool isFollowing = false;
    bool isFadeTimerRunning = false;
    int escRegistrations = 0;
    /// The centre of the cursor ring.
    std::optional<QPointF> ring;
    bool monitorsClicks = false;
    bool monitorsWheel = false;
    /// The saved settings; empty before they are saved.
    std::optional<bool> storedFade;
    std::optional<bool> storedDark;

    friend bool operator==(const ModesState &, const ModesState &) = default;
};

/// Describes how the two differ; empty if they are equal.
QString difference(const ModesState &program, const ModesState &model);

} // namespace zeigewerk::test
