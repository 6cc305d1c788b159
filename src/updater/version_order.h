#pragma once

#include <QStringView>

#include <compare>

namespace zeigewerk {

/// Orders two versions by the rules of update feeds: less is older. Any text is a version. A version is a
/// sequence of numbers, texts and separators, compared one by one: numbers by value, texts by their
/// characters, and all separators as equal. At the first difference, text is older than the end ("1.0b1"
/// before "1.0"), and the end is older than anything else ("1.0" before "1.0.1").
std::weak_ordering compareVersions(QStringView one, QStringView other);

} // namespace zeigewerk
