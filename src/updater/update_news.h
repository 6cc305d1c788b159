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

/// There is nothing newer than the installed version.
struct UpToDate
{
    QString installed;

    friend bool operator==(const UpToDate &, const UpToDate &) = default;
};

struct NewVersion
{
    QString version;
    QString installed;
    /// None if the feed names no page that may be opened.
    std::optional<QUrl> page;

    friend bool operator==(const NewVersion &, const NewVersion &) = default;
};

/// The page could not be opened.
struct PageNotOpened
{
    QUrl page;

    friend bool operator==(const PageNotOpened &, const PageNotOpened &) = default;
};

/// What the user is told about a search for updates.
using UpdateNews = std::variant<Searching, UpToDate, NewVersion, PageNotOpened, FeedFailure>;

/// What the feed's answer means if that version is installed.
UpdateNews newsOf(const FeedAnswer &answer, const QString &installed);

// German texts: a sentence, more about it (may be empty), and the label of the button that closes the dialog.
QString headline(const UpdateNews &news);
QString detail(const UpdateNews &news);
QString closingTitle(const UpdateNews &news);

} // namespace zeigewerk
