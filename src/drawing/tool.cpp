#include "drawing/tool.h"

namespace zeigewerk {

namespace {

struct Texts
{
    QString symbol;
    QString tip;
};

Texts textsOf(Tool tool)
{
    switch (tool) {
    case Tool::pen:
        return {QStringLiteral("pencil"), QStringLiteral("Stift")};
    case Tool::highlighter:
        return {QStringLiteral("highlighter"), QStringLiteral("Textmarker")};
    case Tool::line:
        return {QStringLiteral("line.diagonal"), QStringLiteral("Linie")};
    case Tool::arrow:
        return {QStringLiteral("arrow.up.right"), QStringLiteral("Pfeil")};
    case Tool::rect:
        return {QStringLiteral("rectangle"), QStringLiteral("Rechteck")};
    case Tool::ellipse:
        return {QStringLiteral("circle"), QStringLiteral("Ellipse")};
    case Tool::text:
        break;
    }
    return {QStringLiteral("textformat"), QStringLiteral("Text (klicken, tippen, Enter)")};
}

} // namespace

QString Tool::symbol() const
{
    return textsOf(*this).symbol;
}

QString Tool::tip() const
{
    return textsOf(*this).tip;
}

} // namespace zeigewerk
