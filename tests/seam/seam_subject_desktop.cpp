// What the subject asks of the desktop itself: hot keys, events elsewhere, screens.

#include "seam/seam_subject.h"
#include "seam/seam_text.h"

#include <algorithm>
#include <array>

namespace zeigewerk::test {

using namespace platform;

namespace {

struct HotKeyRow
{
    const char *name;
    HotKey hotKey;
};

constexpr Modifiers kCtrlAlt = Modifier::Ctrl | Modifier::Alt;

// A table, one row per line.
// clang-format off
constexpr std::array kHotKeys = {
    HotKeyRow{"D",   {.id = {1, 1}, .key = PhysicalKey::D,      .modifiers = kCtrlAlt, .description = u"D"}},
    HotKeyRow{"W",   {.id = {1, 2}, .key = PhysicalKey::W,      .modifiers = kCtrlAlt, .description = u"W"}},
    HotKeyRow{"Esc", {.id = {1, 3}, .key = PhysicalKey::Escape, .modifiers = {},       .description = u"Esc"}},
};
// clang-format on

struct FeatureRow
{
    const char *name;
    Feature feature;
};

constexpr std::array kFeatures = {
    FeatureRow{"following", Feature::FollowingPointer},
    FeatureRow{"clicks", Feature::ClicksElsewhere},
    FeatureRow{"wheel", Feature::WheelElsewhere},
};

const HotKeyRow &hotKeyNamed(const QString &name)
{
    const auto found = std::find_if(kHotKeys.begin(), kHotKeys.end(),
                                    [&](const HotKeyRow &row) { return QLatin1String(row.name) == name; });
    mustHold(found != kHotKeys.end(), "there is a hot key of that name");
    return *found;
}

QString nameOf(HotKeyId id)
{
    const auto found = std::find_if(kHotKeys.begin(), kHotKeys.end(),
                                    [id](const HotKeyRow &row) { return row.hotKey.id == id; });
    return found == kHotKeys.end() ? QStringLiteral("unknown") : QString::fromLatin1(found->name);
}

QString nameOf(HotKeyState state)
{
    switch (state) {
    case HotKeyState::Requested:
        return QStringLiteral("requested");
    case HotKeyState::Granted:
        return QStringLiteral("granted");
    case HotKeyState::Refused:
        return QStringLiteral("refused");
    }
    return {};
}

} // namespace

void SeamSubject::listenToDesktop()
{
    const auto count = [this](const char *name) {
        return [this, key = QString::fromLatin1(name)] { ++m_signals[key]; };
    };
    QObject::connect(&m_desktop, &Desktop::trayChanged, &m_desktop, count("tray"));
    QObject::connect(&m_desktop.hotKeys(), &HotKeys::pressed, &m_desktop,
                     [this](HotKeyId id) { m_heard.append(QStringLiteral("hotkey %1").arg(nameOf(id))); });
    m_desktop.eventMonitor().setLeftPressHandler(
        [this](QPointF position) { m_heard.append(QStringLiteral("press %1").arg(text(position))); });
    m_desktop.eventMonitor().setScrollHandler([this](const MonitoredScroll &scroll) {
        m_heard.append(QStringLiteral("scroll %1 %2 %3")
                           .arg(scroll.event.distance)
                           .arg(text(scroll.event.globalPosition),
                                scroll.isOverOurs ? QStringLiteral("ours") : QStringLiteral("elsewhere")));
    });
}

QString SeamSubject::takeHotKeys(const Words &words)
{
    std::vector<HotKey> wanted;
    for (const QString &name : words.mid(1))
        wanted.push_back(hotKeyNamed(name).hotKey);
    auto registrations = m_desktop.hotKeys().registerHotKeys(wanted);
    mustHold(registrations.size() == wanted.size(), "each hot key has a registration");
    for (std::size_t i = 0; i < wanted.size(); ++i)
        m_hotKeys[wanted[i].id.number] = std::move(registrations[i]);
    return {};
}

QString SeamSubject::giveBackHotKey(const Words &words)
{
    m_hotKeys.erase(hotKeyNamed(words.value(1)).hotKey.id.number);
    return {};
}

QString SeamSubject::hotKeyStates(const Words &)
{
    QStringList states;
    for (const auto &[number, registration] : m_hotKeys)
        states.append(
            QStringLiteral("%1=%2").arg(nameOf(HotKeyId{1, number}), nameOf(registration->state())));
    return states.join(QLatin1Char(' '));
}

QString SeamSubject::listen(const Words &words)
{
    MonitoredEvents events;
    events.setFlag(Monitored::LeftPresses, words.contains(QStringLiteral("clicks")));
    events.setFlag(Monitored::WheelWithAlt, words.contains(QStringLiteral("wheel")));
    m_desktop.eventMonitor().setListening(events);
    return {};
}

QString SeamSubject::heard(const Words &)
{
    return m_heard.join(QLatin1Char(';'));
}

QString SeamSubject::follow(const Words &words)
{
    m_desktop.setFollowsPointer(words.value(1) == QLatin1String("on"));
    return {};
}

QString SeamSubject::interact(const Words &words)
{
    words.value(1) == QStringLiteral("begin") ? m_desktop.activate() : m_desktop.deactivate();
    return {};
}

QString SeamSubject::desktop(const Words &words)
{
    const QString subject = words.value(1);
    if (subject == QStringLiteral("main"))
        return m_desktop.mainScreen() ? m_desktop.mainScreen()->name : QStringLiteral("none");
    if (subject == QStringLiteral("pointer"))
        return m_desktop.mouseLocation() ? text(*m_desktop.mouseLocation()) : QStringLiteral("unknown");
    if (subject == QStringLiteral("tray"))
        return m_desktop.showsTrayIcons() ? QStringLiteral("there") : QStringLiteral("none");
    if (subject == QStringLiteral("features")) {
        QStringList offered;
        for (const FeatureRow &row : kFeatures) {
            if (m_desktop.offers(row.feature))
                offered.append(QString::fromLatin1(row.name));
        }
        return offered.join(QLatin1Char(' '));
    }
    QStringList frames;
    for (const Screen &screen : m_desktop.screens())
        frames.append(
            text(subject == QStringLiteral("visible") ? m_desktop.visibleFrame(screen) : screen.frame));
    return frames.join(QLatin1Char(';'));
}

QString SeamSubject::signalCount(const Words &words)
{
    return QString::number(m_signals[words.value(1)]);
}

} // namespace zeigewerk::test
