// Text that an input method is still composing.

#include "registered_test.h"
#include "writing_fixture.h"

#include <QInputMethodEvent>

using namespace zeigewerk;
using test::Writing;

namespace {

/// Does what an input method does: it shows what it is composing, and commits what is done.
void compose(TextField &field, const QString &shown, const QString &done = {})
{
    QInputMethodEvent event(shown, {});
    event.setCommitString(done);
    QCoreApplication::sendEvent(&field, &event);
}

} // namespace

class TextCompositionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPressCommitsTheComposition();
    void aCompositionIsCommittedOnce();
    void returnCommitsTheComposition();
    void escDiscardsTheComposition();
    void committingACompositionAppendsItsText();
};

void TextCompositionTest::aPressCommitsTheComposition()
{
    Writing writing;
    TextField &field = writing.open();
    writing.type(QStringLiteral("a"));
    compose(field, QStringLiteral("にほん"));
    writing.open({400, 400});
    QCOMPARE(writing.texts(), QStringList{"aにほん"});
}

void TextCompositionTest::aCompositionIsCommittedOnce()
{
    Writing writing;
    TextField &field = writing.open();
    writing.type(QStringLiteral("a"));
    for (const QString &shown : {QStringLiteral("n"), QStringLiteral("に")})
        compose(field, shown);
    QCOMPARE(field.text(), QStringLiteral("a"));
    compose(field, {}, QStringLiteral("日"));
    QCOMPARE(field.text(), QStringLiteral("a日"));
    writing.type(QStringLiteral("b"));
    writing.press(Qt::Key_Return);
    QCOMPARE(writing.texts(), QStringList{"a日b"});
}

void TextCompositionTest::returnCommitsTheComposition()
{
    // An input method that does not use the key itself.
    Writing writing;
    compose(writing.open(), QStringLiteral("にほん"));
    writing.press(Qt::Key_Return);
    QVERIFY(writing.view().textField() == nullptr);
    QCOMPARE(writing.texts(), QStringList{"にほん"});
}

void TextCompositionTest::escDiscardsTheComposition()
{
    Writing writing;
    compose(writing.open(), QStringLiteral("にほん"));
    writing.press(Qt::Key_Escape);
    QVERIFY(writing.view().textField() == nullptr);
    QCOMPARE(writing.texts(), QStringList());
    QVERIFY(writing.app().drawOn());
    // The next field is empty, too.
    writing.open();
    writing.press(Qt::Key_Return);
    QCOMPARE(writing.texts(), QStringList());
}

void TextCompositionTest::committingACompositionAppendsItsText()
{
    TextField field(kOrange);
    QTest::keyClicks(&field, QStringLiteral("a"));
    compose(field, QStringLiteral("にほん"));
    QCOMPARE(field.text(), QStringLiteral("a"));
    field.commitComposition();
    QCOMPARE(field.text(), QStringLiteral("aにほん"));
    field.commitComposition();
    QCOMPARE(field.text(), QStringLiteral("aにほん"));
}

REGISTER_TEST(TextCompositionTest)
#include "text_composition_test.moc"
