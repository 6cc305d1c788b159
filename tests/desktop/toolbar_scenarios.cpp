// What the buttons of the toolbar do.
#include "registered_test.h"
#include "toolbar_presentation.h"

#include <algorithm>

using namespace zeigewerk::rig;

namespace {

constexpr QPoint kStrokePlace(400, 300);
constexpr QPoint kOtherStrokePlace(400, 500);

/// As the eye goes over the toolbar: from top to bottom, from left to right.
QList<AccessibleButton> inReadingOrder(QList<AccessibleButton> buttons)
{
    std::stable_sort(buttons.begin(), buttons.end(), [](const auto &one, const auto &other) {
        const QPoint a = one.extents.center();
        const QPoint b = other.extents.center();
        return std::pair(a.y(), a.x()) < std::pair(b.y(), b.x());
    });
    return buttons;
}

} // namespace

class ToolbarScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyButtonIsKnownToScreenReaders();
    void drawingIsTurnedOnAndOff();
    void theWhiteboardIsTurnedOnAndOff();
    void theSpotlightIsTurnedOnAndOff();
    void theRingIsTurnedOnAndOff();
    void pinningLeavesTheDrawingAndLetsClicksThrough();
    void undoAndClearTakeShapesAway();
    void clicksAndFadeAreTurnedOnAndOff();
    void screenReadersPressAsThePointerClicks();
    void quitEndsTheProgram();
};

void ToolbarScenarios::everyButtonIsKnownToScreenReaders()
{
    using namespace button;
    ToolbarPresentation on;
    QStringList expected = {kDraw,        kWhiteboard, kSpotlight, kRing,      kClicks,  kFade, kPin, kPen,
                            kHighlighter, kLine,       kArrow,     kRectangle, kEllipse, kText, kUndo};
    expected += QStringList(8, kColor) + QStringList(3, kWidth);
    expected += {kAppearance, kClear, kHide, kQuit};
    const QStringList toggles = expected.mid(0, 7);
    const QStringList actions = {kUndo, kAppearance, kClear, kHide, kQuit};

    const QList<AccessibleButton> buttons = inReadingOrder(on.presenter.buttons());
    QStringList names;
    QList<int> checked;
    for (const AccessibleButton &each : buttons) {
        if (each.isChecked())
            checked.append(static_cast<int>(names.size()));
        names.append(each.name);
        QVERIFY2(each.is(AccessibleState::Showing) && each.is(AccessibleState::Enabled),
                 qPrintable(each.name));
        QVERIFY2(!each.is(AccessibleState::Focusable), qPrintable(each.name));
    }
    QCOMPARE(names, expected);
    // The pen, orange, and the middle width.
    QCOMPARE(checked, QList<int>({7, 15, 24}));
    for (const AccessibleButton &each : buttons) {
        const bool isToggle = toggles.contains(each.name);
        const bool isAction = actions.contains(each.name);
        const QString role = isToggle ? "check box" : isAction ? "push button" : "radio button";
        QVERIFY2(each.role == role, qPrintable(each.name + " is a " + each.role));
    }
}

void ToolbarScenarios::drawingIsTurnedOnAndOff()
{
    ToolbarPresentation on;
    QVERIFY(on.presenter.click(button::kDraw));
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.presenter.isOn(button::kDraw));
    QVERIFY(on.strokeFrom(kStrokePlace));
    EVENTUALLY(on.strokeColor(kStrokePlace) == kInk);

    QVERIFY(on.presenter.click(button::kDraw));
    EVENTUALLY(on.beneath.hasFocus());
    EVENTUALLY(on.isSlideUntouched());
    QVERIFY(!on.presenter.isOn(button::kDraw));
    QVERIFY(on.session.pointer().clickAt(kStrokePlace));
    EVENTUALLY(on.beneath.presses() == QList<QPoint>{kStrokePlace});
}

