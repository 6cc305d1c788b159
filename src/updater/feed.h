#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace zeigewerk {

/// A version that a feed tells of.
struct FeedItem
{
    /// What is compared.
    QString version;
    /// What people call it; the same where the feed has no other name.
    QString shownVersion;
    /// The address of its page, as it stands in the feed: empty, or anything.
    QString page;

    friend bool operator==(const FeedItem &, const FeedItem &) = default;
};

/// The versions for this system in an update feed, in its order: RSS 2.0 with the Sparkle framework's
/// elements `version`, `shortVersionString`, `os` and `channel`, each of which may also be an attribute of
/// the enclosure. Items for other systems do not count, nor do those of a channel, which are for people who
/// asked for it, nor those without a version. A minimum system version is not looked at: no number says that
/// for all of Linux. None if that is no such feed; a document type, with which come entities, is in none.
std::optional<std::vector<FeedItem>> parseFeed(const QByteArray &bytes);

/// The newest by its version, wherever it stands; none of none.
std::optional<FeedItem> newestItem(const std::vector<FeedItem> &items);

} // namespace zeigewerk
