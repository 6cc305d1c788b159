#include "canvas/text_field.h"
#include "registered_test.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QTest>
#include <QWheelEvent>

using namespace zeigewerk;

namespace {

QString pasted(const QString &text)
{
    TextField field(kOrange);
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    return field.text();
}

} // namespace

class TextFieldTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFieldIsAWhiteBoxWithTextInTheGivenColour();
    void withoutACompositorTheFieldIsOpaque();
    void selectedTextIsLegible();
    void theTextIsNearTheLowerLeftCorner();
    void aRightClickOpensOnlyTheEditMenu();
    void theMenuClosesWithTheField();
    void theWheelIsPassedOn();
    void anyPastedTextStaysOnOneLine();
};

void TextFieldTest::theFieldIsAWhiteBoxWithTextInTheGivenColour()
{
    TextField field(kOrange);
    QCOMPARE(field.size(), QSize(340, 32));
    QVERIFY(!field.hasFrame());
    QCOMPARE(field.placeholderText(), QStringLiteral("Text eingeben…"));
    QVERIFY(field.font().bold());
    QCOMPARE(field.font().pixelSize(), 22);
    field.setComposited(true);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(field.palette().color(group, QPalette::Text), QColor(0xF2, 0x9A, 0x00));
        QCOMPARE(field.palette().color(group, QPalette::Base), QColor::fromRgbF(1, 1, 1, 0.9F));
    }
}

void TextFieldTest::withoutACompositorTheFieldIsOpaque()
{
    TextField field(kOrange);
    field.setComposited(false);
    QCOMPARE(field.palette().color(QPalette::Base), QColor(Qt::white));
    field.setComposited(true);
    QCOMPARE(field.palette().color(QPalette::Base).alphaF(), 0.9F);
}

void TextFieldTest::selectedTextIsLegible()
{
    for (const Color &color : kPalette) {
        const TextField field(color);
        const QColor background = field.palette().color(QPalette::Highlight);
        const QColor text = field.palette().color(QPalette::HighlightedText);
        QVERIFY(text.lightnessF() - background.lightnessF() > 0.7F);
    }
}

void TextFieldTest::theTextIsNearTheLowerLeftCorner()
{
    const TextField field(kOrange);
    QCOMPARE(field.lineOrigin().x(), 2.0);
    QVERIFY(std::abs(field.lineOrigin().y() - 4.0) <= 0.5);
}

void TextFieldTest::aRightClickOpensOnlyTheEditMenu()
{
    TextField field(kOrange);
    field.show();
    QContextMenuEvent rightClick(QContextMenuEvent::Mouse, QPoint(5, 5), field.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&field, &rightClick);
    QVERIFY(field.menu().isVisible());
    QVERIFY(rightClick.isAccepted());
    QCOMPARE(field.findChildren<QMenu *>().size(), 0);
}

void TextFieldTest::theMenuClosesWithTheField()
{
    TextField field(kOrange);
    field.show();
    field.menu().popup(QPoint(10, 10));
    QVERIFY(field.menu().isVisible());
    field.hide();
    QVERIFY(!field.menu().isVisible());
}

void TextFieldTest::theWheelIsPassedOn()
{
    TextField field(kOrange);
    QList<platform::ScrollEvent> scrolls;
    connect(&field, &TextField::scrolled, &field,
            [&scrolls](const platform::ScrollEvent &event) { scrolls.append(event); });
    const auto scroll = [&field](QPoint pixels, QPoint angle, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event(QPointF(5, 5), QPointF(5, 5), pixels, angle, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&field, &event);
    };
    // Qt on X11 reports pixels for devices with a fine resolution, and swaps the axes while Alt is held.
    scroll({}, {0, -120}, {});
    scroll({0, 120}, {0, 120}, {});
    scroll({240, 0}, {240, 0}, Qt::AltModifier);
    scroll({0, 40}, {0, 40}, {});
    // Along the other axis: not passed on.
    scroll({}, {120, 0}, {});
    scroll({}, {0, 120}, Qt::AltModifier);
    QCOMPARE(scrolls.size(), 4);
    const QList<double> distances = {-1.0, 1.0, 2.0, 5.0};
    for (qsizetype i = 0; i < scrolls.size(); ++i) {
        QCOMPARE(scrolls[i].distance, distances[i]);
        QCOMPARE(scrolls[i].isPrecise, i == 3);
        QCOMPARE(scrolls[i].modifiers.testFlag(platform::Modifier::Alt), i == 2);
    }
}

void TextFieldTest::anyPastedTextStaysOnOneLine()
{
    QCOMPARE(pasted(QString(10'000, u'x')), QString(10'000, u'x'));
    QCOMPARE(pasted(QStringLiteral("😀🏳️‍🌈")), QStringLiteral("😀🏳️‍🌈"));
    // A line edit keeps these characters, but shows a space for the line end and for \x01.
    const QString lines = QStringLiteral("eins\nzwei\tdrei\x01");
    QCOMPARE(pasted(lines).size(), lines.size());
    const QString lone = QStringLiteral("a") + QChar(0xD83D) + QStringLiteral("b");
    QCOMPARE(pasted(lone).size(), 3);
}

REGISTER_TEST(TextFieldTest)
#include "text_field_test.moc"
