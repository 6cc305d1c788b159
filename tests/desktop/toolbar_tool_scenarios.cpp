// What is drawn with what was chosen on the toolbar.
#include "registered_test.h"
#include "toolbar_presentation.h"

#include <array>

using namespace zeigewerk::rig;

namespace {

constexpr std::array kPalette = {QColor(0xF2, 0x9A, 0x00), QColor(0x18, 0x22, 0x45), QColor(0xFF, 0x3B, 0x30),
                                 QColor(0x34, 0xC7, 0x59), QColor(0xFF, 0xD6, 0x0A), QColor(0x0A, 0x84, 0xFF),
                                 QColor(0xFF, 0xFF, 0xFF), QColor(0x00, 0x00, 0x00)};

/// Down and then to the right, so that what goes along the way is told from what goes straight to its end.
const QList<QPoint> kCorner = {{400, 300}, {400, 350}, {400, 400}, {500, 400}, {600, 400}};

/// What the corner leaves with a tool.
struct Mark
{
    QString tool;
    QList<QPoint> inked;
    QList<QPoint> free;
};

const QList<Mark> kMarks = {
    {button::kPen, {{400, 330}, {560, 400}}, {{500, 350}, {600, 350}}},
    {button::kLine, {{420, 310}, {500, 350}, {580, 390}}, {{400, 350}, {500, 400}, {588, 401}, {594, 391}}},
    // The last two lie on the barbs.
    {button::kArrow, {{420, 310}, {500, 350}, {588, 401}, {595, 391}}, {{400, 350}, {500, 400}}},
    {button::kRectangle,
     {{400, 300}, {500, 300}, {400, 350}, {600, 350}, {500, 400}, {600, 400}},
     {{500, 350}, {410, 310}}},
    {button::kEllipse,
     {{500, 300}, {400, 350}, {600, 350}, {500, 400}},
     {{500, 350}, {400, 300}, {600, 400}}},
};

bool haveColor(const Screenshot &screen, const QList<QPoint> &places, const QColor &color)
{
    return std::all_of(places.begin(), places.end(),
                       [&](QPoint place) { return screen.pixel(place) == color; });
}

} // namespace

class ToolbarToolScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachToolDrawsItsMarkInTheChosenColour();
    void theHighlighterIsWideAndLetsTheSlideThrough();
    void eachColourColoursTheNextStroke();
    void eachWidthMakesTheStrokeThatThick();
    void pickingAnyToolTurnsDrawingOn();
    void pickingAToolEndsThePin();
    void pickingAToolLeavesTheWhiteboardAlone();
};

void ToolbarToolScenarios::eachToolDrawsItsMarkInTheChosenColour()
{
    ToolbarPresentation on;
    int color = 2;
    for (const Mark &mark : kMarks) {
        const QColor ink = kPalette.at(static_cast<std::size_t>(color));
        QVERIFY(on.presenter.click(button::kColor, color));
        ++color;
        QVERIFY(on.presenter.click(mark.tool));
        EVENTUALLY(on.hasKeyboard());
        QVERIFY(on.presenter.isOn(mark.tool));
        QVERIFY(on.session.pointer().drag(kCorner));
        EVENTUALLY(haveColor(on.session.screenshot(), mark.inked, ink));
        QVERIFY2(haveColor(on.session.screenshot(), mark.free, on.beneathColor()), qPrintable(mark.tool));
        QVERIFY(on.isUntouched({0, 0, 1700, 280}));
        QVERIFY(on.isUntouched({0, 420, 1700, 600}));
        // Away with it, and with drawing.
        on.session.keyboard().tap(Key::Escape);
        EVENTUALLY(on.beneath.hasFocus());
    }
}

void ToolbarToolScenarios::theHighlighterIsWideAndLetsTheSlideThrough()
{
    ToolbarPresentation on;
    QVERIFY(on.presenter.click(button::kHighlighter));
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.strokeFrom({400, 300}));
    // Two parts ink on three parts slide, as wide as four pens; the outermost pixels are covered in part.
    const QColor mixed((2 * 0xF2 + 3 * 0x20) / 5, (2 * 0x9A + 3 * 0x60) / 5, (2 * 0x00 + 3 * 0xA0) / 5);
    EVENTUALLY(on.session.screenshot().isFilled(mixed, {400, 292, 100, 17}, 2));
    const QRect around(300, 200, 300, 200);
    QCOMPARE(on.session.screenshot().bounds(mixed, around, 2).height(), 19);
}

