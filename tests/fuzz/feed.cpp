#include "base/stop.h"
#include "fuzz/targets.h"
#include "updater/feed_answer.h"
#include "updater/update_news.h"
#include "updater/version_order.h"

#include <QByteArray>

#include <algorithm>

namespace zeigewerk::fuzz {

namespace {

/// Only that many versions are compared, because the check takes cubic time.
constexpr std::size_t kMaxVersions = 12;

bool isConsistentOrder(const std::vector<FeedItem> &items)
{
    const auto compare = [&items](std::size_t one, std::size_t other) {
        return compareVersions(items[one].version, items[other].version);
    };
    const std::size_t count = std::min(items.size(), kMaxVersions);
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t j = 0; j < count; ++j) {
            if (std::is_lt(compare(i, j)) != std::is_gt(compare(j, i)))
                return false;
            for (std::size_t k = 0; k < count; ++k) {
                if (std::is_lteq(compare(i, j)) && std::is_lteq(compare(j, k)) && std::is_gt(compare(i, k)))
                    return false;
            }
        }
    }
    return true;
}

bool isNewest(const FeedItem &newest, const std::vector<FeedItem> &items)
{
    return std::ranges::all_of(items, [&newest](const FeedItem &item) {
        return std::is_lteq(compareVersions(item.version, newest.version));
    });
}

} // namespace

void feed(Bytes input)
{
    const auto items = parseFeed(
        QByteArray(reinterpret_cast<const char *>(input.data()), static_cast<qsizetype>(input.size())));
    if (!items)
        return;
    mustHold(isConsistentOrder(*items), "the order of versions is consistent");
    const std::optional<FeedItem> newest = newestItem(*items);
    mustHold(newest.has_value() == !items->empty(), "a feed has a newest item unless it is empty");
    if (newest)
        mustHold(isNewest(*newest, *items), "no version is newer than the newest");
    const FeedAnswer answer = newest;
    mustHold(readAnswer(write(answer)) == answer, "an answer reads back as it was written");
    const UpdateNews news = newsOf(answer, QStringLiteral("1.0"));
    mustHold(!headline(news).isEmpty() && headline(news).size() < 200,
             "the headline is neither empty nor too long");
}

} // namespace zeigewerk::fuzz
