#include "card/Documentation.h"
#include "tests/card/DocumentationLines.h"
#include "tests/card/DocumentationTree.h"
#include "tests/support/Messages.h"

#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Revokes the right to read a directory until the end.
class UnreadableDirectory {
public:
    explicit UnreadableDirectory(const QString &path) : path(path)
    {
        QFile::setPermissions(path, QFile::Permissions());
    }
    UnreadableDirectory(const UnreadableDirectory &) = delete;
    UnreadableDirectory &operator=(const UnreadableDirectory &) = delete;
    ~UnreadableDirectory()
    {
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

private:
    QString path;
};

/// Drops, until the end, root's right to read everything, if the test runs as root.
class OrdinaryUser {
public:
    OrdinaryUser() : user(geteuid())
    {
        constexpr uid_t nobody = 65534;
        changed = user == 0 && setresuid(nobody, nobody, user) == 0;
    }
    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;
    ~OrdinaryUser()
    {
        if (changed && setresuid(user, user, user) != 0) {
            qFatal("could not become user %u again", user);
        }
    }

private:
    uid_t user;
    bool changed = false;
};

} // namespace

/// Cases that only a Unix file system has.
class DocumentationFileSystemTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // By default everybody may read the files of the tests.
        umask(S_IWGRP | S_IWOTH);
    }

    void unreadableDirectory()
    {
        const DocumentationTree tree;
        tree.add({"doc/pdf/manuals/quick_guide.pdf", "doc/pdf/reference/reference_hdevelop.pdf",
                  "doc/html/reference/io/io-overview.html"});
        // By default only its owner may read the temporary directory.
        constexpr QFile::Permissions forAll = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                              QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther |
                                              QFile::ExeOther;
        QVERIFY(QFile::setPermissions(QFileInfo(tree.installDir()).path(), forAll));
        const UnreadableDirectory manuals(tree.path("doc/pdf/manuals"));
        const CaughtMessages messages;
        QStringList found;
        {
            const OrdinaryUser user;
            QVERIFY(!QFileInfo::exists(tree.path("doc/pdf/manuals/quick_guide.pdf")));
            found = allEntryLines(findDocumentation(tree.installDir()), tree);
        }
        QCOMPARE(
            found,
            (QStringList{"Reference > HALCON/HDevelop Reference = doc/pdf/reference/reference_hdevelop.pdf",
                         "I/O Interfaces Reference = doc/html/reference/io/io-overview.html"}));
        QCOMPARE(messages.warnings(), QStringList());
    }

    void loopOfLinks()
    {
        const DocumentationTree tree;
        tree.add({"doc/pdf/manuals/quick_guide.pdf"});
        QVERIFY(QFile::link(tree.path("doc/pdf"), tree.path("doc/pdf/manuals/up")));
        QVERIFY(QFile::link(".", tree.path("doc/pdf/self")));
        const CaughtMessages messages;
        QCOMPARE(allEntryLines(findDocumentation(tree.installDir()), tree),
                 QStringList{"Manuals > Quick Guide = doc/pdf/manuals/quick_guide.pdf"});
        QCOMPARE(messages.warnings(), QStringList());
    }

    void linkedFiles()
    {
        const DocumentationTree tree;
        tree.add({"elsewhere/file.bin"});
        tree.add({"doc/pdf/manuals/readme.txt"});
        QVERIFY(QFile::link(tree.path("elsewhere/file.bin"), tree.path("doc/pdf/manuals/quick_guide.pdf")));
        QVERIFY(
            QFile::link(tree.path("elsewhere/missing"), tree.path("doc/pdf/manuals/programmers_guide.pdf")));
        const CaughtMessages messages;
        QCOMPARE(allEntryLines(findDocumentation(tree.installDir()), tree),
                 QStringList{"Manuals > Quick Guide = doc/pdf/manuals/quick_guide.pdf"});
        QCOMPARE(messages.warnings(), QStringList());
    }

    /// A backslash separates directories whatever its source.
    void backslashInADirectoryName()
    {
        const DocumentationTree tree;
        tree.add({"doc/pdf/manuals\\reference/quick_guide.pdf"});
        const CaughtMessages messages;
        QCOMPARE(
            allEntryLines(findDocumentation(tree.installDir()), tree),
            QStringList{"Manuals > Reference > Quick Guide = doc/pdf/manuals\\reference/quick_guide.pdf"});
        QCOMPARE(messages.warnings(), QStringList());
    }
};

QTEST_GUILESS_MAIN(DocumentationFileSystemTest)
#include "DocumentationFileSystemTest.moc"
