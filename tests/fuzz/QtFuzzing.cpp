#include "tests/fuzz/QtFuzzing.h"

#include "base/DebugLogger.h"

#include <QDebug>
#include <QDir>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTextCodec>

namespace {

QStringList &logLines()
{
    static QStringList lines;
    return lines;
}

QStringList &warnings()
{
    static QStringList lines;
    return lines;
}

void keepWarning(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
{
    if (type == QtFatalMsg) {
        require(false, qPrintable(message));
    }
    warnings().append(message);
}

QStringList takeAll(QStringList &lines)
{
    QStringList taken;
    taken.swap(lines);
    return taken;
}

} // namespace

// The product's logger keeps everything for as long as the process runs.
DebugLogger &DebugLogger::instance()
{
    static DebugLogger logger;
    return logger;
}

void DebugLogger::log(const QString &message)
{
    logLines().append(message);
}

QString DebugLogger::text() const
{
    return logLines().join(QLatin1Char('\n'));
}

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    qInstallMessageHandler(keepWarning);
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    // Whatever the machine's is: names of files are UTF-8.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    return 0;
}

QByteArray inputOf(const std::uint8_t *data, std::size_t size)
{
    QByteArray input;
    input.reserve(static_cast<int>(size));
    for (std::size_t i = 0; i < size; ++i) {
        input.append(static_cast<char>(data[i]));
    }
    return input;
}

QString textOf(const QByteArray &bytes)
{
    const QList<QByteArray> pieces = bytes.split('\xFF');
    QString text = QString::fromUtf8(pieces.first());
    for (int i = 1; i < pieces.size(); ++i) {
        const QByteArray &piece = pieces[i];
        if (piece.size() >= 2) {
            text += QChar(static_cast<uchar>(piece[1]), static_cast<uchar>(piece[0]));
        }
        text += QString::fromUtf8(piece.mid(2));
    }
    return text;
}

QStringList takeLog()
{
    return takeAll(logLines());
}

QStringList takeWarnings()
{
    return takeAll(warnings());
}

QString temporaryDirectory()
{
    static const QTemporaryDir directory;
    static const bool entered = QDir::setCurrent(directory.path());
    require(entered, "there is a temporary directory");
    return QDir::currentPath();
}

void requireSame(const QStringList &actual, const QStringList &expected, const char *property)
{
    if (actual != expected) {
        QString difference;
        QDebug(&difference) << "actual:" << actual << "\nexpected:" << expected;
        std::fprintf(stderr, "%s\n", qPrintable(difference));
        require(false, property);
    }
}
