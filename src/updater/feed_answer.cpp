#include "updater/feed_answer.h"

#include <QList>

namespace zeigewerk {

namespace {

/// Distinct from the exit codes of processes that could not be started or went wrong.
constexpr int kFirstFailure = 10;
constexpr int kLastFailure = kFirstFailure + static_cast<int>(FeedFailure::NoProcess);
/// One line each; the feed's texts have no line breaks.
constexpr int kFields = 3;

} // namespace

WrittenAnswer write(const FeedAnswer &answer)
{
    if (const auto *failure = std::get_if<FeedFailure>(&answer))
        return {.output = {}, .exitCode = kFirstFailure + static_cast<int>(*failure)};
    const auto &item = std::get<std::optional<FeedItem>>(answer);
    if (!item)
        return {};
    QByteArray lines;
    for (const QString &field : {item->version, item->shownVersion, item->page})
        lines += field.toUtf8() + '\n';
    return {.output = lines, .exitCode = 0};
}

FeedAnswer readAnswer(const WrittenAnswer &written)
{
    if (written.exitCode >= kFirstFailure && written.exitCode <= kLastFailure)
        return static_cast<FeedFailure>(written.exitCode - kFirstFailure);
    if (written.exitCode != 0)
        return FeedFailure::NoProcess;
    if (written.output.isEmpty())
        return std::optional<FeedItem>();
    const QList<QByteArray> lines = written.output.split('\n');
    // The last line ends with a line break, too.
    if (lines.size() != kFields + 1 || !lines.back().isEmpty())
        return FeedFailure::NoProcess;
    return std::optional(FeedItem{.version = QString::fromUtf8(lines[0]),
                                  .shownVersion = QString::fromUtf8(lines[1]),
                                  .page = QString::fromUtf8(lines[2])});
}

} // namespace zeigewerk
