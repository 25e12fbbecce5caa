// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLDiskState.h"
#include "faults/PLNotebookOperations.h"
#include "faults/PLPrivateMounts.h"
#include "storage/PLProject.h"
#include "support/PLTestDisk.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QTemporaryDir>
#include <QTest>

#include <cerrno>

#include <sys/statvfs.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 block = 4'096;                    // bytes
const QByteArray oldText = PLPageText('a', 1'400); // as PLNotebookOnDisk has it

/// Leaves that many blocks free on the disk of this folder.
bool fill(const QString &folder, qint64 freeBlocks)
{
    struct statvfs status = {};
    if (::statvfs(QFile::encodeName(folder).constData(), &status) != 0)
        return false;
    const qint64 bytes = (qint64(status.f_bfree) - freeBlocks) * qint64(status.f_bsize);
    return bytes >= 0 && PLMakeFile(folder + u"/filler"_s, QByteArray(bytes, 'x'));
}

} // namespace

/// Disks that are full, read-only or gone, for real where this process may mount its own.
class PLRealDisksTest final : public QObject
{
    Q_OBJECT

public:
    explicit PLRealDisksTest(const QString &refusal) : m_refusal(refusal) {}

private Q_SLOTS:
    void init();
    void cleanup();

    void aFullDiskKeepsTheOldText_data();
    void aFullDiskKeepsTheOldText();
    void aDiskWithoutRoomForAFileKeepsTheOldText();
    void aReadOnlyDiskIsReadAndRefusesChanges();
    void aDiskThatHasGoneIsNotWrittenWhereItWas();
    void aFolderThatVanishesAndReturnsTakesTheNextSave();
    void aFileThatMayNotGrowKeepsTheOldText_data();
    void aFileThatMayNotGrowKeepsTheOldText();

private:
    QString folder() const { return m_folder->filePath(u"disk"_s); }
    QString pagePath() const { return folder() + u"/Roman/Livre/01 - Départ.md"_s; }
    PLProjectItemPointer page() const;
    bool save(const QByteArray &text, int *code = nullptr) const;
    void makeNotebook();
    void checkOldPage() const;
    void mount(const QByteArray &options);

    QString m_refusal;
    PLTestEnvironment m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<PLMountedDisk> m_disk;
    std::unique_ptr<PLProject> m_project;
};

#define NEED_MOUNTS()                                                                                        \
    if (!m_refusal.isEmpty())                                                                                \
    QSKIP(qPrintable(u"this machine lets no test mount a disk: "_s + m_refusal))

void PLRealDisksTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir().mkdir(folder()));
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder->filePath(u"home"_s)));
}

void PLRealDisksTest::cleanup()
{
    m_project.reset();
    m_disk.reset();
}

PLProjectItemPointer PLRealDisksTest::page() const
{
    return PLProjectItem::itemWithURL(QUrl::fromLocalFile(pagePath()), PLSection::Book);
}

bool PLRealDisksTest::save(const QByteArray &text, int *code) const
{
    PLError error;
    const bool isSaved = page()->writeContents(QString::fromUtf8(text), &error);
    if (code)
        *code = error.code;
    return isSaved;
}

void PLRealDisksTest::makeNotebook()
{
    QVERIFY(PLNotebookOnDisk().build(folder()));
    m_project = PLProject::openProjectAtURL(QUrl::fromLocalFile(folder() + u"/Roman"_s));
    QVERIFY(m_project != nullptr);
}

void PLRealDisksTest::mount(const QByteArray &options)
{
    m_disk = std::make_unique<PLMountedDisk>(folder(), options);
    QVERIFY(m_disk->isMounted());
}

/// The page is as it was and nothing is beside it.
void PLRealDisksTest::checkOldPage() const
{
    QCOMPARE(PLBytesOf(pagePath()), oldText);
    QCOMPARE(PLNamesIn(folder() + u"/Roman/Livre"_s),
             (QStringList{u"01 - Départ.md"_s, u"02 - Retour.md"_s}));
}

void PLRealDisksTest::aFullDiskKeepsTheOldText_data()
{
    QTest::addColumn<qint64>("size");
    for (const qint64 size : {0, 1, 4'095, 4'096, 16'383, 16'384, 16'385, 100'000, 1'000'000})
        QTest::addRow("%lld bytes", size) << size;
}

void PLRealDisksTest::aFullDiskKeepsTheOldText()
{
    NEED_MOUNTS();
    QFETCH(qint64, size);
    const QByteArray text = PLPageText('n', size);
    const qint64 needed = (size + block - 1) / block;
    for (qint64 freeBlocks = 0; freeBlocks <= qMin<qint64>(needed, 16); ++freeBlocks) {
        mount("size=2M");
        makeNotebook();
        QVERIFY(fill(folder(), freeBlocks));
        int code = 0;
        const bool isSaved = save(text, &code);
        QCOMPARE(isSaved, freeBlocks >= needed);
        if (!isSaved) {
            QCOMPARE(code, ENOSPC);
            checkOldPage();
            QVERIFY(QFile::remove(folder() + u"/filler"_s));
            QVERIFY(save(text));
        }
        QCOMPARE(PLBytesOf(pagePath()), text);
        cleanup();
    }
}

