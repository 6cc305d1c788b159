#include "updater/version_order.h"

#include <algorithm>

namespace zeigewerk {

namespace {

/// The kinds of parts that a version has, oldest first.
enum class PartKind { Text, End, Separator, Number };

struct Part
{
    PartKind kind;
    QStringView text;
};

PartKind kindOf(QChar character)
{
    if (character >= u'0' && character <= u'9')
        return PartKind::Number;
    if (character.isSpace() || character.isPunct())
        return PartKind::Separator;
    return PartKind::Text;
}

/// Removes the first part from the version, and returns it. Each separator is a part by itself.
Part takePart(QStringView &version)
{
    if (version.isEmpty())
        return {PartKind::End, {}};
    const PartKind kind = kindOf(version.front());
    const auto isOther = [kind](QChar character) { return kindOf(character) != kind; };
    const auto end = kind == PartKind::Separator ? version.begin() + 1
                                                 : std::find_if(version.begin(), version.end(), isOther);
    const Part part = {kind, version.first(end - version.begin())};
    version = version.sliced(part.text.size());
    return part;
}

/// Compares numbers with any number of digits.
std::weak_ordering compareNumbers(QStringView one, QStringView other)
{
    const auto significant = [](QStringView digits) {
        while (digits.startsWith(u'0'))
            digits = digits.sliced(1);
        return digits;
    };
    one = significant(one);
    other = significant(other);
    if (one.size() != other.size())
        return one.size() <=> other.size();
    return one.compare(other) <=> 0;
}

} // namespace

std::weak_ordering compareVersions(QStringView one, QStringView other)
{
    for (;;) {
        const Part left = takePart(one);
        const Part right = takePart(other);
        if (left.kind != right.kind)
            return left.kind <=> right.kind;
        if (left.kind == PartKind::End)
            return std::weak_ordering::equivalent;
        std::weak_ordering order = std::weak_ordering::equivalent;
        if (left.kind == PartKind::Number)
            order = compareNumbers(left.text, right.text);
        else if (left.kind == PartKind::Text)
            order = left.text.compare(right.text) <=> 0;
        if (std::is_neq(order))
            return order;
    }
}

} // namespace zeigewerk
