#include "updater/update_news.h"

#include "updater/feed_address.h"
#include "updater/version_order.h"

#include <algorithm>

namespace zeigewerk {

namespace {

template <typename... Functions>
struct Overloaded : Functions...
{
    using Functions::operator()...;
};
template <typename... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

QString reason(FeedFailure failure)
{
    switch (failure) {
    case FeedFailure::BadAddress:
        return QStringLiteral(
            "Die eingestellte Adresse ist ungültig oder nicht erlaubt; sie muss mit https:// beginnen.");
    case FeedFailure::HostNotFound:
        return QStringLiteral(
            "Der Server wurde nicht gefunden; vielleicht besteht keine Verbindung zum Internet.");
    case FeedFailure::NoConnection:
        return QStringLiteral("Der Server ist nicht erreichbar.");
    case FeedFailure::NotSecure:
        return QStringLiteral("Der Server kann sich nicht ausweisen; die Verbindung wäre nicht sicher.");
    case FeedFailure::BadRedirect:
        return QStringLiteral(
            "Der Server leitet an eine Adresse weiter, die nicht erlaubt ist, oder zu oft.");
    case FeedFailure::NotFound:
        return QStringLiteral("Der Server hat unter der eingestellten Adresse nichts.");
    case FeedFailure::ServerError:
        return QStringLiteral("Der Server meldet einen Fehler.");
    case FeedFailure::TooLarge:
        return QStringLiteral("Die Antwort des Servers ist zu groß.");
    case FeedFailure::TooSlow:
        return QStringLiteral("Der Server hat nicht rechtzeitig geantwortet.");
    case FeedFailure::NotReadable:
        return QStringLiteral("Die Antwort des Servers ist nicht lesbar.");
    case FeedFailure::NoProcess:
        return QStringLiteral("Das Hilfsprogramm, das danach sucht, fehlt oder lief nicht richtig.");
    }
    return {};
}

QString installedVersion(const QString &version)
{
    return QStringLiteral("Installiert ist Version %1.").arg(version);
}

/// Removes characters that are invisible or reverse the text.
QString legible(QString text)
{
    text.removeIf([](QChar character) { return !character.isPrint(); });
    return text;
}

} // namespace

UpdateNews newsOf(const FeedAnswer &answer, const QString &installed)
{
    if (const auto *failure = std::get_if<FeedFailure>(&answer))
        return *failure;
    const auto &newest = std::get<std::optional<FeedItem>>(answer);
    if (!newest || std::is_lteq(compareVersions(newest->version, installed)))
        return UpToDate{installed};
    return NewVersion{.version = legible(newest->shownVersion),
                      .installed = installed,
                      .page = allowedAddress(newest->page)};
}

QString headline(const UpdateNews &news)
{
    return std::visit(
        Overloaded{
            [](const Searching &) { return QStringLiteral("Nach Updates wird gesucht …"); },
            [](const UpToDate &) { return QStringLiteral("Zeigewerk ist auf dem neuesten Stand."); },
            [](const NewVersion &one) {
                return QStringLiteral("Version %1 ist verfügbar.").arg(one.version);
            },
            [](const PageNotOpened &) { return QStringLiteral("Die Seite ließ sich nicht öffnen."); },
            [](FeedFailure) { return QStringLiteral("Die Suche nach Updates ist fehlgeschlagen."); },
        },
        news);
}

QString detail(const UpdateNews &news)
{
    return std::visit(
        Overloaded{
            [](const Searching &) { return QString(); },
            [](const UpToDate &now) { return installedVersion(now.installed); },
            [](const NewVersion &one) { return installedVersion(one.installed); },
            [](const PageNotOpened &failed) { return failed.page.toString(QUrl::FullyEncoded); },
            [](FeedFailure failure) { return reason(failure); },
        },
        news);
}

QString closingTitle(const UpdateNews &news)
{
    if (std::holds_alternative<Searching>(news))
        return QStringLiteral("Abbrechen");
    if (std::holds_alternative<NewVersion>(news))
        return QStringLiteral("Später");
    return QStringLiteral("Schließen");
}

} // namespace zeigewerk
