// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include "support/AllocationGuard.h"
#include "support/ConfigSandbox.h"
#include "support/FileBuilder.h"

#include <QtTest>

#include <algorithm>
#include <support/TestClass.h>

namespace {

struct Use
{
    std::size_t count = 0;    // allocations
    std::size_t largest = 0;  // bytes, among the first 64 allocations
};

/// What one load asks for, after a first load of the same file.
Use useOf(const ConfigSandbox& pSandbox, const QByteArray& pFile)
{
    pSandbox.load(pFile);
    const QString path = pSandbox.path();
    Use use;
    const AllocationGuard guard;
    delete Configuration::_Load(path);
    use.count = AllocationGuard::getCount();
    for (std::size_t i = 0; i < std::min<std::size_t>(use.count, 64); ++i)
        use.largest = std::max(use.largest, AllocationGuard::getSize(i));
    return use;
}

}  // namespace

class tst_ConfigurationFile_memory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void announcedSize_allocatesNothing_data();
    void announcedSize_allocatesNothing();
    void longText_isAllocatedOnceItIsThere();
};

void tst_ConfigurationFile_memory::announcedSize_allocatesNothing_data()
{
    QTest::addColumn<QByteArray>("field");
    for (const char* field : {"device", "profile count", "name", "name 2", "language"})
        QTest::newRow(field) << QByteArray(field);
}

void tst_ConfigurationFile_memory::announcedSize_allocatesNothing()
{
    QFETCH(QByteArray, field);
    const ConfigSandbox sandbox;
    const FileBuilder good = FileBuilder::sample(1, 2);
    const Use whole = useOf(sandbox, good.bytes());
    const Use lying = useOf(sandbox, FileBuilder(good).setI16(field, 0xFFFF).reseal().bytes());
    QVERIFY(whole.count > 0);
    QVERIFY(lying.count <= whole.count);
    QVERIFY(lying.largest <= whole.largest);
    // The file's read buffer is the largest thing that a small file needs.
    QVERIFY(whole.largest < 40000);
}

void tst_ConfigurationFile_memory::longText_isAllocatedOnceItIsThere()
{
    const ConfigSandbox sandbox;
    FileBuilder file;
    file.head(1, 0).settings(1).profile(100, QByteArray(65535, 'x'), "").seal();
    const Use use = useOf(sandbox, file.bytes());
    // UTF-8 and UTF-16 of the name, and the bytes that are summed up.
    QVERIFY(use.largest > 65535);
    QVERIFY(use.largest < 300000);
}

AA_TEST(tst_ConfigurationFile_memory, QCoreApplication)
#include "tst_ConfigurationFile_memory.moc"
