#include "modes_seen.h"

#include <QStringList>

#include <algorithm>

namespace zeigewerk::test {

namespace {

QString text(const QPointF &point)
{
    return QStringLiteral("(%1, %2)").arg(point.x()).arg(point.y());
}

template <typename Values, typename Text>
QString list(const Values &values, const Text &text)
{
    QStringList texts;
    for (const auto &value : values)
        texts += text(value);
    return QStringLiteral("[%1]").arg(texts.join(QStringLiteral(", ")));
}

const auto asNumber = [](auto value) { return QString::number(value); };

QString text(const Seen::Screen &screen)
{
    const QString marks = list(screen.marks, [](const Seen::Mark &mark) {
        return QStringLiteral("%1 of %2").arg(mark.x).arg(mark.finished);
    });
    return QStringLiteral(
               "screen: shown %1, takes mouse %2, has keyboard %3, spotlight %4, marks %5, stroke %6, "
               "text %7, field in step %8")
        .arg(screen.isShown)
        .arg(screen.takesMouse)
        .arg(screen.hasKeyboard)
        .arg(text(screen.spotlight), marks)
        .arg(screen.stroke.value_or(-1))
        .arg(screen.text.value_or(QStringLiteral("none")))
        .arg(screen.isFieldInStep);
}

QStringList lines(const Seen &seen)
{
    const auto line = [](const char *name, const QString &value) {
        return QStringLiteral("%1 %2").arg(QLatin1String(name), value);
    };
    QStringList lines = {
        line("flags", seen.flags),
        line("menu", seen.menu),
        line("buttons", seen.buttons),
        line("dark, in the menu", list(std::array{seen.dark, seen.darkInMenu}, asNumber)),
        line("toolbar, in the menu, shown",
             list(std::array{seen.toolbar, seen.toolbarInMenu, seen.isToolbarShown}, asNumber)),
        line("choices", list(seen.choices, asNumber)),
        line("shown choices", list(seen.shownChoices, asNumber)),
        line("order", list(seen.order, asNumber)),
        line("following, fading", list(std::array{seen.isFollowing, seen.isFadeTimerRunning}, asNumber)),
        line("Esc taken", asNumber(seen.timesEscIsTaken)),
        line("ring", seen.ring ? text(*seen.ring) : QStringLiteral("none")),
        line("hears clicks, wheel", list(std::array{seen.hearsClicks, seen.hearsWheel}, asNumber)),
        line("stored fade, dark", list(std::array{seen.storedFade, seen.storedDark},
                                       [](auto stored) { return asNumber(stored ? int(*stored) : -1); }))};
    for (const Seen::Screen &screen : seen.screens)
        lines += text(screen);
    return lines;
}

} // namespace

QString difference(const Seen &program, const Seen &model)
{
    if (program == model)
        return {};
    const QStringList ofProgram = lines(program);
    const QStringList ofModel = lines(model);
    QStringList differences;
    for (int i = 0; i < std::max(ofProgram.size(), ofModel.size()); ++i) {
        if (ofProgram.value(i) != ofModel.value(i))
            differences +=
                QStringLiteral("the program has %1, the model %2").arg(ofProgram.value(i), ofModel.value(i));
    }
    return differences.isEmpty() ? QStringLiteral("something that has no line here")
                                 : differences.join(QStringLiteral("; "));
}

QString lettersOf(const std::array<bool, 7> &isOn)
{
    const QString letters = QStringLiteral("dwskprf");
    QString word;
    for (std::size_t i = 0; i < isOn.size(); ++i) {
        if (isOn.at(i))
            word += letters.at(static_cast<int>(i));
    }
    return word;
}

} // namespace zeigewerk::test