void PLRealDisksTest::aDiskWithoutRoomForAFileKeepsTheOldText()
{
    NEED_MOUNTS();
    mount("nr_inodes=40");
    makeNotebook();
    int fillers = 0;
    while (PLMakeFile(folder() + u"/filler %1"_s.arg(fillers)))
        ++fillers;
    QVERIFY(fillers > 0);

    int code = 0;
    QVERIFY(!save("new", &code));
    QCOMPARE(code, ENOSPC);
    PLError error;
    QVERIFY(!m_project->createItemInSection(PLSection::Book, u"Milieu"_s, &error));
    QCOMPARE(error.code, ENOSPC);
    checkOldPage();
    const PLProjectItemPointer renamed = page();
    QVERIFY(m_project->renameItem(*renamed, u"DÉPART"_s)); // which needs no room
    QVERIFY(m_project->renameItem(*renamed, u"Départ"_s));
    checkOldPage();

    QVERIFY(QFile::remove(folder() + u"/filler 0"_s));
    QVERIFY(save("new"));
    QCOMPARE(PLBytesOf(pagePath()), "new");
}

void PLRealDisksTest::aReadOnlyDiskIsReadAndRefusesChanges()
{
    NEED_MOUNTS();
    mount("size=1M");
    makeNotebook();
    const PLDiskState before = PLDiskState::read(folder());
    QVERIFY(m_disk->setReadOnly(true));

    const auto project = PLProject::openProjectAtURL(m_project->folderURL());
    QVERIFY(project != nullptr);
    QCOMPARE(page()->readContents(), QString::fromUtf8(oldText));
    int code = 0;
    QVERIFY(!save("new", &code));
    QCOMPARE(code, EROFS);
    QVERIFY(!project->createItemInSection(PLSection::Notes, u"Port"_s));
    QVERIFY(!project->renameItem(*page(), u"Fuite"_s));
    QVERIFY(!project->renameItem(*page(), u"DÉPART"_s));
    QVERIFY(!project->trashItem(*page()));
    QVERIFY(!project->saveMetadata());
    QVERIFY(!PLProject::setCoverImageFromURL(QUrl::fromLocalFile(folder() + u"/photo.jpg"_s),
                                             project->folderURL()));
    QVERIFY(PLDiskState::read(folder()) == before);

    QVERIFY(m_disk->setReadOnly(false));
    QVERIFY(save("new"));
    QCOMPARE(PLBytesOf(pagePath()), "new");
}

void PLRealDisksTest::aDiskThatHasGoneIsNotWrittenWhereItWas()
{
    NEED_MOUNTS();
    const QString away = m_folder->filePath(u"away"_s);
    QVERIFY(QDir().mkdir(away));
    PLBoundFolder disk(away, folder());
    QVERIFY(disk.show());
    makeNotebook();
    const PLDiskState before = PLDiskState::read(away);

    disk.take();
    QVERIFY(!save("new"));
    QVERIFY(!m_project->createItemInSection(PLSection::Book));
    QVERIFY(!m_project->renameItem(*page(), u"Fuite"_s));
    QVERIFY(!m_project->saveMetadata());
    QCOMPARE(PLNamesIn(folder()), QStringList{});
    QVERIFY(PLDiskState::read(away) == before);

    QVERIFY(disk.show());
    QVERIFY(save("new"));
    QCOMPARE(PLBytesOf(away + u"/Roman/Livre/01 - Départ.md"_s), "new");
}

void PLRealDisksTest::aFolderThatVanishesAndReturnsTakesTheNextSave()
{
    makeNotebook();
    const QString notebook = folder() + u"/Roman"_s;
    const QString away = folder() + u"/away"_s;
    QVERIFY(QDir().rename(notebook, away));
    int code = 0;
    QVERIFY(!save("new", &code));
    QCOMPARE(code, ENOENT);
    QVERIFY(!m_project->createItemInSection(PLSection::Book));
    QVERIFY(!m_project->saveMetadata());
    QVERIFY(!QFileInfo::exists(notebook));

    QVERIFY(QDir().rename(away, notebook));
    checkOldPage();
    QVERIFY(save("new"));
    QCOMPARE(PLBytesOf(pagePath()), "new");
}

void PLRealDisksTest::aFileThatMayNotGrowKeepsTheOldText_data()
{
    QTest::addColumn<qint64>("size");
    for (const qint64 size : {1, 4'095, 4'096, 4'097, 16'383, 16'384, 16'385, 100'000})
        QTest::addRow("%lld bytes", size) << size;
}

void PLRealDisksTest::aFileThatMayNotGrowKeepsTheOldText()
{
    QFETCH(qint64, size);
    makeNotebook();
    for (const qint64 limit : {qint64(0), size / 3, size / 2, size - 1}) {
        int code = 0;
        {
            const PLFullDisk full{rlim_t(limit)};
            QVERIFY(!save(PLPageText('n', size), &code));
        }
        QCOMPARE(code, EFBIG);
        checkOldPage();
    }
    QVERIFY(save(PLPageText('n', size)));
    QCOMPARE(PLBytesOf(pagePath()), PLPageText('n', size));
}

int main(int argumentCount, char **arguments)
{
    const QString refusal = PLPrivateMounts::enter();
    QCoreApplication application(argumentCount, arguments);
    PLRealDisksTest test(refusal);
    return QTest::qExec(&test, argumentCount, arguments);
}

#include "PLRealDisksTest.moc"