void ToolbarToolScenarios::eachColourColoursTheNextStroke()
{
    ToolbarPresentation on;
    QVERIFY(on.presenter.click(button::kPen));
    EVENTUALLY(on.hasKeyboard());
    for (int i = 0; i < static_cast<int>(kPalette.size()); ++i) {
        const QColor color = kPalette.at(static_cast<std::size_t>(i));
        QCOMPARE(on.pixel(on.presenter.button(button::kColor, i).extents.center()), color);
        QVERIFY(on.presenter.click(button::kColor, i));
        EVENTUALLY(on.presenter.isOn(button::kColor, i));
        const QPoint place(400, 200 + 40 * i);
        QVERIFY(on.strokeFrom(place));
        EVENTUALLY(on.strokeColor(place) == color);
    }
    // What was drawn before keeps its colour.
    QCOMPARE(on.strokeColor({400, 200}), kPalette.front());
    QVERIFY(!on.presenter.isOn(button::kColor, 0));
}

void ToolbarToolScenarios::eachWidthMakesTheStrokeThatThick()
{
    ToolbarPresentation on;
    QVERIFY(on.presenter.click(button::kPen));
    EVENTUALLY(on.hasKeyboard());
    constexpr std::array widths = {3, 5, 9};
    for (int i = 0; i < static_cast<int>(widths.size()); ++i) {
        QVERIFY(on.presenter.click(button::kWidth, i));
        EVENTUALLY(on.presenter.isOn(button::kWidth, i));
        const QPoint place(400, 200 + 100 * i);
        QVERIFY(on.strokeFrom(place));
        EVENTUALLY(on.strokeColor(place) == kInk);
        const QRect column(place.x() + 50, place.y() - 50, 1, 100);
        QCOMPARE(on.session.screenshot().count(kInk, column), widths.at(static_cast<std::size_t>(i)));
        QVERIFY(on.isUntouched({column.left(), column.top(), 1, 40}));
    }
}

void ToolbarToolScenarios::pickingAnyToolTurnsDrawingOn()
{
    using namespace button;
    ToolbarPresentation on;
    for (const QString &tool : {kText, kPen, kHighlighter, kLine, kArrow, kRectangle, kEllipse}) {
        QVERIFY(!on.presenter.isOn(kDraw));
        QVERIFY(on.presenter.click(tool));
        EVENTUALLY(on.hasKeyboard());
        QVERIFY(on.presenter.isOn(kDraw));
        QVERIFY(on.presenter.isOn(tool));
        on.session.keyboard().tap(Key::Escape);
        EVENTUALLY(on.beneath.hasFocus());
    }
    QVERIFY(on.presenter.isOn(kEllipse));
    QVERIFY(!on.presenter.isOn(kText));
}

void ToolbarToolScenarios::pickingAToolEndsThePin()
{
    ToolbarPresentation on;
    QVERIFY(on.presenter.click(button::kDraw));
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.strokeFrom({400, 300}));
    QVERIFY(on.presenter.click(button::kPin));
    EVENTUALLY(on.beneath.hasFocus());
    QVERIFY(on.presenter.click(button::kLine));
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(!on.presenter.isOn(button::kPin));
    QVERIFY(on.presenter.isOn(button::kDraw));
    // The pinned drawing is there to be drawn on.
    QVERIFY(on.strokeFrom({400, 500}));
    EVENTUALLY(on.strokeColor({400, 500}) == kInk);
    QCOMPARE(on.strokeColor({400, 300}), kInk);
}

void ToolbarToolScenarios::pickingAToolLeavesTheWhiteboardAlone()
{
    ToolbarPresentation on;
    QVERIFY(on.presenter.click(button::kWhiteboard));
    EVENTUALLY(on.hasKeyboard());
    QVERIFY(on.presenter.click(button::kRectangle));
    EVENTUALLY(on.presenter.isOn(button::kRectangle));
    QVERIFY(!on.presenter.isOn(button::kDraw));
    QVERIFY(on.session.pointer().drag({{400, 300}, {600, 400}}));
    EVENTUALLY(on.pixel({500, 300}) == kInk);
    QCOMPARE(on.pixel({500, 350}), QColor(Qt::white));
}

REGISTER_GUILESS_TEST(ToolbarToolScenarios)
#include "toolbar_tool_scenarios.moc"
