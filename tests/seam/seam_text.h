#pragma once

#include "base/stop.h"

#include <QPointF>
#include <QRectF>
#include <QStringList>

// How values are written in the lines between the contract and its subject.

namespace zeigewerk::test {

inline QString text(QPointF point)
{
    return QStringLiteral("%1,%2").arg(point.x()).arg(point.y());
}

inline QString text(const QRectF &rect)
{
    return QStringLiteral("%1 %2 %3 %4").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
}

inline double number(const QStringList &words, int index)
{
    bool isNumber = false;
    const double value = words.value(index).toDouble(&isNumber);
    mustHold(isNumber, "the line has a number there");
    return value;
}

inline QPointF pointAt(const QStringList &words, int index)
{
    return {number(words, index), number(words, index + 1)};
}

} // namespace zeigewerk::test
