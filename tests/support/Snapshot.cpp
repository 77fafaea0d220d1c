#include "tests/support/Snapshot.h"

#include <QFile>

namespace {

QStringList linesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) {
        return {};
    }
    QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
    lines.removeLast(); // after the last line's end
    return lines;
}

} // namespace

QString differenceFromSnapshot(const QStringList &lines, const QString &snapshot, const QString &file)
{
    if (qEnvironmentVariableIsSet("CORVANTA_RENEW_SNAPSHOTS")) {
        QFile renewed(file);
        const QByteArray text = (lines.join('\n') + '\n').toUtf8();
        return renewed.open(QFile::WriteOnly) && renewed.write(text) == text.size()
                   ? QString()
                   : QStringLiteral("cannot write \"%1\"").arg(file);
    }
    const QStringList expected = linesOf(snapshot);
    if (lines == expected) {
        return {};
    }
    int line = 0;
    while (line < lines.size() && line < expected.size() && lines.at(line) == expected.at(line)) {
        ++line;
    }
    return QStringLiteral("line %1 of %2\n is  %3\n was %4\nIf that is right, run the test on the host with "
                          "CORVANTA_RENEW_SNAPSHOTS=1, and look at what has changed in the tree.")
        .arg(QString::number(line + 1), snapshot, lines.value(line, QStringLiteral("(no line)")),
             expected.value(line, QStringLiteral("(no line)")));
}
