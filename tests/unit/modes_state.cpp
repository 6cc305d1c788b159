#include "modes_state.h"

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

QString text(const ModesState::Screen &screen)
{
    const QString marks = list(screen.marks, [](const ModesState::Mark &mark) {
        return QStringLiteral("%1 finished at %2").arg(mark.x).arg(mark.finished);
    });
    return QStringLiteral(
               "screen: shown %1, takes mouse %2, has keyboard %3, spotlight %4, marks %5, stroke %6, "
               "text %7, field in sync %8")
        .arg(screen.isShown)
        .arg(screen.takesMouse)
        .arg(screen.hasKeyboard)
        .arg(text(screen.spotlight), marks)
        .arg(screen.stroke.value_or(-1))
        .arg(screen.text.value_or(QStringLiteral("none")))
        .arg(screen.isFieldInSync);
}

QStringList lines(const ModesState &state)
{
    const auto line = [](const char *name, const QString &value) {
        return QStringLiteral("%1 %2").arg(QLatin1String(name), value);
    };
    QStringList lines = {
        line("flags", state.flags),
        line("menu", state.menu),
        line("buttons", state.buttons),
        line("dark, in the menu", list(std::array{state.dark, state.darkInMenu}, asNumber)),
        line("toolbar, in the menu, shown",
             list(std::array{state.toolbar, state.toolbarInMenu, state.isToolbarShown}, asNumber)),
        line("choices", list(state.choices, asNumber)),
        line("shown choices", list(state.shownChoices, asNumber)),
        line("order", list(state.order, asNumber)),
        line("follow timer, fade timer",
             list(std::array{state.isFollowing, state.isFadeTimerRunning}, asNumber)),
        line("Esc registered", asNumber(state.escRegistrations)),
        line("ring", state.ring ? text(*state.ring) : QStringLiteral("none")),
        line("monitors clicks, wheel", list(std::array{state.monitorsClicks, state.monitorsWheel}, asNumber)),
        line("stored fade, dark", list(std::array{state.storedFade, state.storedDark},
                                       [](auto stored) { return asNumber(stored ? int(*stored) : -1); }))};
    for (const ModesState::Screen &screen : state.screens)
        lines += text(screen);
    return lines;
}

} // namespace

QString difference(const ModesState &program, const ModesState &model)
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
    return differences.isEmpty() ? QStringLiteral("a value that is not described here")
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
