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
    Writing on;
    TextField &field = on.open();
    on.type(QStringLiteral("a"));
    compose(field, QStringLiteral("にほん"));
    on.open({400, 400});
    QCOMPARE(on.texts(), QStringList{"aにほん"});
}

void TextCompositionTest::aCompositionIsCommittedOnce()
{
    Writing on;
    TextField &field = on.open();
    on.type(QStringLiteral("a"));
    for (const QString &shown : {QStringLiteral("n"), QStringLiteral("に")})
        compose(field, shown);
    QCOMPARE(field.text(), QStringLiteral("a"));
    compose(field, {}, QStringLiteral("日"));
    QCOMPARE(field.text(), QStringLiteral("a日"));
    on.type(QStringLiteral("b"));
    on.press(Qt::Key_Return);
    QCOMPARE(on.texts(), QStringList{"a日b"});
}

void TextCompositionTest::returnCommitsTheComposition()
{
    // An input method that does not use the key itself.
    Writing on;
    compose(on.open(), QStringLiteral("にほん"));
    on.press(Qt::Key_Return);
    QVERIFY(on.view().textField() == nullptr);
    QCOMPARE(on.texts(), QStringList{"にほん"});
}

void TextCompositionTest::escDiscardsTheComposition()
{
    Writing on;
    compose(on.open(), QStringLiteral("にほん"));
    on.press(Qt::Key_Escape);
    QVERIFY(on.view().textField() == nullptr);
    QCOMPARE(on.texts(), QStringList());
    QVERIFY(on.app().drawOn());
    // The next field does not have it either.
    on.open();
    on.press(Qt::Key_Return);
    QCOMPARE(on.texts(), QStringList());
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
