#include "base/stop.h"
#include "fuzz/targets.h"
#include "updater/feed_answer.h"
#include "updater/update_news.h"
#include "updater/version_order.h"

#include <QByteArray>

#include <algorithm>

namespace zeigewerk::fuzz {

namespace {

/// Enough for every sequence that could show that they are in no order; each with each other takes its time.
constexpr std::size_t kVersionsCompared = 12;

bool isOrder(const std::vector<FeedItem> &items)
{
    const auto compare = [&items](std::size_t one, std::size_t other) {
        return compareVersions(items[one].version, items[other].version);
    };
    const std::size_t count = std::min(items.size(), kVersionsCompared);
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
    mustHold(isOrder(*items), "versions follow each other in one order");
    const std::optional<FeedItem> newest = newestItem(*items);
    mustHold(newest.has_value() == !items->empty(), "some version is the newest");
    if (newest)
        mustHold(isNewest(*newest, *items), "no version is newer than the newest");
    const FeedAnswer answer = newest;
    mustHold(readAnswer(write(answer)) == answer, "the answer arrives as it was written");
    const UpdateNews news = newsOf(answer, QStringLiteral("1.0"));
    mustHold(!headline(news).isEmpty() && headline(news).size() < 200, "what is told can be shown");
}

} // namespace zeigewerk::fuzz
