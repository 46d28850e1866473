// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/Pulse.h>

#include <QString>
#include <QtTest>

#include <cstdlib>
#include <malloc.h>
#include <support/AllocationGuard.h>
#include <support/TestClass.h>
#include <thread>

namespace {

/// Keeps the compiler from removing an allocation.
void* volatile pSink = nullptr;

template <typename Allocate>
std::size_t countAndFree(Allocate allocate)
{
    std::size_t count = 0;
    {
        const AllocationGuard guard;
        pSink = allocate();
        count = AllocationGuard::getCount();
    }
    std::free(pSink);
    return count;
}

}  // namespace

class tst_AllocationGuard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void guard_countsEveryKindOfAllocation_once();
    void guard_keepsSizes();
    void guard_countsNew();
    void guard_countsTheSharedLibraries();
    void guard_ignoresOtherThreadsAndOtherTimes();
    void replacements_giveUsableMemory();
};

void tst_AllocationGuard::guard_countsEveryKindOfAllocation_once()
{
    const std::size_t once = 1;
    QCOMPARE(countAndFree([] { return std::malloc(10); }), once);
    QCOMPARE(countAndFree([] { return std::calloc(10, 10); }), once);
    QCOMPARE(countAndFree([] { return std::realloc(nullptr, 10); }), once);
    QCOMPARE(countAndFree([] { return reallocarray(nullptr, 10, 10); }), once);
    QCOMPARE(countAndFree([] { return memalign(64, 128); }), once);
    QCOMPARE(countAndFree([] { return std::aligned_alloc(64, 128); }), once);
    QCOMPARE(countAndFree([] { return valloc(128); }), once);
    QCOMPARE(countAndFree([] {
                 void* pBlock = nullptr;
                 return posix_memalign(&pBlock, 64, 128) == 0 ? pBlock : nullptr;
             }),
             once);
    QCOMPARE(countAndFree([]() -> void* { return nullptr; }), std::size_t(0));
}

void tst_AllocationGuard::guard_keepsSizes()
{
    std::size_t sizes[3] = {};
    {
        const AllocationGuard guard;
        pSink = std::malloc(123);
        std::free(pSink);
        pSink = std::calloc(4, 5);
        std::free(pSink);
        for (std::size_t i = 0; i < 3; ++i)
            sizes[i] = AllocationGuard::getSize(i);
    }
    QCOMPARE(sizes[0], std::size_t(123));
    QCOMPARE(sizes[1], std::size_t(20));
    QCOMPARE(sizes[2], std::size_t(0));
}

void tst_AllocationGuard::guard_countsNew()
{
    struct alignas(64) Wide
    {
        char bytes[64];
    };
    const AllocationGuard guard;
    int* volatile pValue = new int(1);
    Wide* volatile pWide = new Wide;
    const std::size_t count = AllocationGuard::getCount();
    delete pValue;
    delete pWide;
    QCOMPARE(count, std::size_t(2));
}

void tst_AllocationGuard::guard_countsTheSharedLibraries()
{
    std::size_t countOfQt = 0;
    std::size_t countOfOurs = 0;
    {
        const AllocationGuard guard;
        const QString text(100, QLatin1Char('x'));
        countOfQt = AllocationGuard::getCount();
    }
    {
        const AllocationGuard guard;
        const Pulse pulse(0, 0, 1, 44100, 0, 0, 0, ePulse);
        const Pulse copy = pulse;
        countOfOurs = AllocationGuard::getCount();
    }
    QCOMPARE(countOfQt, std::size_t(1));
    QCOMPARE(countOfOurs, std::size_t(1));
}

void tst_AllocationGuard::guard_ignoresOtherThreadsAndOtherTimes()
{
    std::size_t countOfThread = 99;
    std::size_t before = 0;
    std::size_t after = 0;
    {
        const AllocationGuard guard;
        std::thread thread([&countOfThread] {
            std::free(std::malloc(10));
            countOfThread = AllocationGuard::getCount();
        });
        before = AllocationGuard::getCount();
        thread.join();
        after = AllocationGuard::getCount();
    }
    QCOMPARE(countOfThread, std::size_t(0));
    QCOMPARE(after, before);
    pSink = std::malloc(10);
    std::free(pSink);
    QCOMPARE(AllocationGuard::getCount(), after);
}

void tst_AllocationGuard::replacements_giveUsableMemory()
{
    auto* pBytes = static_cast<unsigned char*>(std::calloc(1000, 1));
    QVERIFY(std::all_of(pBytes, pBytes + 1000, [](unsigned char byte) { return byte == 0; }));
    std::fill(pBytes, pBytes + 1000, static_cast<unsigned char>(7));
    pBytes = static_cast<unsigned char*>(std::realloc(pBytes, 100000));
    QVERIFY(std::all_of(pBytes, pBytes + 1000, [](unsigned char byte) { return byte == 7; }));
    std::free(pBytes);

    void* pAligned = nullptr;
    QCOMPARE(posix_memalign(&pAligned, 4096, 10), 0);
    QCOMPARE(reinterpret_cast<quintptr>(pAligned) % 4096, quintptr(0));
    std::free(pAligned);
    QCOMPARE(posix_memalign(&pAligned, 3, 10), EINVAL);
}

AA_TEST(tst_AllocationGuard, NoApplication)
#include "tst_AllocationGuard.moc"
