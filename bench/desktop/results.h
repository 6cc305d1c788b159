// The measured values and their targets.
#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace zeigewerk::bench {

/// Upper limits of a value: the bar is required, beyond is better still.
struct Bars
{
    std::optional<double> bar = {};
    std::optional<double> beyond = {};
};

class Results
{
public:
    /// Also prints the line at once.
    void add(const QString &name, double value, const QString &unit, const Bars &bars = {});
    /// A heading for the values that follow.
    void heading(const QString &text);

    /// Writes everything added so far as JSON, with the machine and the time; false if the file cannot be
    /// written.
    bool writeJson(const QString &path) const;
    /// How many values exceed their bar.
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

/// The nearest-rank percentile for a fraction between 0 and 1. The values must not be empty.
double percentile(std::vector<double> values, double part);

} // namespace zeigewerk::bench
