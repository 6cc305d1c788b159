#pragma once

#include "updater/feed_answer.h"

#include <QString>
#include <QUrl>

#include <optional>
#include <variant>

namespace zeigewerk {

/// The feed is being asked.
struct Searching
{
    friend bool operator==(const Searching &, const Searching &) = default;
};

/// There is nothing newer than what is installed.
struct UpToDate
{
    QString installed;

    friend bool operator==(const UpToDate &, const UpToDate &) = default;
};

struct NewVersion
{
    QString version;
    QString installed;
    /// None where the feed names no page that may be opened.
    std::optional<QUrl> page;

    friend bool operator==(const NewVersion &, const NewVersion &) = default;
};

/// Nothing opens pages here.
struct PageNotOpened
{
    QUrl page;

    friend bool operator==(const PageNotOpened &, const PageNotOpened &) = default;
};

/// What the user is told of a search for updates.
using UpdateNews = std::variant<Searching, UpToDate, NewVersion, PageNotOpened, FeedFailure>;

/// What the feed's answer means for whoever has that version installed.
UpdateNews newsOf(const FeedAnswer &answer, const QString &installed);

// In German: a sentence, one that says more, or an empty text, and what the button says that ends it.
QString headline(const UpdateNews &news);
QString detail(const UpdateNews &news);
QString closingTitle(const UpdateNews &news);

} // namespace zeigewerk