void ToolbarScenarios::theWhiteboardIsTurnedOnAndOff()
{
    ToolbarPresentation on;
    QVERIFY(on.presenter.click(button::kWhiteboard));
    EVENTUALLY(on.session.screenshot().isFilled(Qt::white, ToolbarPresentation::kLeftOfToolbar));
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.presenter.isOn(button::kWhiteboard));
    QVERIFY(!on.presenter.isOn(button::kDraw));
    QVERIFY(on.strokeFrom(kStrokePlace));
    EVENTUALLY(on.strokeColor(kStrokePlace) == kInk);

    QVERIFY(on.presenter.click(button::kWhiteboard));
    EVENTUALLY(on.isSlideUntouched());
    QVERIFY(!on.presenter.isOn(button::kWhiteboard));
}

void ToolbarScenarios::theSpotlightIsTurnedOnAndOff()
{
    ToolbarPresentation on;
    QVERIFY(on.presenter.click(button::kSpotlight));
    EVENTUALLY(on.pixel({10, 10}) == dimmed(on.beneathColor()));
    QVERIFY(on.presenter.isOn(button::kSpotlight));
    QVERIFY(on.beneath.hasFocus());
    QVERIFY(on.session.pointer().moveTo(kStrokePlace));
    EVENTUALLY(on.pixel(kStrokePlace) == on.beneathColor());

    QVERIFY(on.presenter.click(button::kSpotlight));
    EVENTUALLY(on.isSlideUntouched());
    QVERIFY(!on.presenter.isOn(button::kSpotlight));
}

void ToolbarScenarios::theRingIsTurnedOnAndOff()
{
    ToolbarPresentation on;
    const auto ring = [](QPoint pointer) { return QRect(pointer - QPoint(28, 28), QSize(56, 56)); };
    QVERIFY(on.presenter.click(button::kRing));
    for (const QPoint place : {kStrokePlace, kOtherStrokePlace}) {
        QVERIFY(on.session.pointer().moveTo(place));
        // Around the pointer, and nowhere else.
        EVENTUALLY(!on.isUntouched(ring(place).adjusted(0, 0, 0, -40)));
        EVENTUALLY(!on.isUntouched(ring(place).adjusted(0, 40, 0, 0)));
        EVENTUALLY(on.isUntouched(ring(place == kStrokePlace ? kOtherStrokePlace : kStrokePlace)));
    }
    QVERIFY(on.presenter.isOn(button::kRing));
    QVERIFY(on.beneath.hasFocus());

    QVERIFY(on.presenter.click(button::kRing));
    EVENTUALLY(!on.presenter.isOn(button::kRing));
    QVERIFY(on.session.pointer().moveTo(kStrokePlace));
    EVENTUALLY(on.isSlideUntouched());
}

void ToolbarScenarios::pinningLeavesTheDrawingAndLetsClicksThrough()
{
    ToolbarPresentation on;
    // There is nothing to pin yet.
    QVERIFY(on.presenter.click(button::kPin));
    QVERIFY(on.presenter.click(button::kDraw));
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(!on.presenter.isOn(button::kPin));
    QVERIFY(on.strokeFrom(kStrokePlace));
    EVENTUALLY(on.strokeColor(kStrokePlace) == kInk);

    QVERIFY(on.presenter.click(button::kPin));
    EVENTUALLY(on.beneath.hasFocus());
    QVERIFY(on.presenter.isOn(button::kPin));
    QVERIFY(!on.presenter.isOn(button::kDraw));
    on.beneath.forget();
    QVERIFY(on.session.pointer().clickAt(kStrokePlace));
    EVENTUALLY(on.beneath.presses() == QList<QPoint>{kStrokePlace});
    QCOMPARE(on.strokeColor(kStrokePlace), kInk);

    // Unpinned, it is drawn on again.
    QVERIFY(on.presenter.click(button::kPin));
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.presenter.isOn(button::kDraw));
    QVERIFY(!on.presenter.isOn(button::kPin));
    QCOMPARE(on.strokeColor(kStrokePlace), kInk);
}

