#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace zeigewerk {

/// A version that is listed in a feed.
struct FeedItem
{
    /// The version that is compared.
    QString version;
    /// The version that people see; the same if the feed has no other.
    QString shownVersion;
    /// The address of its page as the feed gives it, unchecked; may be empty.
    QString page;

    friend bool operator==(const FeedItem &, const FeedItem &) = default;
};

/// Reads the versions for this system from an update feed, in its order. A feed is RSS 2.0 with the Sparkle
/// framework's elements `version`, `shortVersionString`, `os` and `channel`, each of which may also be an
/// attribute of the enclosure. Items are skipped if they are for other systems, have no version, or belong to
/// a channel, which is for users who asked for it. A minimum system version is ignored: no number describes
/// all of Linux. Returns nothing if that is not a feed, or if it has a document type, which could define
/// entities.
std::optional<std::vector<FeedItem>> parseFeed(const QByteArray &bytes);

/// The item of the newest version, wherever it stands; nothing if there are no items.
std::optional<FeedItem> newestItem(const std::vector<FeedItem> &items);

} // namespace zeigewerk
