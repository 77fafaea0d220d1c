#include "update/OwnRelease.h"

#include "base/MakerAddresses.h"

#include "tests/support/Rows.h"

#include <QtTest>

namespace {

/// The file that describes a release with these values, each as JSON.
QByteArray file(const QByteArray &major, const QByteArray &minor, const QByteArray &message = "\"\"")
{
    return R"({"corvanta-for-halcon": {"major": )" + major + R"(, "minor": )" + minor +
           R"(}, "updateMessage": )" + message + "}";
}

QByteArray quoted(const QString &text)
{
    return '"' + text.toUtf8() + '"';
}

/// @p release as a line such as "1.9: message"; null when there is none.
QString description(const std::optional<OwnRelease> &release)
{
    return release ? QString::number(release->major) + '.' + QString::number(release->minor) + ": " +
                         release->message
                   : QString();
}

} // namespace

class OwnReleaseTest : public QObject {
    Q_OBJECT

private slots:
    void newer_data()
    {
        columns<QString, QString, QString, bool>("major", "minor", "ownVersion", "isNewer");

        const auto row = [](const QString &major, const QString &minor, const QString &ownVersion,
                            bool newer) {
            QTest::addRow("%s.%s for %s", qPrintable(major), qPrintable(minor), qPrintable(ownVersion))
                << major << minor << ownVersion << newer;
        };
        row("1", "9", "1.8", true);
        row("1", "8", "1.8", false);
        row("1", "10", "1.8", true);
        row("2", "0", "1.8", true);
        row("10", "0", "9.99", true);
        row("0", "99", "1.8", false);
        row("0", "0", "0.0", false);
        row("-1", "9", "1.8", false);
        row("1", "-9", "1.8", false);
    }

    void newer()
    {
        QFETCH(QString, major);
        QFETCH(QString, minor);
        QFETCH(QString, ownVersion);
        QFETCH(bool, isNewer);
        QStringList log;

        const auto release =
            newerOwnRelease(file(quoted(major), quoted(minor), "\"News\""), ownVersion, &log);

        QCOMPARE(description(release), isNewer ? major + '.' + minor + ": News" : QString());
        QCOMPARE(log, QStringList());
    }

    void unreadable_data()
    {
        // value: in JSON
        // text: as read
        const auto row = columns<QByteArray, QString>("value", "text");

        row("word", "\"nine\"", "nine");
        row("beyond 32 bits", "\"2147483648\"", "2147483648");
        row("what looks like a placeholder", "\"%1 %2\"", "%1 %2");
        // Read as empty strings.
        row("number", "9", "");
        row("array", "[\"9\"]", "");
    }

    void unreadable()
    {
        QFETCH(QByteArray, value);
        QFETCH(QString, text);
        for (const QString &name : {QStringLiteral("major"), QStringLiteral("minor")}) {
            QStringList log;
            const bool isMajor = name == "major";
            QVERIFY(
                !newerOwnRelease(file(isMajor ? value : "\"4\"", isMajor ? "\"4\"" : value), "1.8", &log));
            QCOMPARE(log, QStringList("Could not parse " + name + " version in string \"" + text +
                                      "\". Ignored update information."));
        }
    }

    void files_data()
    {
        const auto row = columns<QByteArray, QString, QStringList>("file", "release", "log");

        const QStringList noMajor{
            "Could not parse major version in string \"\". Ignored update information."};
        const QStringList noMinor{
            "Could not parse minor version in string \"\". Ignored update information."};
        const QByteArray whole = file("\"1\"", "\"9\"", "\"News\"");

        row("nothing", {}, {}, {"Could not fetch Corvanta for HALCON version update information file"});
        const QStringList broken{"Could not parse Corvanta for HALCON version update information file"};
        row("page of HTML", "<html><body>Not Found</body></html>", {}, broken);
        row("null", "null", {}, broken);
        row("last byte missing", whole.left(whole.size() - 1), {}, broken);
        row("more after", whole + '}', {}, broken);
        row("byte order mark", "\xef\xbb\xbf" + whole, "1.9: News", {});
        row("white space around", "\r\n " + whole + " \r\n", "1.9: News", {});
        row("other keys beside, and the message in the wrong place",
            R"({"a": [], "corvanta-for-halcon": {"minor": "9", "updateMessage": "News", "major": "1"}})",
            "1.9: ", {});
        row("array", "[" + whole + "]", {}, noMajor);
        row("key in upper case", R"({"Corvanta-for-HALCON": {"major": "1", "minor": "9"}})", {}, noMajor);
        row("numbers at the top", R"({"major": "1", "minor": "9"})", {}, noMajor);
        row("release is a string", R"({"corvanta-for-halcon": "1.9"})", {}, noMajor);
        row("no major version", R"({"corvanta-for-halcon": {"minor": "9"}})", {}, noMajor);
        row("no minor version, though the major one is newer", R"({"corvanta-for-halcon": {"major": "2"}})",
            {}, noMinor);
        row("neither is a number: the major version is named",
            R"({"corvanta-for-halcon": {"major": "a", "minor": "b"}})", {},
            {"Could not parse major version in string \"a\". Ignored update information."});
    }

