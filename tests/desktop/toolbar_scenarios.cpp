// What the buttons of the toolbar do.
#include "registered_test.h"
#include "toolbar_presentation.h"

#include <algorithm>

using namespace zeigewerk::rig;

namespace {

constexpr QPoint kStrokePlace(400, 300);
constexpr QPoint kOtherStrokePlace(400, 500);

/// From top to bottom, and from left to right.
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
    void everyButtonIsExposedToScreenReaders();
    void drawingIsTurnedOnAndOff();
    void theWhiteboardIsTurnedOnAndOff();
    void theSpotlightIsTurnedOnAndOff();
    void theRingIsTurnedOnAndOff();
    void pinningKeepsTheDrawingAndLetsClicksThrough();
    void undoAndClearRemoveShapes();
    void clicksAndFadeAreTurnedOnAndOff();
    void screenReadersCanPressButtons();
    void quitEndsTheProgram();
};

void ToolbarScenarios::everyButtonIsExposedToScreenReaders()
{
    using namespace button;
    ToolbarPresentation show;
    QStringList expected = {kDraw,        kWhiteboard, kSpotlight, kRing,      kClicks,  kFade, kPin, kPen,
                            kHighlighter, kLine,       kArrow,     kRectangle, kEllipse, kText, kUndo};
    expected += QStringList(8, kColor) + QStringList(3, kWidth);
    expected += {kAppearance, kClear, kHide, kQuit};
    const QStringList toggles = expected.mid(0, 7);
    const QStringList actions = {kUndo, kAppearance, kClear, kHide, kQuit};

    const QList<AccessibleButton> buttons = inReadingOrder(show.presenter.buttons());
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
    // The pen, orange, and the medium width.
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
    ToolbarPresentation show;
    QVERIFY(show.presenter.click(button::kDraw));
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.presenter.isOn(button::kDraw));
    QVERIFY(show.strokeFrom(kStrokePlace));
    EVENTUALLY(show.strokeColor(kStrokePlace) == kInk);

    QVERIFY(show.presenter.click(button::kDraw));
    EVENTUALLY(show.beneath.hasFocus());
    EVENTUALLY(show.isSlideUntouched());
    QVERIFY(!show.presenter.isOn(button::kDraw));
    QVERIFY(show.session.pointer().clickAt(kStrokePlace));
    EVENTUALLY(show.beneath.presses() == QList<QPoint>{kStrokePlace});
}

void ToolbarScenarios::theWhiteboardIsTurnedOnAndOff()
{
    ToolbarPresentation show;
    QVERIFY(show.presenter.click(button::kWhiteboard));
    EVENTUALLY(show.session.screenshot().isFilled(Qt::white, ToolbarPresentation::kLeftOfToolbar));
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.presenter.isOn(button::kWhiteboard));
    QVERIFY(!show.presenter.isOn(button::kDraw));
    QVERIFY(show.strokeFrom(kStrokePlace));
    EVENTUALLY(show.strokeColor(kStrokePlace) == kInk);

    QVERIFY(show.presenter.click(button::kWhiteboard));
    EVENTUALLY(show.isSlideUntouched());
    QVERIFY(!show.presenter.isOn(button::kWhiteboard));
}

void ToolbarScenarios::theSpotlightIsTurnedOnAndOff()
{
    ToolbarPresentation show;
    QVERIFY(show.presenter.click(button::kSpotlight));
    EVENTUALLY(show.pixel({10, 10}) == dimmed(show.beneathColor()));
    QVERIFY(show.presenter.isOn(button::kSpotlight));
    QVERIFY(show.beneath.hasFocus());
    QVERIFY(show.session.pointer().moveTo(kStrokePlace));
    EVENTUALLY(show.pixel(kStrokePlace) == show.beneathColor());

    QVERIFY(show.presenter.click(button::kSpotlight));
    EVENTUALLY(show.isSlideUntouched());
    QVERIFY(!show.presenter.isOn(button::kSpotlight));
}

void ToolbarScenarios::theRingIsTurnedOnAndOff()
{
    ToolbarPresentation show;
    const auto ring = [](QPoint pointer) { return QRect(pointer - QPoint(28, 28), QSize(56, 56)); };
    QVERIFY(show.presenter.click(button::kRing));
    for (const QPoint place : {kStrokePlace, kOtherStrokePlace}) {
        QVERIFY(show.session.pointer().moveTo(place));
        // Around the pointer, and nowhere else.
        EVENTUALLY(!show.isUntouched(ring(place).adjusted(0, 0, 0, -40)));
        EVENTUALLY(!show.isUntouched(ring(place).adjusted(0, 40, 0, 0)));
        EVENTUALLY(show.isUntouched(ring(place == kStrokePlace ? kOtherStrokePlace : kStrokePlace)));
    }
    QVERIFY(show.presenter.isOn(button::kRing));
    QVERIFY(show.beneath.hasFocus());

    QVERIFY(show.presenter.click(button::kRing));
    EVENTUALLY(!show.presenter.isOn(button::kRing));
    QVERIFY(show.session.pointer().moveTo(kStrokePlace));
    EVENTUALLY(show.isSlideUntouched());
}

