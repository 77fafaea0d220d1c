#include "tests/devenv/VswhereChild.h"
#include "tests/support/Patience.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

#include <windows.h>

#include <memory>

namespace {

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(content) != content.size()) {
        qFatal("could not write %s: %s", qPrintable(path), qPrintable(file.errorString()));
    }
}

struct HandleCloser {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};

} // namespace

VswhereChild::VswhereChild(const VswhereConduct &conduct)
{
    QFile program(VSWHERE_CHILD_EXECUTABLE);
    if (!directory.isValid() || !program.copy(path())) {
        qFatal("could not copy %s to %s: %s", qPrintable(program.fileName()), qPrintable(path()),
               qPrintable(program.errorString()));
    }
    setReport(conduct.report);
    writeFile(filePath("errors"), conduct.errors);
    setVariable("VSWHERE_CHILD_RUNS", filePath("runs"));
    setVariable("VSWHERE_CHILD_REPORT", filePath("report"));
    setVariable("VSWHERE_CHILD_ERRORS", filePath("errors"));
    setVariable("VSWHERE_CHILD_DELAY", QString::number(conduct.delay));
    setVariable("VSWHERE_CHILD_LINGER", QString::number(conduct.linger));
    setVariable("VSWHERE_CHILD_EXIT_CODE", QString::number(conduct.exitCode));
    if (conduct.repeats) {
        setVariable("VSWHERE_CHILD_REPEATS", "yes");
    }
    if (conduct.readsInput) {
        setVariable("VSWHERE_CHILD_READS_INPUT", "yes");
    }
}

VswhereChild::VswhereChild(const QByteArray &report) : VswhereChild(VswhereConduct{report, {}}) {}

VswhereChild::~VswhereChild()
{
    if (!removeFrom(path())) {
        qFatal("could not remove %s", qPrintable(path()));
    }
}

QString VswhereChild::path()
{
    return QDir::toNativeSeparators(QCoreApplication::applicationDirPath() + "/vswhere.exe");
}

bool VswhereChild::removeFrom(const QString &path)
{
    // A program's file cannot be removed before the program has ended.
    return QTest::qWaitFor(
        [&path] {
            QFile::remove(path);
            QDir().rmdir(path);
            return !QFileInfo::exists(path);
        },
        patienceMilliseconds);
}

void VswhereChild::moveTo(const QString &otherPath) const
{
    if (!QFile::rename(path(), otherPath)) {
        qFatal("could not move %s to %s", qPrintable(path()), qPrintable(otherPath));
    }
}

void VswhereChild::setReport(const QByteArray &report) const
{
    writeFile(filePath("report"), report);
}

QList<VswhereRun> VswhereChild::runs() const
{
    QFile file(filePath("runs"));
    if (!file.open(QFile::ReadOnly)) {
        return {};
    }
    const QByteArray data = file.readAll();
    const QString text(reinterpret_cast<const QChar *>(data.constData()), data.size() / int(sizeof(QChar)));
    QList<VswhereRun> result;
    for (const QString &line : text.split('\n', Qt::SkipEmptyParts)) {
        QStringList parts = line.split(QChar::Null);
        // The last part is empty: it follows the last terminating 0.
        parts.removeLast();
        const quint32 processId = parts.takeFirst().toUInt();
        const QString executable = parts.takeFirst();
        result.append({processId, executable, parts});
    }
    return result;
}

void VswhereChild::setVariable(const char *name, const QString &value)
{
    variables.emplace_back(name, value.toLocal8Bit());
}

QString VswhereChild::filePath(const QString &name) const
{
    return QDir::toNativeSeparators(directory.filePath(name));
}

bool isRunning(quint32 processId)
{
    const std::unique_ptr<void, HandleCloser> process(OpenProcess(SYNCHRONIZE, FALSE, processId));
    return process && WaitForSingleObject(process.get(), 0) == WAIT_TIMEOUT;
}
