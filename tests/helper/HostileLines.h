#pragma once

#include <QString>
#include <QVector>

/// Arguments that the helper must refuse, and the reason that it gives.
struct HostileLine {
    const char *name; ///< what is wrong with it
    QString arguments;
    QString refusal;
};

/// The files that the lines speak of. Where they exist, each line is wrong for its own reason alone.
namespace HostileFiles {

constexpr const char *top = "C:\\Helper test";
constexpr const char *installation = "C:\\Helper test\\HALCON-20.11";
constexpr const char *binaries = "C:\\Helper test\\HALCON-20.11\\bin\\x64-win64";
constexpr const char *license = "C:\\Helper test\\HALCON-20.11\\license";
constexpr const char *destination = "C:\\Helper test\\HALCON-20.11\\license\\license.dat";
constexpr const char *source = "C:\\Helper test\\new.dat";

} // namespace HostileFiles

namespace HostileLines {

/// That are no line of any known form.
QVector<HostileLine> whole();

QVector<HostileLine> variables();
QVector<HostileLine> libraries();
QVector<HostileLine> copies();

/// With paths that are not plain, each in all the places that take one.
QVector<HostileLine> paths();

} // namespace HostileLines

/// All of them, with names that differ.
QVector<HostileLine> hostileLines();
