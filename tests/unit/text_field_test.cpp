#include "canvas/text_field.h"
#include "registered_test.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>

using namespace zeigewerk;

namespace {

QString pasted(const QString &text)
{
    TextField field(kOrange);
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    return field.text();
}

/// Where the caret stands: points from the left edge of the field.
double caretPlace(const TextField &field)
{
    return field.inputMethodQuery(Qt::ImCursorRectangle).toRectF().left();
}

} // namespace

class TextFieldTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFieldIsAWhiteBoxInTheGivenColour();
    void withoutACompositorTheFieldIsSolid();
    void aSelectionIsLegible();
    void theTextStandsNearTheLowerLeftCorner();
    void aRightClickOpensTheMenuAndNoOther();
    void theMenuClosesWithTheField();
    void ctrlAndSuperAreTheSameCommand_data();
    void ctrlAndSuperAreTheSameCommand();
    void superWritesNoLetters();
    void returnEntersAndEscCancels();
    void whatIsBeingComposedIsTakenOver();
    void theWheelIsPassedOn();
    void keysOfTheCanvasAreTypedHere();
    void whateverIsPastedStaysOneLine();
    void arrowsGoWhereTheyPoint_data();
    void arrowsGoWhereTheyPoint();
    void homeAndEndAreTheEndsOfTheText();
};

void TextFieldTest::theFieldIsAWhiteBoxInTheGivenColour()
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

void TextFieldTest::withoutACompositorTheFieldIsSolid()
{
    TextField field(kOrange);
    field.setComposited(false);
    QCOMPARE(field.palette().color(QPalette::Base), QColor(Qt::white));
    field.setComposited(true);
    QCOMPARE(field.palette().color(QPalette::Base).alphaF(), 0.9F);
}

void TextFieldTest::aSelectionIsLegible()
{
    for (const Color &color : kPalette) {
        const TextField field(color);
        const QColor ground = field.palette().color(QPalette::Highlight);
        const QColor text = field.palette().color(QPalette::HighlightedText);
        QVERIFY(text.lightnessF() - ground.lightnessF() > 0.7F);
    }
}

void TextFieldTest::theTextStandsNearTheLowerLeftCorner()
{
    const TextField field(kOrange);
    QCOMPARE(field.lineOrigin().x(), 2.0);
    QVERIFY(std::abs(field.lineOrigin().y() - 4.0) <= 0.5);
}

void TextFieldTest::aRightClickOpensTheMenuAndNoOther()
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

void TextFieldTest::ctrlAndSuperAreTheSameCommand_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Ctrl") << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("Super") << Qt::KeyboardModifiers(Qt::MetaModifier);
    QTest::newRow("both") << (Qt::ControlModifier | Qt::MetaModifier);
}

void TextFieldTest::ctrlAndSuperAreTheSameCommand()
{
    QFETCH(Qt::KeyboardModifiers, modifiers);
    TextField field(kOrange);
    QTest::keyClicks(&field, QStringLiteral("abc"));
    QTest::keyClick(&field, Qt::Key_A, modifiers);
    QCOMPARE(field.selectedText(), QStringLiteral("abc"));
    QTest::keyClick(&field, Qt::Key_X, modifiers);
    QCOMPARE(field.text(), QString());
    QTest::keyClick(&field, Qt::Key_V, modifiers);
    QTest::keyClick(&field, Qt::Key_V, modifiers);
    QCOMPARE(field.text(), QStringLiteral("abcabc"));
    QTest::keyClick(&field, Qt::Key_Z, modifiers);
    QVERIFY(field.text() != QStringLiteral("abcabc"));
    QTest::keyClick(&field, Qt::Key_Z, modifiers | Qt::ShiftModifier);
    QCOMPARE(field.text(), QStringLiteral("abcabc"));
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(&field, Qt::Key_A, modifiers);
    QTest::keyClick(&field, Qt::Key_C, modifiers);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("abcabc"));
}

void TextFieldTest::superWritesNoLetters()
{
    TextField field(kOrange);
    for (const int key : {Qt::Key_B, Qt::Key_Q, Qt::Key_S, Qt::Key_Z})
        QTest::sendKeyEvent(QTest::Click, &field, Qt::Key(key), QString(QChar(key).toLower()),
                            Qt::MetaModifier);
    QCOMPARE(field.text(), QString());
}

void TextFieldTest::returnEntersAndEscCancels()
{
    TextField field(kOrange);
    QSignalSpy entered(&field, &TextField::entered);
    QSignalSpy cancelled(&field, &TextField::cancelled);
    QTest::keyClick(&field, Qt::Key_Return);
    QTest::keyClick(&field, Qt::Key_Enter);
    QCOMPARE(entered.count(), 2);
    QCOMPARE(cancelled.count(), 0);
    QTest::keyClick(&field, Qt::Key_Escape);
    QCOMPARE(entered.count(), 2);
    QCOMPARE(cancelled.count(), 1);
}

