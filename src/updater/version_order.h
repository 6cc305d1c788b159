#pragma once

#include <QStringView>

#include <compare>

namespace zeigewerk {

/// How two versions follow each other by the rules of update feeds; less is older, and any text is a version.
/// A version is a row of numbers, texts and separators, compared one by one: numbers as numbers, texts by
/// their characters, any separator is like any other. Where one has text, it is older than one that ends
/// there ("1.0b1" before "1.0"), and that is older than one that goes on otherwise ("1.0" before "1.0.1").
std::weak_ordering compareVersions(QStringView one, QStringView other);

} // namespace zeigewerk
