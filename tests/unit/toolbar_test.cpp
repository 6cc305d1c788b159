// How the toolbar is laid out: its buttons, rows and dimensions.

#include "registered_test.h"
#include "toolbar/bar.h"
#include "toolbar/symbols.h"
#include "toolbar_fixture.h"

#include <QTest>

#include <algorithm>

using namespace zeigewerk;
using namespace zeigewerk::test;

namespace {

/// The visible children of the panel, row by row from the top, each row from the left.
QList<QList<QWidget *>> rowsOf(const Panel &panel)
{
    QList<QWidget *> children = panel.findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    std::sort(children.begin(), children.end(), [](QWidget *a, QWidget *b) {
        return std::pair(a->geometry().center().y(), a->x()) < std::pair(b->geometry().center().y(), b->x());
    });
    QList<QList<QWidget *>> rows;
    for (QWidget *child : children) {
        if (rows.isEmpty() || rows.back().back()->geometry().bottom() < child->y())
            rows.append(QList<QWidget *>());
        rows.back().append(child);
    }
    return rows;
}

QString nameOf(const QWidget *widget)
{
    return qobject_cast<const PalButton *>(widget) ? widget->accessibleName() : QStringLiteral("bar");
}

struct ToolbarRow
{
    QSize size;
    int spacing;
    QStringList names;
};

const QSize kButton(40, 32);
const QSize kSmall(28, 26);
const QSize kSwatch(18, 18);
const QSize kSeparator(84, 1);

const QList<ToolbarRow> &expectedRows()
{
    // A table, one row per line where it fits.
    // clang-format off
    static const QList<ToolbarRow> rows = {
        {{36, 5}, 0, {"bar"}},
        {kButton, 6, {"Zeichnen ein/aus (⌃⌥D)", "Whiteboard (⌃⌥W)"}},
        {kButton, 6, {"Spotlight (⌃⌥S) — Größe ändern: ⌥ + Scrollen",
                      "Cursor-Ring: Mauszeiger dauerhaft hervorheben"}},
        {kButton, 6, {"Klicks anzeigen (⌃⌥K)", "Auto-Fade: Zeichnungen lösen sich nach 4 Sekunden auf"}},
        {kButton, 0, {"Zeichnung anpinnen: bleibt stehen, Klicks gehen durch (⌃⌥P)"}},
        {kSeparator, 0, {"bar"}},
        {kButton, 6, {"Stift", "Textmarker"}},
        {kButton, 6, {"Linie", "Pfeil"}},
        {kButton, 6, {"Rechteck", "Ellipse"}},
        {kButton, 6, {"Text (klicken, tippen, Enter)", "Rückgängig (⌘Z)"}},
        {kSeparator, 0, {"bar"}},
        {kSwatch, 5, {"Farbe", "Farbe", "Farbe", "Farbe"}},
        {kSwatch, 5, {"Farbe", "Farbe", "Farbe", "Farbe"}},
        {{26, 24}, 5, {"Strichstärke", "Strichstärke", "Strichstärke"}},
        {kSeparator, 0, {"bar"}},
        {kSmall, 5, {"Werkzeugleiste hell/dunkel",
                     "Alles löschen",
                     "Leiste ausblenden — wieder einblenden mit ⌃⌥T oder übers Menüleisten-Symbol",
                     "Zeigewerk beenden"}},
    };
    // clang-format on
    return rows;
}

} // namespace

class ToolbarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theSixteenRowsAreLaidOutAsDesigned();
    void theBottomMarginIsALittleLarger();
    void eachButtonShowsItsSymbol_data();
    void eachButtonShowsItsSymbol();
    void eachTooltipIsTheNameOfItsButton();
    void tagsNumberTheChoices();
    void widthButtonsShowDotsFourPointsWiderThanTheLine();
    void modeAndToolButtonsHaveRoundedCorners();
    void thePanelIsShownAtStartup();
};

void ToolbarTest::theSixteenRowsAreLaidOutAsDesigned()
{
    Controller controller;
    const auto rows = rowsOf(*controller.app().toolbar()->panel);
    QCOMPARE(rows.size(), 16);
    for (int i = 0; i < rows.size(); ++i) {
        const ToolbarRow &expected = expectedRows().at(i);
        QStringList names;
        for (const QWidget *widget : rows.at(i)) {
            names.append(nameOf(widget));
            QCOMPARE(widget->size(), expected.size);
        }
        QCOMPARE(names, expected.names);
        for (int column = 1; column < rows.at(i).size(); ++column)
            QCOMPARE(rows[i][column]->x() - rows[i][column - 1]->geometry().right() - 1, expected.spacing);
        if (i > 0)
            QCOMPARE(rows[i][0]->y() - rows[i - 1][0]->geometry().bottom() - 1, 7);
        // Centred to within half a point.
        const int left = rows[i].front()->x();
        const int right = controller.app().toolbar()->panel->width() - rows[i].back()->geometry().right() - 1;
        QVERIFY(std::abs(left - right) <= 1);
    }
}

void ToolbarTest::theBottomMarginIsALittleLarger()
{
    Controller controller;
    const Panel &panel = *controller.app().toolbar()->panel;
    const auto rows = rowsOf(panel);
    const QRect frame = panel.frameRect();
    QCOMPARE(rows.front().front()->y() - frame.top(), 10);
    QCOMPARE(frame.bottom() - rows.back().front()->geometry().bottom(), 12);
    // The last row is the widest, so it determines the width.
    QCOMPARE(rows.back().front()->x() - frame.left(), 12);
    QCOMPARE(frame.right() - rows.back().back()->geometry().right(), 12);
    QCOMPARE(frame.size(), QSize(4 * 28 + 3 * 5 + 24, 477));
}

