#pragma once

#include <QElapsedTimer>
#include <QVector>

#include <algorithm>
#include <cstdio>
#include <functional>

inline double millisecondsOf(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

/// The median of at least one value.
inline double medianOf(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

/// Prints one figure as ../../bench reads it: its name, the baseline and what is measured, separated by tabs.
inline void printFigure(const char *name, double baseline, double measured)
{
    std::printf("%s\t%.4f\t%.4f\n", name, baseline, measured);
    std::fflush(stdout);
}

constexpr int rounds = 15;

/// Runs both in turns, and prints the medians of their times in milliseconds. What happens in @p between, which
/// runs after each, is not measured.
inline void compareTimes(
    const char *name, const std::function<void()> &baseline, const std::function<void()> &measured,
    const std::function<void()> &between = [] {})
{
    QVector<double> baselines;
    QVector<double> measures;
    for (int round = 0; round < rounds; ++round) {
        baselines.append(millisecondsOf(baseline));
        between();
        measures.append(millisecondsOf(measured));
        between();
    }
    printFigure(name, medianOf(baselines), medianOf(measures));
}
