#pragma once

#include <QtGlobal>

/// Random numbers that depend on a seed alone, on every machine. (splitmix64)
class Dice {
public:
    explicit Dice(quint64 seed) : state(seed) {}

    /// A number from 0 to @p count - 1; @p count must be positive.
    int below(int count)
    {
        state += 0x9E3779B97F4A7C15U;
        quint64 mixed = state;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        mixed ^= mixed >> 31U;
        return static_cast<int>(mixed % static_cast<quint64>(count));
    }

    /// True in @p percent of a hundred calls, on average.
    bool chance(int percent) { return below(100) < percent; }

    template <typename Container>
    auto anyOf(const Container &values) -> decltype(values[0])
    {
        return values[below(static_cast<int>(values.size()))];
    }

private:
    quint64 state;
};
