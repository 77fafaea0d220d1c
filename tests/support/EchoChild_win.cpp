#include "tests/support/EchoChild.h"
#include "tests/support/Patience.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

namespace {

constexpr auto exitCodeName = "ECHO_CHILD_EXIT_CODE";

EchoRecord parse(const QByteArray &data)
{
    const QString text(reinterpret_cast<const QChar *>(data.constData()), data.size() / int(sizeof(QChar)));
    QStringList parts = text.split(QChar::Null);
    // The last part is empty: it follows the last terminating 0.
    parts.removeLast();

    EchoRecord record;
    record.commandLine = parts.takeFirst();
    record.executable = parts.takeFirst();
    record.currentDirectory = parts.takeFirst();
    record.showCommand = parts.takeFirst().toInt();
    record.environment = parts;
    return record;
}

} // namespace

QString EchoRecord::variable(const QString &name) const
{
    for (const QString &entry : environment) {
        if (entry.startsWith(name + QLatin1Char('='), Qt::CaseInsensitive)) {
            return entry.mid(name.size() + 1);
        }
    }
    return QString();
}

EchoChild::EchoChild() : recordVariable("ECHO_CHILD_RECORD"), exitCodeVariable(exitCodeName)
{
    if (!directory.isValid()) {
        qFatal("no directory for the child's record: %s", qPrintable(directory.errorString()));
    }
    recordVariable.set(QFile::encodeName(QDir::toNativeSeparators(recordPath())));
}

void EchoChild::exitWith(quint32 exitCode)
{
    qputenv(exitCodeName, QByteArray::number(exitCode));
}

bool EchoChild::hasRecord() const
{
    return QFile::exists(recordPath());
}

void EchoChild::copyTo(const QString &path)
{
    QFile program(QStringLiteral(ECHO_CHILD_EXECUTABLE));
    if (!QDir().mkpath(QFileInfo(path).path()) || !program.copy(path)) {
        qFatal("could not copy %s to %s: %s", qPrintable(program.fileName()), qPrintable(path),
               qPrintable(program.errorString()));
    }
}

bool EchoChild::waitForRecord(EchoRecord &record) const
{
    // The record is complete as soon as it exists, but for a moment its writer may still lock it.
    QFile file(recordPath());
    if (!QTest::qWaitFor([&file] { return file.open(QFile::ReadOnly); }, patienceMilliseconds)) {
        return false;
    }
    record = parse(file.readAll());
    file.close();
    return QTest::qWaitFor([&file] { return file.remove(); }, patienceMilliseconds);
}

EchoRecord EchoChild::record() const
{
    EchoRecord result;
    if (!waitForRecord(result)) {
        qFatal("no child has left a record");
    }
    return result;
}

QString EchoChild::recordPath() const
{
    return directory.filePath(QStringLiteral("record"));
}
