#pragma once

#include <QString>
#include <QVector>

/// Arguments that the helper must refuse, and the reason that it gives.
struct HostileLine {
    QString arguments;
    QString refusal;
};

/// The files that the lines name. Where they exist, each line is wrong for one reason only.
namespace HostileFiles {

constexpr const char *top = "C:\\Helper test";
constexpr const char *binaries = "C:\\Helper test\\HALCON-20.11\\bin\\x64-win64";
constexpr const char *license = "C:\\Helper test\\HALCON-20.11\\license";
constexpr const char *destination = "C:\\Helper test\\HALCON-20.11\\license\\license.dat";
constexpr const char *source = "C:\\Helper test\\new.dat";

} // namespace HostileFiles

namespace HostileLines {

/// Lines of no known form, and those with unacceptable variables or libraries.
QVector<HostileLine> lines();

/// Copies, and lines with unacceptable paths, each as a library, a destination and a source.
QVector<HostileLine> paths();

/// Adds a row for each of the lines, with its arguments and its refusal.
void addRows(const QVector<HostileLine> &lines);

} // namespace HostileLines

/// All of them.
QVector<HostileLine> hostileLines();
