// Accented letters, typed with a dead key and a letter.
#include "registered_test.h"
#include "text_presentation.h"

using namespace zeigewerk::rig;

namespace {

using Environment = QMap<QString, QString>;

/// A German keyboard, and these environment variables.
DesktopSetup germanWith(const Environment &environment = {})
{
    return {.keyboardMap = "de", .environment = environment};
}

/// The text in the open field, copied to another program.
QString textIn(TextPresentation &show, ClipboardUser &other)
{
    const QString before = "what was copied before";
    other.copy(before);
    show.command(Key::A);
    show.command(Key::C);
    eventually([&] { return other.paste() != before; });
    return other.paste().value_or(QString());
}

} // namespace

class TextAccentScenarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void deadKeysComposeAccentedLetters_data();
    void deadKeysComposeAccentedLetters();
    void accentedLettersAppearOnTheCanvas();
};

void TextAccentScenarios::deadKeysComposeAccentedLetters_data()
{
    struct Row
    {
        const char *name;
        Environment environment;
    };
    // A table, one row per line:
    // clang-format off
    const QList<Row> rows = {
        {"no language, UTF-8",                    {{"LANG", "C.UTF-8"}}},
        {"no language",                           {{"LANG", "C"}}},
        {"LANG is empty",                         {{"LANG", ""}}},
        {"LC_ALL overrides LANG",                 {{"LANG", "C.UTF-8"}, {"LC_ALL", "POSIX"}}},
        {"a locale that is not installed",        {{"LANG", "de_DE.UTF-8"}}},
        {"a locale without UTF-8",                {{"LANG", "de_DE"}}},
        {"a locale without a compose table",      {{"LANG", "xx_XX.UTF-8"}}},
        {"an input method that is not installed", {{"QT_IM_MODULE", "none-such"}}},
        {"an input method that is not running",   {{"QT_IM_MODULE", "ibus"}, {"XMODIFIERS", "@im=ibus"}}},
    };
    // clang-format on
    QTest::addColumn<Environment>("environment");
    for (const Row &row : rows)
        QTest::newRow(row.name) << row.environment;
}

void TextAccentScenarios::deadKeysComposeAccentedLetters()
{
    QFETCH(Environment, environment);
    TextPresentation show(germanWith(environment));
    ClipboardUser other(show.session);
    QVERIFY(show.open({300, 300}));
    const auto typeAccented = [&show](const Modifiers &modifiers, Key accent, Key letter) {
        show.session.keyboard().chord(modifiers, accent);
        show.session.keyboard().tap(letter);
    };
    typeAccented({}, Key::Equal, Key::E);
    typeAccented({Key::Shift}, Key::Equal, Key::A);
    typeAccented({}, Key::Grave, Key::O);
    // The accent alone.
    typeAccented({}, Key::Equal, Key::Space);
    show.session.keyboard().tap(Key::E);
    QCOMPARE(textIn(show, other), QString("éàô'e"));
}

void TextAccentScenarios::accentedLettersAppearOnTheCanvas()
{
    TextPresentation show(germanWith());
    ClipboardUser other(show.session);
    const QPoint typed(300, 300);
    const QPoint pasted(300, 500);
    QVERIFY(show.open(typed));
    show.session.keyboard().tap(Key::Equal);
    show.session.keyboard().tap(Key::E);
    show.session.keyboard().tap(Key::Return);
    EVENTUALLY(show.isWritten(typed));
    other.copy("é");
    QVERIFY(show.open(pasted));
    show.command(Key::V);
    show.session.keyboard().tap(Key::Return);
    EVENTUALLY(show.isWritten(pasted));
    QCOMPARE(show.inkAt(typed), show.inkAt(pasted));
}

REGISTER_GUILESS_TEST(TextAccentScenarios)
#include "text_accent_scenarios.moc"