void ToolbarScenarios::pinningKeepsTheDrawingAndLetsClicksThrough()
{
    ToolbarPresentation show;
    // There is nothing to pin yet.
    QVERIFY(show.presenter.click(button::kPin));
    QVERIFY(show.presenter.click(button::kDraw));
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(!show.presenter.isOn(button::kPin));
    QVERIFY(show.strokeFrom(kStrokePlace));
    EVENTUALLY(show.strokeColor(kStrokePlace) == kInk);

    QVERIFY(show.presenter.click(button::kPin));
    EVENTUALLY(show.beneath.hasFocus());
    QVERIFY(show.presenter.isOn(button::kPin));
    QVERIFY(!show.presenter.isOn(button::kDraw));
    show.beneath.forget();
    QVERIFY(show.session.pointer().clickAt(kStrokePlace));
    EVENTUALLY(show.beneath.presses() == QList<QPoint>{kStrokePlace});
    QCOMPARE(show.strokeColor(kStrokePlace), kInk);

    // After unpinning, it can be drawn on again.
    QVERIFY(show.presenter.click(button::kPin));
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.presenter.isOn(button::kDraw));
    QVERIFY(!show.presenter.isOn(button::kPin));
    QCOMPARE(show.strokeColor(kStrokePlace), kInk);
}

void ToolbarScenarios::undoAndClearRemoveShapes()
{
    ToolbarPresentation show;
    QVERIFY(show.presenter.click(button::kDraw));
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.strokeFrom(kStrokePlace));
    QVERIFY(show.strokeFrom(kOtherStrokePlace));
    EVENTUALLY(show.strokeColor(kOtherStrokePlace) == kInk);
    QVERIFY(show.presenter.click(button::kUndo));
    EVENTUALLY(show.strokeColor(kOtherStrokePlace) == show.beneathColor());
    QCOMPARE(show.strokeColor(kStrokePlace), kInk);
    QVERIFY(show.presenter.click(button::kUndo));
    EVENTUALLY(show.isSlideUntouched());
    // With nothing left this has no effect. Toolbar and canvas receive input independently, so the test waits
    // until the toolbar has handled a later click.
    QVERIFY(show.presenter.click(button::kUndo));
    QVERIFY(show.presenter.click(button::kWidth, 2));
    EVENTUALLY(show.presenter.isOn(button::kWidth, 2));

    QVERIFY(show.strokeFrom(kStrokePlace));
    QVERIFY(show.strokeFrom(kOtherStrokePlace));
    EVENTUALLY(show.strokeColor(kOtherStrokePlace) == kInk);
    QVERIFY(show.presenter.click(button::kClear));
    EVENTUALLY(show.isSlideUntouched());
    // Drawing is still on.
    QVERIFY(show.hasKeyboard());
    QVERIFY(show.strokeFrom(kStrokePlace));
    EVENTUALLY(show.strokeColor(kStrokePlace) == kInk);
    QCOMPARE(show.strokeColor(kOtherStrokePlace), show.beneathColor());
}

void ToolbarScenarios::clicksAndFadeAreTurnedOnAndOff()
{
    ToolbarPresentation show;
    for (const QString &mode : {button::kClicks, button::kFade}) {
        for (const bool expected : {true, false}) {
            QVERIFY(show.presenter.click(mode));
            EVENTUALLY(show.presenter.isOn(mode) == expected);
        }
    }
}

void ToolbarScenarios::screenReadersCanPressButtons()
{
    ToolbarPresentation show;
    const auto press = [&](const QString &name, int index = 0) {
        return show.presenter.reader().press(show.presenter.button(name, index));
    };
    QVERIFY(press(button::kDraw));
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.presenter.isOn(button::kDraw));
    QVERIFY(press(button::kRectangle));
    QVERIFY(press(button::kColor, 3));
    EVENTUALLY(show.presenter.isOn(button::kRectangle) && show.presenter.isOn(button::kColor, 3));
    QVERIFY(!show.presenter.isOn(button::kPen));
    QVERIFY(show.session.pointer().drag({kStrokePlace, kStrokePlace + QPoint(100, 100)}));
    EVENTUALLY(show.pixel(kStrokePlace + QPoint(100, 50)) == QColor(0x34, 0xC7, 0x59));
    QVERIFY(press(button::kUndo));
    EVENTUALLY(show.isSlideUntouched());
    QVERIFY(press(button::kDraw));
    EVENTUALLY(show.beneath.hasFocus());
    QVERIFY(!show.presenter.isOn(button::kDraw));
}

void ToolbarScenarios::quitEndsTheProgram()
{
    ToolbarPresentation show;
    QVERIFY(show.presenter.click(button::kDraw));
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.presenter.click(button::kQuit));
    QCOMPARE(show.program.waitForExit(), std::optional(0));
    QVERIFY(show.program.output().isEmpty());
    EVENTUALLY(show.isUntouched(VirtualDisplay::kFullHd));
    EVENTUALLY(show.beneath.hasFocus());
}

REGISTER_GUILESS_TEST(ToolbarScenarios)
#include "toolbar_scenarios.moc"
