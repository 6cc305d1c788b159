// Accents that a presenter types by a dead key and a letter.
#include "registered_test.h"
#include "text_presentation.h"

using namespace zeigewerk::rig;

namespace {

using Environment = QMap<QString, QString>;

/// A German keyboard, in a session with these variables.
DesktopSetup germanWith(const Environment &environment = {})
{
    return {.keyboardMap = "de", .environment = environment};
}

/// What the open field holds, as another program gets it.
QString textIn(TextPresentation &on, ClipboardUser &other)
{
    const QString before = "what was copied before";
    other.copy(before);
    on.command(Key::A);
    on.command(Key::C);
    eventually([&] { return other.paste() != before; });
    return other.paste().value_or(QString());
}

} // namespace

class TextAccentScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aDeadKeyPutsItsAccentOnTheLetter_data();
    void aDeadKeyPutsItsAccentOnTheLetter();
    void accentsComeOntoTheCanvas();
};

void TextAccentScenarios::aDeadKeyPutsItsAccentOnTheLetter_data()
{
    QTest::addColumn<Environment>("environment");
    QTest::newRow("no language, in UTF-8") << Environment{{"LANG", "C.UTF-8"}};
    QTest::newRow("no language") << Environment{{"LANG", "C"}};
    QTest::newRow("nothing said") << Environment{{"LANG", ""}};
    QTest::newRow("above all") << Environment{{"LANG", "C.UTF-8"}, {"LC_ALL", "POSIX"}};
    QTest::newRow("a locale that is not installed") << Environment{{"LANG", "de_DE.UTF-8"}};
    QTest::newRow("not in UTF-8") << Environment{{"LANG", "de_DE"}};
    QTest::newRow("a locale without a table") << Environment{{"LANG", "xx_XX.UTF-8"}};
    QTest::newRow("an input method that is not installed") << Environment{{"QT_IM_MODULE", "none-such"}};
    QTest::newRow("an input method that does not run")
        << Environment{{"QT_IM_MODULE", "ibus"}, {"XMODIFIERS", "@im=ibus"}};
}

void TextAccentScenarios::aDeadKeyPutsItsAccentOnTheLetter()
{
    QFETCH(Environment, environment);
    TextPresentation on(germanWith(environment));
    ClipboardUser other(on.session);
    QVERIFY(on.open({300, 300}));
    const auto accented = [&on](const Modifiers &modifiers, Key accent, Key letter) {
        on.session.keyboard().chord(modifiers, accent);
        on.session.keyboard().tap(letter);
    };
    accented({}, Key::Equal, Key::E);
    accented({Key::Shift}, Key::Equal, Key::A);
    accented({}, Key::Grave, Key::O);
    // The accent by itself.
    accented({}, Key::Equal, Key::Space);
    on.session.keyboard().tap(Key::E);
    QCOMPARE(textIn(on, other), QString("éàô'e"));
}

void TextAccentScenarios::accentsComeOntoTheCanvas()
{
    TextPresentation on(germanWith());
    ClipboardUser other(on.session);
    const QPoint typed(300, 300);
    const QPoint pasted(300, 500);
    QVERIFY(on.open(typed));
    on.session.keyboard().tap(Key::Equal);
    on.session.keyboard().tap(Key::E);
    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.isWritten(typed));
    other.copy("é");
    QVERIFY(on.open(pasted));
    on.command(Key::V);
    on.session.keyboard().tap(Key::Return);
    EVENTUALLY(on.isWritten(pasted));
    QCOMPARE(on.inkAt(typed), on.inkAt(pasted));
}

REGISTER_GUILESS_TEST(TextAccentScenarios)
#include "text_accent_scenarios.moc"
