#pragma once

#include <QString>
#include <QVector>

/// Says in one sentence that a quantity called @p name rises steadily in @p values, measured at equal
/// distances, by more than @p slack in all; empty when it does not. The steady rise is the median of the
/// slopes between any two of them, so that it takes no notice of single high values, and little of a step
/// when something is used for the first time. Fewer than four values tell nothing, which is a fault as
/// well.
QString riseOf(const QString &name, const QVector<qint64> &values, qint64 slack);