void TextFieldTest::whatIsBeingComposedIsTakenOver()
{
    TextField field(kOrange);
    QTest::keyClicks(&field, QStringLiteral("a"));
    QInputMethodEvent composing(QStringLiteral("にほん"), {});
    QCoreApplication::sendEvent(&field, &composing);
    QCOMPARE(field.text(), QStringLiteral("a"));
    field.commitComposition();
    QCOMPARE(field.text(), QStringLiteral("aにほん"));
    field.commitComposition();
    QCOMPARE(field.text(), QStringLiteral("aにほん"));
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
    // As Qt has them on X11: pixels for every axis that counts in large numbers, and while Alt is held, the
    // axes in each other's place.
    scroll({}, {0, -120}, {});
    scroll({0, 120}, {0, 120}, {});
    scroll({240, 0}, {240, 0}, Qt::AltModifier);
    scroll({0, 40}, {0, 40}, {});
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

void TextFieldTest::keysOfTheCanvasAreTypedHere()
{
    using platform::KeyEvent;
    using platform::Modifier;
    TextField field(kOrange);
    QSignalSpy entered(&field, &TextField::entered);
    QSignalSpy cancelled(&field, &TextField::cancelled);
    for (const char32_t character : {U'G', U'ü', U'😀', U'x', U'\b', U' '})
        field.keyDown(KeyEvent{.character = character, .modifiers = {}});
    field.keyDown(KeyEvent{.character = 0, .modifiers = {}}); // Shift by itself
    QCOMPARE(field.text(), QStringLiteral("Gü😀 "));
    field.keyDown(KeyEvent{.character = U'z', .modifiers = Modifier::Super});
    QVERIFY(field.text() != QStringLiteral("Gü😀 "));
    field.keyDown(KeyEvent{.character = U'\r', .modifiers = {}});
    QCOMPARE(entered.count(), 1);
    field.keyDown(KeyEvent{.isEscape = true, .character = 0x1B, .modifiers = {}});
    QCOMPARE(cancelled.count(), 1);
}

void TextFieldTest::whateverIsPastedStaysOneLine()
{
    QCOMPARE(pasted(QString(10'000, u'x')), QString(10'000, u'x'));
    QCOMPARE(pasted(QStringLiteral("😀🏳️‍🌈")), QStringLiteral("😀🏳️‍🌈"));
    // A line edit keeps these. For the line end and \x01 it shows a space.
    const QString lines = QStringLiteral("eins\nzwei\tdrei\x01");
    QCOMPARE(pasted(lines).size(), lines.size());
    const QString lone = QStringLiteral("a") + QChar(0xD83D) + QStringLiteral("b");
    QCOMPARE(pasted(lone).size(), 3);
}

void TextFieldTest::arrowsGoWhereTheyPoint_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("from left to right") << QStringLiteral("Welt");
    QTest::newRow("from right to left") << QStringLiteral("שלום");
    QTest::newRow("both, begun from the left") << QStringLiteral("abc שלום def");
    QTest::newRow("both, begun from the right") << QStringLiteral("שלום abc עולם");
    QTest::newRow("ended the other way") << QStringLiteral("abc שלום");
}

void TextFieldTest::arrowsGoWhereTheyPoint()
{
    QFETCH(QString, text);
    TextField field(kOrange);
    field.setText(text);
    const auto steps = [&field](Qt::Key key) {
        QList<double> places;
        for (double place = caretPlace(field); places.isEmpty() || place != places.last();) {
            places.append(place);
            QTest::keyClick(&field, key);
            place = caretPlace(field);
        }
        return places;
    };
    steps(Qt::Key_Left);
    const QList<double> toTheRight = steps(Qt::Key_Right);
    QCOMPARE(toTheRight.size(), text.size() + 1);
    QVERIFY(std::is_sorted(toTheRight.begin(), toTheRight.end()));
    const QList<double> toTheLeft = steps(Qt::Key_Left);
    QCOMPARE(toTheLeft.size(), text.size() + 1);
    QVERIFY(std::is_sorted(toTheLeft.rbegin(), toTheLeft.rend()));
}

void TextFieldTest::homeAndEndAreTheEndsOfTheText()
{
    for (const QString &text : {QStringLiteral("Welt"), QStringLiteral("שלום")}) {
        TextField field(kOrange);
        field.setText(text);
        QTest::keyClick(&field, Qt::Key_Home);
        const double first = caretPlace(field);
        QTest::keyClick(&field, Qt::Key_End);
        const double last = caretPlace(field);
        // A text that runs to the left begins at its right.
        QCOMPARE(first > last, text.isRightToLeft());
        QTest::keyClick(&field, Qt::Key_Home, Qt::ShiftModifier);
        QCOMPARE(field.selectedText(), text);
    }
}

REGISTER_TEST(TextFieldTest)
#include "text_field_test.moc"
