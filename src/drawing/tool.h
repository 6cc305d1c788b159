#pragma once

#include <QString>

#include <array>
#include <functional>
#include <optional>

namespace zeigewerk {

/// The kind of mark the user makes. A value class around an enumeration, so that it can have accessors and
/// still be used in a switch.
class Tool
{
public:
    enum Value : int { pen, highlighter, line, arrow, rect, ellipse, text };

    constexpr Tool(Value value) // NOLINT(google-explicit-constructor): a Tool is its value
        : m_value(value)
    {
    }

    /// The tool with that raw value; nothing for any other integer.
    static constexpr std::optional<Tool> fromRawValue(int rawValue)
    {
        if (rawValue < pen || rawValue > text)
            return std::nullopt;
        return Tool(static_cast<Value>(rawValue));
    }

    constexpr operator Value() const { return m_value; } // NOLINT(google-explicit-constructor)
    constexpr int rawValue() const { return m_value; }

    /// Whether the mark follows the pointer's path instead of spanning its start and end.
    constexpr bool isFreehand() const { return m_value == pen || m_value == highlighter; }

    /// The name of the symbol on the tool's button.
    QString symbol() const;
    /// The tooltip of the tool's button.
    QString tip() const;

    /// Every tool by ascending raw value, which is the order on the toolbar.
    static const std::array<Tool, 7> allCases;

private:
    Value m_value;
};

inline constexpr std::array<Tool, 7> Tool::allCases = {pen, highlighter, line, arrow, rect, ellipse, text};

} // namespace zeigewerk

template <>
struct std::hash<zeigewerk::Tool>
{
    std::size_t operator()(zeigewerk::Tool tool) const noexcept { return std::hash<int>{}(tool.rawValue()); }
};
