#pragma once

#include "updater/feed.h"

#include <QByteArray>

#include <optional>
#include <variant>

namespace zeigewerk {

/// Why a feed could not be read.
enum class FeedFailure {
    BadAddress,   ///< not an address, or not an allowed one
    HostNotFound, ///< the server's name is unknown, perhaps because there is no network
    NoConnection, ///< the server does not answer, or hangs up
    NotSecure,    ///< the server cannot prove its identity
    BadRedirect,  ///< the server redirects to an address that is not allowed, or too often
    NotFound,     ///< the server has no feed there
    ServerError,  ///< the server answers with another error
    TooLarge,
    TooSlow,
    NotReadable, ///< the answer is not a feed
    NoProcess,   ///< the process that reads feeds is missing, or failed
};

/// The newest version for us, nothing if the feed has none, or why it is unknown.
using FeedAnswer = std::variant<std::optional<FeedItem>, FeedFailure>;

/// An answer as the feed process passes it to the program: its output and its exit code.
struct WrittenAnswer
{
    QByteArray output;
    int exitCode = 0;
};

WrittenAnswer write(const FeedAnswer &answer);
/// Anything that `write` could not have written counts as `NoProcess`.
FeedAnswer readAnswer(const WrittenAnswer &written);

} // namespace zeigewerk
