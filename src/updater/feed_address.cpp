#include "updater/feed_address.h"

#include <QStringList>

namespace zeigewerk {

namespace {

bool isAllowed(const QUrl &url)
{
    if (!url.isValid() || url.host().isEmpty())
        return false;
    return url.scheme() == u"https" || (url.scheme() == u"http" && isLoopback(url));
}

} // namespace

std::optional<QUrl> allowedAddress(const QString &text)
{
    const QUrl url(text.trimmed(), QUrl::StrictMode);
    return isAllowed(url) ? std::optional(url) : std::nullopt;
}

bool mayLeadTo(const QUrl &from, const QUrl &to)
{
    return isAllowed(to) && (isLoopback(from) || !isLoopback(to));
}

bool isLoopback(const QUrl &url)
{
    static const QStringList kNames = {QStringLiteral("127.0.0.1"), QStringLiteral("::1"),
                                       QStringLiteral("localhost")};
    return kNames.contains(url.host());
}

} // namespace zeigewerk
