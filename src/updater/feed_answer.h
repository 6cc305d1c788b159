#pragma once

#include "updater/feed.h"

#include <QByteArray>

#include <optional>
#include <variant>

namespace zeigewerk {

/// Why a feed could not be read.
enum class FeedFailure {
    BadAddress,   ///< no address, or none that is allowed
    HostNotFound, ///< nobody knows the server's name, perhaps for want of a network
    NoConnection, ///< the server does not answer, or hangs up
    NotSecure,    ///< the server cannot prove who it is
    BadRedirect,  ///< it sends us to where we do not go, or from one place to the next
    NotFound,     ///< it has no feed there
    ServerError,  ///< it answers with some other error
    TooLarge,
    TooSlow,
    NotReadable, ///< what came is no feed
    NoProcess,   ///< the process that reads feeds is not there, or did not end as it should
};

/// The newest version for us, none if the feed has none, or why that is not known.
using FeedAnswer = std::variant<std::optional<FeedItem>, FeedFailure>;

/// How the process that reads the feed tells the program: what it writes, and its exit code.
struct WrittenAnswer
{
    QByteArray output;
    int exitCode = 0;
};

WrittenAnswer write(const FeedAnswer &answer);
/// Whatever was not written by `write` counts as no process.
FeedAnswer readAnswer(const WrittenAnswer &written);

} // namespace zeigewerk
