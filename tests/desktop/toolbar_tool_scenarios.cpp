// Strokes with the tool, colour and width that were picked on the toolbar.
#include "registered_test.h"
#include "toolbar_presentation.h"

#include <array>

using namespace zeigewerk::rig;

namespace {

constexpr std::array kPalette = {QColor(0xF2, 0x9A, 0x00), QColor(0x18, 0x22, 0x45), QColor(0xFF, 0x3B, 0x30),
                                 QColor(0x34, 0xC7, 0x59), QColor(0xFF, 0xD6, 0x0A), QColor(0x0A, 0x84, 0xFF),
                                 QColor(0xFF, 0xFF, 0xFF), QColor(0x00, 0x00, 0x00)};

/// Down and then to the right, which distinguishes tools that follow the pointer from those that only use its
/// last place.
const QList<QPoint> kCorner = {{400, 300}, {400, 350}, {400, 400}, {500, 400}, {600, 400}};

/// What a tool leaves when dragged along the corner.
struct Mark
{
    QString tool;
    QList<QPoint> inked;
    QList<QPoint> free;
};

// A table, one field per line:
// clang-format off
const QList<Mark> kMarks = {
    {.tool = button::kPen,
     .inked = {{400, 330}, {560, 400}},
     .free = {{500, 350}, {600, 350}}},
    {.tool = button::kLine,
     .inked = {{420, 310}, {500, 350}, {580, 390}},
     .free = {{400, 350}, {500, 400}, {588, 401}, {594, 391}}},
    // The last two inked places are on the arrow's head.
    {.tool = button::kArrow,
     .inked = {{420, 310}, {500, 350}, {588, 401}, {595, 391}},
     .free = {{400, 350}, {500, 400}}},
    {.tool = button::kRectangle,
     .inked = {{400, 300}, {500, 300}, {400, 350}, {600, 350}, {500, 400}, {600, 400}},
     .free = {{500, 350}, {410, 310}}},
    {.tool = button::kEllipse,
     .inked = {{500, 300}, {400, 350}, {600, 350}, {500, 400}},
     .free = {{500, 350}, {400, 300}, {600, 400}}},
};
// clang-format on

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
    void theHighlighterIsWideAndTranslucent();
    void eachColourAppliesToTheNextStroke();
    void eachWidthSetsTheStrokeThickness();
    void pickingAnyToolTurnsDrawingOn();
    void pickingAToolUnpins();
    void pickingAToolLeavesTheWhiteboardAlone();
};

void ToolbarToolScenarios::eachToolDrawsItsMarkInTheChosenColour()
{
    ToolbarPresentation show;
    int color = 2;
    for (const Mark &mark : kMarks) {
        const QColor ink = kPalette.at(static_cast<std::size_t>(color));
        QVERIFY(show.presenter.click(button::kColor, color));
        ++color;
        QVERIFY(show.presenter.click(mark.tool));
        EVENTUALLY(show.hasKeyboard());
        QVERIFY(show.presenter.isOn(mark.tool));
        QVERIFY(show.session.pointer().drag(kCorner));
        EVENTUALLY(haveColor(show.session.screenshot(), mark.inked, ink));
        QVERIFY2(haveColor(show.session.screenshot(), mark.free, show.beneathColor()), qPrintable(mark.tool));
        QVERIFY(show.isUntouched({0, 0, 1700, 280}));
        QVERIFY(show.isUntouched({0, 420, 1700, 600}));
        // Esc removes it and ends drawing.
        show.session.keyboard().tap(Key::Escape);
        EVENTUALLY(show.beneath.hasFocus());
    }
}

void ToolbarToolScenarios::theHighlighterIsWideAndTranslucent()
{
    ToolbarPresentation show;
    QVERIFY(show.presenter.click(button::kHighlighter));
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.strokeFrom({400, 300}));
    // 40 % ink, four times as wide as the pen; the outermost pixels are covered partly.
    const QColor mixed((2 * 0xF2 + 3 * 0x20) / 5, (2 * 0x9A + 3 * 0x60) / 5, (2 * 0x00 + 3 * 0xA0) / 5);
    EVENTUALLY(show.session.screenshot().isFilled(mixed, {400, 292, 100, 17}, 2));
    const QRect around(300, 200, 300, 200);
    QCOMPARE(show.session.screenshot().bounds(mixed, around, 2).height(), 19);
}