    void files()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, release);
        QFETCH(QStringList, log);
        QStringList logged{"a line that is there already"};

        const auto read = newerOwnRelease(file, "1.8", &logged);

        QCOMPARE(logged, QStringList("a line that is there already") + log);
        QCOMPARE(description(read), release);
    }

    void ownVersions_data()
    {
        // numbers: empty when there are none
        columns<QString, QString, QString>("ownVersion", "numbers", "line");

        const auto row = [](const char *name, const QString &ownVersion, const QString &numbers) {
            ::row(name, ownVersion, numbers, QString());
        };
        const auto failure = [](const char *name, const QString &ownVersion, const QString &line) {
            ::row(name, ownVersion, QString(), line);
        };
        row("two numbers", "1.8", "1.8");
        row("words around", "version 1.8-beta 2", "1.8");
        row("two versions: the first counts", "1.8 2.9", "1.8");
        row("lone numbers before", "3 of 1.8", "1.8");
        row("minus sign does not count", "-1.8", "1.8");
        const QString noVersion = "could not parse our own major.minor version";
        failure("empty", "", noVersion);
        failure("one number", "18", noVersion);
        failure("nothing after the point", "1.", noVersion);
        failure("space inside", "1. 8", noVersion);
        const QString complaint = "Could not parse %1 version of current Corvanta for HALCON instance from "
                                  "string \"%2\". Ignored update information.";
        const auto unread = [&](const char *name, const QString &ownVersion, const QString &what) {
            failure(name, ownVersion, QString(complaint).arg(what, ownVersion));
        };
        unread("major version beyond 32 bits", "v2147483648.8", "major");
        unread("minor version beyond 32 bits", "1.2147483648 beta", "minor");
        unread("digits of another script", "\u0661.\u0668", "major");
        unread("placeholders", "%1 2147483648.8 %2", "major");
    }

    void ownVersions()
    {
        QFETCH(QString, ownVersion);
        QFETCH(QString, numbers);
        QFETCH(QString, line);
        const QStringList expectedLog = line.isEmpty() ? QStringList() : QStringList(line);
        const QStringList own = numbers.split('.');
        const QString &major = own.constFirst();
        const int minor = own.constLast().toInt();

        // The next release and the same release: only these numbers are in between.
        for (const int published : {minor + 1, minor}) {
            QStringList log;
            const auto release = newerOwnRelease(
                file(quoted(numbers.isEmpty() ? "1" : major), quoted(QString::number(published))), ownVersion,
                &log);
            QCOMPARE(log, expectedLog);
            QCOMPARE(release.has_value(), !numbers.isEmpty() && published > minor);
        }

        // The published version is read first.
        QStringList log;
        QVERIFY(!newerOwnRelease(file("\"x\"", "\"9\""), ownVersion, &log));
        QCOMPARE(log,
                 QStringList("Could not parse major version in string \"x\". Ignored update information."));
    }

    void messages_data()
    {
        // value: in JSON
        const auto row = columns<QByteArray, QString>("value", "message");

        row("string", "\"News\"", "News");
        row("empty", "\"\"", "");
        row("HTML", "\"<b>New:</b> <a href='http://x.example/'>more<\\/a><br>&amp; &lt;\"",
            "<b>New:</b> <a href='http://x.example/'>more</a><br>&amp; &lt;");
        row("placeholders", "\"%1 %2 100%\"", "%1 %2 100%");
        row("number", "7", "");
    }

    void messages()
    {
        QFETCH(QByteArray, value);
        QFETCH(QString, message);
        QStringList log;

        const auto release = newerOwnRelease(file("\"1\"", "\"9\"", value), "1.8", &log);

        QCOMPARE(description(release), "1.9: " + message);
        QCOMPARE(log, QStringList());
    }

    /// Placeholders and HTML stay what they are.
    void html()
    {
        const QString page = MakerAddresses::homePage();
        const QString message = "<b>%1 %2 %3 %4 %5 %6 100%</b> &amp; &lt;<br>";
        QCOMPARE(
            ownReleaseHtml({1, 9, message}, "1.8 %2 %4"),
            "An updated version of Corvanta for HALCON is available for download at<br><br><a href=\"" +
                page + "\">" + page +
                "</a><br><br>Your current version: 1.8 %2 %4<br>Latest version: 1.9<br><br>" + message +
                "<br><br>Note: This check can be disabled with the checkbox \"Enable Corvanta for HALCON "
                "Update Checks\" near the bottom of the main screen.");
    }
};

QTEST_GUILESS_MAIN(OwnReleaseTest)
#include "OwnReleaseTest.moc"
