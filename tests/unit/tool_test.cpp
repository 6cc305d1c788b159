#include "drawing/tool.h"
#include "registered_test.h"

#include <QTest>

#include <limits>
#include <unordered_map>

using zeigewerk::Tool;

class ToolTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thereAreSevenToolsFromPenToText();
    void eachToolHasItsNumberSymbolAndTip_data();
    void eachToolHasItsNumberSymbolAndTip();
    void otherNumbersAreNoTools_data();
    void otherNumbersAreNoTools();
    void onlyPenAndHighlighterAreFreehand();
    void toolsCanBeKeysOfAMap();
};

void ToolTest::thereAreSevenToolsFromPenToText()
{
    QCOMPARE(Tool::allCases.size(), std::size_t{7});
    QCOMPARE(Tool::allCases.front(), Tool(Tool::pen));
    QCOMPARE(Tool::allCases.back(), Tool(Tool::text));
    for (std::size_t i = 0; i < Tool::allCases.size(); ++i)
        QCOMPARE(Tool::allCases.at(i).rawValue(), static_cast<int>(i));
}

void ToolTest::eachToolHasItsNumberSymbolAndTip_data()
{
    QTest::addColumn<Tool>("tool");
    QTest::addColumn<int>("rawValue");
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<QString>("tip");
    const auto row = [](Tool tool, int rawValue, const char *symbol, const QString &tip) {
        QTest::newRow(symbol) << tool << rawValue << QString::fromLatin1(symbol) << tip;
    };
    row(Tool::pen, 0, "pencil", QStringLiteral("Stift"));
    row(Tool::highlighter, 1, "highlighter", QStringLiteral("Textmarker"));
    row(Tool::line, 2, "line.diagonal", QStringLiteral("Linie"));
    row(Tool::arrow, 3, "arrow.up.right", QStringLiteral("Pfeil"));
    row(Tool::rect, 4, "rectangle", QStringLiteral("Rechteck"));
    row(Tool::ellipse, 5, "circle", QStringLiteral("Ellipse"));
    row(Tool::text, 6, "textformat", QStringLiteral("Text (klicken, tippen, Enter)"));
}

void ToolTest::eachToolHasItsNumberSymbolAndTip()
{
    QFETCH(const Tool, tool);
    QFETCH(const int, rawValue);
    QCOMPARE(tool.rawValue(), rawValue);
    QVERIFY(Tool::fromRawValue(rawValue) == tool);
    QTEST(tool.symbol(), "symbol");
    QTEST(tool.tip(), "tip");
}

void ToolTest::otherNumbersAreNoTools_data()
{
    QTest::addColumn<int>("rawValue");
    for (const int rawValue :
         {7, -1, 8, 256, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        QTest::addRow("%d", rawValue) << rawValue;
}

void ToolTest::otherNumbersAreNoTools()
{
    QFETCH(const int, rawValue);
    QVERIFY(!Tool::fromRawValue(rawValue).has_value());
}

void ToolTest::onlyPenAndHighlighterAreFreehand()
{
    for (const Tool tool : Tool::allCases)
        QCOMPARE(tool.isFreehand(), tool == Tool::pen || tool == Tool::highlighter);
}

void ToolTest::toolsCanBeKeysOfAMap()
{
    std::unordered_map<Tool, int> numbers;
    for (const Tool tool : Tool::allCases)
        numbers[tool] = tool.rawValue();
    QCOMPARE(numbers.size(), Tool::allCases.size());
    QCOMPARE(numbers.at(Tool::rect), 4);
}

REGISTER_APPLESS_TEST(ToolTest)
#include "tool_test.moc"