void ToolbarToolScenarios::eachColourAppliesToTheNextStroke()
{
    ToolbarPresentation show;
    QVERIFY(show.presenter.click(button::kPen));
    EVENTUALLY(show.hasKeyboard());
    for (int i = 0; i < static_cast<int>(kPalette.size()); ++i) {
        const QColor color = kPalette.at(static_cast<std::size_t>(i));
        QCOMPARE(show.pixel(show.presenter.button(button::kColor, i).extents.center()), color);
        QVERIFY(show.presenter.click(button::kColor, i));
        EVENTUALLY(show.presenter.isOn(button::kColor, i));
        const QPoint place(400, 200 + 40 * i);
        QVERIFY(show.strokeFrom(place));
        EVENTUALLY(show.strokeColor(place) == color);
    }
    // Earlier strokes keep their colour.
    QCOMPARE(show.strokeColor({400, 200}), kPalette.front());
    QVERIFY(!show.presenter.isOn(button::kColor, 0));
}

void ToolbarToolScenarios::eachWidthSetsTheStrokeThickness()
{
    ToolbarPresentation show;
    QVERIFY(show.presenter.click(button::kPen));
    EVENTUALLY(show.hasKeyboard());
    constexpr std::array widths = {3, 5, 9};
    for (int i = 0; i < static_cast<int>(widths.size()); ++i) {
        QVERIFY(show.presenter.click(button::kWidth, i));
        EVENTUALLY(show.presenter.isOn(button::kWidth, i));
        const QPoint place(400, 200 + 100 * i);
        QVERIFY(show.strokeFrom(place));
        EVENTUALLY(show.strokeColor(place) == kInk);
        const QRect column(place.x() + 50, place.y() - 50, 1, 100);
        QCOMPARE(show.session.screenshot().count(kInk, column), widths.at(static_cast<std::size_t>(i)));
        QVERIFY(show.isUntouched({column.left(), column.top(), 1, 40}));
    }
}

void ToolbarToolScenarios::pickingAnyToolTurnsDrawingOn()
{
    using namespace button;
    ToolbarPresentation show;
    for (const QString &tool : {kText, kPen, kHighlighter, kLine, kArrow, kRectangle, kEllipse}) {
        QVERIFY(!show.presenter.isOn(kDraw));
        QVERIFY(show.presenter.click(tool));
        EVENTUALLY(show.hasKeyboard());
        QVERIFY(show.presenter.isOn(kDraw));
        QVERIFY(show.presenter.isOn(tool));
        show.session.keyboard().tap(Key::Escape);
        EVENTUALLY(show.beneath.hasFocus());
    }
    QVERIFY(show.presenter.isOn(kEllipse));
    QVERIFY(!show.presenter.isOn(kText));
}

void ToolbarToolScenarios::pickingAToolUnpins()
{
    ToolbarPresentation show;
    QVERIFY(show.presenter.click(button::kDraw));
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.strokeFrom({400, 300}));
    QVERIFY(show.presenter.click(button::kPin));
    EVENTUALLY(show.beneath.hasFocus());
    QVERIFY(show.presenter.click(button::kLine));
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(!show.presenter.isOn(button::kPin));
    QVERIFY(show.presenter.isOn(button::kDraw));
    // The drawing that was pinned can be continued.
    QVERIFY(show.strokeFrom({400, 500}));
    EVENTUALLY(show.strokeColor({400, 500}) == kInk);
    QCOMPARE(show.strokeColor({400, 300}), kInk);
}

void ToolbarToolScenarios::pickingAToolLeavesTheWhiteboardAlone()
{
    ToolbarPresentation show;
    QVERIFY(show.presenter.click(button::kWhiteboard));
    EVENTUALLY(show.hasKeyboard());
    QVERIFY(show.presenter.click(button::kRectangle));
    EVENTUALLY(show.presenter.isOn(button::kRectangle));
    QVERIFY(!show.presenter.isOn(button::kDraw));
    QVERIFY(show.session.pointer().drag({{400, 300}, {600, 400}}));
    EVENTUALLY(show.pixel({500, 300}) == kInk);
    QCOMPARE(show.pixel({500, 350}), QColor(Qt::white));
}

REGISTER_GUILESS_TEST(ToolbarToolScenarios)
#include "toolbar_tool_scenarios.moc"
