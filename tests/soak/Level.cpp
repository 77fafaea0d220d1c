#include "tests/soak/Level.h"

#include <algorithm>

QString riseOf(const QString &name, const QVector<qint64> &values, qint64 slack)
{
    constexpr int fewest = 4;
    if (values.size() < fewest) {
        return QStringLiteral("%1: too few values to tell whether it rises").arg(name);
    }
    QVector<double> slopes;
    for (int from = 0; from < values.size(); ++from) {
        for (int to = from + 1; to < values.size(); ++to) {
            slopes.append(double(values[to] - values[from]) / (to - from));
        }
    }
    std::sort(slopes.begin(), slopes.end());
    const double rise = slopes[slopes.size() / 2] * (values.size() - 1);
    if (rise <= double(slack)) {
        return QString();
    }
    return QStringLiteral("%1 rises steadily, by %2 to %3; %4 would be all right")
        .arg(name)
        .arg(rise, 0, 'f', 0)
        .arg(values.last())
        .arg(slack);
}
