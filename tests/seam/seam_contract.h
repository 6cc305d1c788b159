#pragma once

#include "seam/seam_world.h"

#include <QObject>

#include <memory>

namespace zeigewerk::test {

/// The contract of the seam to the desktop (`platform/desktop.h` and what it includes), as tests that every
/// backend runs in a world of its own.
class SeamContract : public QObject
{
    Q_OBJECT

protected:
    virtual std::unique_ptr<SeamWorld> makeWorld() = 0;

private Q_SLOTS:
    void init();
    void cleanup();

    void aSurfaceIsHiddenUntilItIsOrderedFront();
    void aSurfacePaintsOnlyWhatIsDamaged();
    void aSurfaceComesBackTransparent();
    void aSurfaceMovesWithItsPicture();
    void orderingFrontNeverChangesTheLevel();
    void withinALevelTheLastOneOrderedFrontIsInFront();
    void clicksPassThroughASurfaceUntilItTakesTheMouse();
    void pointerEventsCarryTheirPlaces();
    void aDragContinuesOutsideTheSurface();
    void scrollEventsCarryTheirPlace();
    void aHiddenSurfaceGetsNoKeyboard();
    void theKeyboardGoesToASurfaceAndBack();
    void aToolbarNeverTakesTheKeyboard();
    void aTextFieldTakesTheKeyboard();
    void clicksPassThroughAWindowThatIgnoresTheMouse();
    void aWindowMovesToWholePoints();
    void aWindowIsDraggedByItsGrip();
    void aHotKeyIsDeliveredForEachPress();
    void aHotKeyOfAnotherProgramIsRefused();
    void aHotKeyCanBeGivenBackWhileTheProgramRuns();
    void theMonitorReportsOnlyWhatItIsAskedFor();
    void theMonitorReportsClicksEverywhere();
    void theMonitorReportsTheWheelWithAlt();
    void thePrimaryScreenBeginsAtTheOrigin();
    void theVisibleFrameExcludesDocks();
    void ifDocksLeaveNothingTheVisibleFrameIsTheScreen();
    void thePointersPlaceIsKnown();

private:
    static constexpr QColor kBeneath = QColorConstants::Blue;
    static constexpr QColor kRed = QColorConstants::Svg::red;
    static constexpr QColor kLime = QColorConstants::Svg::lime;
    static constexpr QColor kYellow = QColorConstants::Svg::yellow;
    /// In the canvas that most tests show, and beside it.
    static constexpr QPointF kInCanvas = {200.5, 250.5};
    static constexpr QPointF kBeside = {700.5, 600.5};
    static constexpr platform::Modifiers kCtrlAlt = platform::Modifier::Ctrl | platform::Modifier::Alt;

    QString tell(const QString &line) { return m_world->tell(line); }
    bool offers(const QString &feature) { return tell("desktop features").split(' ').contains(feature); }
    /// Waits until the program has handled the events that have happened: asking the desktop fetches them,
    /// and they are handled before the next line.
    void awaitEvents() { tell("desktop main"); }
    /// Forgets what reached the program and the other application.
    void forget();
    /// Shows the overlay "canvas", 400 x 300 points at (100, 100), in that colour.
    void showCanvas(const QString &color = QStringLiteral("red"));

    std::unique_ptr<SeamWorld> m_world;
};

} // namespace zeigewerk::test
