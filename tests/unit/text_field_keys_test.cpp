// What keys do in the text field.

#include "canvas/text_field.h"
#include "registered_test.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

using namespace zeigewerk;

namespace {

/// The distance of the caret from the left edge of the field, in points.
double caretX(const TextField &field)
{
    return field.inputMethodQuery(Qt::ImCursorRectangle).toRectF().left();
}

} // namespace

class TextFieldKeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ctrlAndSuperWorkAlike_data();
    void ctrlAndSuperWorkAlike();
    void superTypesNoLetters();
    void returnEntersAndEscCancels();
    void keysThatTheCanvasForwardsAreTyped();
    void arrowKeysMoveTheCaretWhereTheyPoint_data();
    void arrowKeysMoveTheCaretWhereTheyPoint();
    void homeAndEndGoToTheEndsOfTheText();
};

void TextFieldKeysTest::ctrlAndSuperWorkAlike_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Ctrl") << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("Super") << Qt::KeyboardModifiers(Qt::MetaModifier);
    QTest::newRow("both") << (Qt::ControlModifier | Qt::MetaModifier);
}

void TextFieldKeysTest::ctrlAndSuperWorkAlike()
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

void TextFieldKeysTest::superTypesNoLetters()
{
    TextField field(kOrange);
    for (const int key : {Qt::Key_B, Qt::Key_Q, Qt::Key_S, Qt::Key_Z})
        QTest::sendKeyEvent(QTest::Click, &field, Qt::Key(key), QString(QChar(key).toLower()),
                            Qt::MetaModifier);
    QCOMPARE(field.text(), QString());
}

void TextFieldKeysTest::returnEntersAndEscCancels()
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

void TextFieldKeysTest::keysThatTheCanvasForwardsAreTyped()
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

void TextFieldKeysTest::arrowKeysMoveTheCaretWhereTheyPoint_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("left to right") << QStringLiteral("Welt");
    QTest::newRow("right to left") << QStringLiteral("שלום");
    QTest::newRow("both, starting left to right") << QStringLiteral("abc שלום def");
    QTest::newRow("both, starting right to left") << QStringLiteral("שלום abc עולם");
    QTest::newRow("ending right to left") << QStringLiteral("abc שלום");
}

void TextFieldKeysTest::arrowKeysMoveTheCaretWhereTheyPoint()
{
    QFETCH(QString, text);
    TextField field(kOrange);
    field.setText(text);
    const auto steps = [&field](Qt::Key key) {
        QList<double> positions;
        for (double position = caretX(field); positions.isEmpty() || position != positions.last();) {
            positions.append(position);
            QTest::keyClick(&field, key);
            position = caretX(field);
        }
        return positions;
    };
    steps(Qt::Key_Left);
    const QList<double> toTheRight = steps(Qt::Key_Right);
    QCOMPARE(toTheRight.size(), text.size() + 1);
    QVERIFY(std::is_sorted(toTheRight.begin(), toTheRight.end()));
    const QList<double> toTheLeft = steps(Qt::Key_Left);
    QCOMPARE(toTheLeft.size(), text.size() + 1);
    QVERIFY(std::is_sorted(toTheLeft.rbegin(), toTheLeft.rend()));
}

void TextFieldKeysTest::homeAndEndGoToTheEndsOfTheText()
{
    for (const QString &text : {QStringLiteral("Welt"), QStringLiteral("שלום")}) {
        TextField field(kOrange);
        field.setText(text);
        QTest::keyClick(&field, Qt::Key_Home);
        const double first = caretX(field);
        QTest::keyClick(&field, Qt::Key_End);
        const double last = caretX(field);
        // Text from right to left begins on the right.
        QCOMPARE(first > last, text.isRightToLeft());
        QTest::keyClick(&field, Qt::Key_Home, Qt::ShiftModifier);
        QCOMPARE(field.selectedText(), text);
    }
}

REGISTER_TEST(TextFieldKeysTest)
#include "text_field_keys_test.moc"
