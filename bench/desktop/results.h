// What was measured, and what was wanted.
#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace zeigewerk::bench {

/// Figures that a value should not exceed: what is demanded, and what would be better still.
struct Bars
{
    std::optional<double> bar = {};
    std::optional<double> beyond = {};
};

class Results
{
public:
    /// Prints the line at once.
    void add(const QString &name, double value, const QString &unit, const Bars &bars = {});
    /// A line between groups of values.
    void heading(const QString &text);

    /// Everything added so far, with the machine and the time, as JSON; false if the file cannot be written.
    bool writeJson(const QString &path) const;
    /// How many values are above their bar.
    int misses() const;

private:
    struct Result
    {
        QString group;
        QString name;
        double value;
        QString unit;
        Bars bars;
    };

    std::vector<Result> m_results;
    QString m_group;
};

/// The value below which that part (0 to 1) of the values lies: the nearest one at or above it. The values
/// must not be empty.
double percentile(std::vector<double> values, double part);

} // namespace zeigewerk::bench