void ToolbarScenarios::undoAndClearTakeShapesAway()
{
    ToolbarPresentation on;
    QVERIFY(on.presenter.click(button::kDraw));
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.strokeFrom(kStrokePlace));
    QVERIFY(on.strokeFrom(kOtherStrokePlace));
    EVENTUALLY(on.strokeColor(kOtherStrokePlace) == kInk);
    QVERIFY(on.presenter.click(button::kUndo));
    EVENTUALLY(on.strokeColor(kOtherStrokePlace) == on.beneathColor());
    QCOMPARE(on.strokeColor(kStrokePlace), kInk);
    QVERIFY(on.presenter.click(button::kUndo));
    EVENTUALLY(on.isSlideUntouched());
    // With nothing left it does nothing. Toolbar and canvas hear of the hand on ways of their own, so the
    // next stroke waits until the toolbar has answered a later click.
    QVERIFY(on.presenter.click(button::kUndo));
    QVERIFY(on.presenter.click(button::kWidth, 2));
    EVENTUALLY(on.presenter.isOn(button::kWidth, 2));

    QVERIFY(on.strokeFrom(kStrokePlace));
    QVERIFY(on.strokeFrom(kOtherStrokePlace));
    EVENTUALLY(on.strokeColor(kOtherStrokePlace) == kInk);
    QVERIFY(on.presenter.click(button::kClear));
    EVENTUALLY(on.isSlideUntouched());
    // It is still drawn on.
    QVERIFY(on.hasKeyboard());
    QVERIFY(on.strokeFrom(kStrokePlace));
    EVENTUALLY(on.strokeColor(kStrokePlace) == kInk);
    QCOMPARE(on.strokeColor(kOtherStrokePlace), on.beneathColor());
}

void ToolbarScenarios::clicksAndFadeAreTurnedOnAndOff()
{
    ToolbarPresentation on;
    for (const QString &mode : {button::kClicks, button::kFade}) {
        for (const bool expected : {true, false}) {
            QVERIFY(on.presenter.click(mode));
            EVENTUALLY(on.presenter.isOn(mode) == expected);
        }
    }
}

void ToolbarScenarios::screenReadersPressAsThePointerClicks()
{
    ToolbarPresentation on;
    const auto press = [&](const QString &name, int index = 0) {
        return on.presenter.reader().press(on.presenter.button(name, index));
    };
    QVERIFY(press(button::kDraw));
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.presenter.isOn(button::kDraw));
    QVERIFY(press(button::kRectangle));
    QVERIFY(press(button::kColor, 3));
    EVENTUALLY(on.presenter.isOn(button::kRectangle) && on.presenter.isOn(button::kColor, 3));
    QVERIFY(!on.presenter.isOn(button::kPen));
    QVERIFY(on.session.pointer().drag({kStrokePlace, kStrokePlace + QPoint(100, 100)}));
    EVENTUALLY(on.pixel(kStrokePlace + QPoint(100, 50)) == QColor(0x34, 0xC7, 0x59));
    QVERIFY(press(button::kUndo));
    EVENTUALLY(on.isSlideUntouched());
    QVERIFY(press(button::kDraw));
    EVENTUALLY(on.beneath.hasFocus());
    QVERIFY(!on.presenter.isOn(button::kDraw));
}

void ToolbarScenarios::quitEndsTheProgram()
{
    ToolbarPresentation on;
    QVERIFY(on.presenter.click(button::kDraw));
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.presenter.click(button::kQuit));
    QCOMPARE(on.program.waitForExit(), std::optional(0));
    QVERIFY(on.program.output().isEmpty());
    EVENTUALLY(on.isUntouched(VirtualDisplay::kFullHd));
    EVENTUALLY(on.beneath.hasFocus());
}

REGISTER_GUILESS_TEST(ToolbarScenarios)
#include "toolbar_scenarios.moc"