void ToolbarTest::eachButtonShowsItsSymbol_data()
{
    QTest::addColumn<QString>("symbol");
    const auto row = [](const char *name, const char *symbol) {
        QTest::newRow(name) << QString::fromLatin1(symbol);
    };
    row("Zeichnen ein/aus (⌃⌥D)", "pencil.tip.crop.circle");
    row("Whiteboard (⌃⌥W)", "rectangle.inset.filled");
    row("Spotlight (⌃⌥S) — Größe ändern: ⌥ + Scrollen", "flashlight.on.fill");
    row("Klicks anzeigen (⌃⌥K)", "cursorarrow.click.2");
    row("Cursor-Ring: Mauszeiger dauerhaft hervorheben", "cursorarrow.rays");
    row("Auto-Fade: Zeichnungen lösen sich nach 4 Sekunden auf", "timer");
    row("Zeichnung anpinnen: bleibt stehen, Klicks gehen durch (⌃⌥P)", "pin.fill");
    row("Stift", "pencil");
    row("Textmarker", "highlighter");
    row("Linie", "line.diagonal");
    row("Pfeil", "arrow.up.right");
    row("Rechteck", "rectangle");
    row("Ellipse", "circle");
    row("Text (klicken, tippen, Enter)", "textformat");
    row("Rückgängig (⌘Z)", "arrow.uturn.backward");
    row("Werkzeugleiste hell/dunkel", "sun.max.fill");
    row("Alles löschen", "trash");
    row("Leiste ausblenden — wieder einblenden mit ⌃⌥T oder übers Menüleisten-Symbol", "eye.slash");
    row("Zeigewerk beenden", "power");
}

void ToolbarTest::eachButtonShowsItsSymbol()
{
    QFETCH(QString, symbol);
    Controller controller;
    const PalButton *button = named(*controller.app().toolbar(), QTest::currentDataTag());
    QVERIFY(button);
    QVERIFY(button->image());
    const auto expected = symbolImage(symbol);
    QVERIFY(expected);
    QCOMPARE(painted(*button->image()), painted(*expected));
    QVERIFY(button->text().isEmpty());
}

void ToolbarTest::eachTooltipIsTheNameOfItsButton()
{
    Controller controller;
    const Toolbar &bar = *controller.app().toolbar();
    for (const PalButton *button : bar.allButtons()) {
        if (button != bar.btnDark)
            QCOMPARE(button->toolTip(), button->accessibleName());
    }
    QCOMPARE(bar.allButtons().size(), 7U + 7U + 8U + 3U + 5U);
}

void ToolbarTest::tagsNumberTheChoices()
{
    Controller controller;
    const Toolbar &bar = *controller.app().toolbar();
    QCOMPARE(bar.toolButtons.size(), 7U);
    for (const auto &[tool, button] : bar.toolButtons)
        QCOMPARE(button->tag(), tool.rawValue());
    QCOMPARE(bar.colorButtons.size(), 8U);
    for (int i = 0; i < 8; ++i) {
        const PalButton *swatch = bar.colorButtons.at(static_cast<std::size_t>(i));
        QCOMPARE(swatch->tag(), i);
        QVERIFY(swatch->layer().background == kPalette.at(static_cast<std::size_t>(i)));
        QCOMPARE(swatch->layer().cornerRadius, 9.0);
    }
    QCOMPARE(bar.widthButtons.size(), 3U);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(bar.widthButtons.at(static_cast<std::size_t>(i))->tag(), i);
    QStringList misc;
    for (const PalButton *button : bar.miscButtons)
        misc.append(button->accessibleName().section(QLatin1Char(' '), 0, 0));
    QCOMPARE(misc, QStringList({"Rückgängig", "Alles", "Leiste", "Zeigewerk"}));
}

void ToolbarTest::widthButtonsShowDotsFourPointsWiderThanTheLine()
{
    Controller controller;
    const auto &buttons = controller.app().toolbar()->widthButtons;
    const QList<int> diameters = {7, 9, 13};
    for (int i = 0; i < 3; ++i) {
        const TemplateImage &dot = *buttons.at(static_cast<std::size_t>(i))->image();
        QCOMPARE(dot.size(), QSizeF(20, 20));
        // Enlarged tenfold, the margin shows to a tenth of a point.
        QImage picture(200, 200, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.scale(10, 10);
        dot.paint(painter, {0, 0}, Qt::black);
        painter.end();
        const int margin = (200 - 10 * diameters.at(i)) / 2;
        QCOMPARE(picture.pixelColor(margin - 2, 100).alpha(), 0);
        QCOMPARE(picture.pixelColor(margin + 2, 100).alpha(), 255);
        QCOMPARE(picture.pixelColor(100, 200 - margin + 2).alpha(), 0);
        QCOMPARE(picture.pixelColor(100, 200 - margin - 3).alpha(), 255);
    }
}

void ToolbarTest::modeAndToolButtonsHaveRoundedCorners()
{
    Controller controller;
    const Toolbar &bar = *controller.app().toolbar();
    QCOMPARE(bar.btnDraw->layer().cornerRadius, 8.0);
    QCOMPARE(bar.toolButtons.at(Tool::text)->layer().cornerRadius, 8.0);
    QCOMPARE(bar.undoButton()->layer().cornerRadius, 8.0);
    QCOMPARE(bar.btnDark->layer().cornerRadius, 8.0);
    QCOMPARE(bar.widthButtons.front()->layer().cornerRadius, 7.0);
}

void ToolbarTest::thePanelIsShownAtStartup()
{
    Controller controller;
    QVERIFY(controller.app().toolbar()->window->isVisible());
    QVERIFY(controller.desktop.takeLog().contains(QStringLiteral("toolbar 0: order front")));
}

REGISTER_TEST(ToolbarTest)
#include "toolbar_test.moc"
