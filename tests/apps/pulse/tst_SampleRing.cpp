// SPDX-License-Identifier: MIT
#include <shared/pulse/detail/SampleRing.h>

#include <QtTest>

#include <numeric>
#include <support/TestClass.h>
#include <vector>

namespace {

using Samples = std::vector<qint16>;

Samples Count(int pFrom, int pCount)
{
    Samples samples(std::size_t(pCount), 0);
    std::iota(samples.begin(), samples.end(), qint16(pFrom));
    return samples;
}

void Write(pulse::SampleRing& pRing, const Samples& pSamples)
{
    pRing.Write(pSamples.data(), pSamples.size());
}

Samples Read(pulse::SampleRing& pRing, std::size_t pCount)
{
    Samples samples(pCount);
    samples.resize(pRing.Read(samples.data(), pCount));
    return samples;
}

}  // namespace

class tst_SampleRing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void samples_comeOutAsTheyWentIn();
    void nothing_isLost_upToTheCapacity();
    void oldest_areLost_beyondTheCapacity();
    void moreThanTheCapacity_leavesTheLast();
    void nothing_standsForSilence();
};

void tst_SampleRing::samples_comeOutAsTheyWentIn()
{
    pulse::SampleRing ring(7);
    Samples read;
    for (int i = 0; i < 100; i += 5) {
        Write(ring, Count(i, 5));
        for (const qint16 sample : Read(ring, 3))
            read.push_back(sample);
        for (const qint16 sample : Read(ring, 9))
            read.push_back(sample);
        QCOMPARE(ring.getSize(), std::size_t(0));
    }
    QCOMPARE(read, Count(0, 100));
    QCOMPARE(ring.getWritten(), quint64(100));
    QCOMPARE(ring.getRead(), quint64(100));
    QCOMPARE(ring.getLost(), quint64(0));
}

void tst_SampleRing::nothing_isLost_upToTheCapacity()
{
    pulse::SampleRing ring(6);
    Write(ring, Count(0, 4));
    QCOMPARE(Read(ring, 1), Count(0, 1));
    Write(ring, Count(4, 3));
    QCOMPARE(ring.getSize(), std::size_t(6));
    QCOMPARE(ring.getLost(), quint64(0));
    QCOMPARE(Read(ring, 10), Count(1, 6));
}

void tst_SampleRing::oldest_areLost_beyondTheCapacity()
{
    pulse::SampleRing ring(6);
    Write(ring, Count(0, 5));
    Write(ring, Count(5, 3));
    QCOMPARE(ring.getLost(), quint64(2));
    QCOMPARE(ring.getRead(), quint64(2));
    QCOMPARE(Read(ring, 10), Count(2, 6));
    QCOMPARE(ring.getRead(), quint64(8));
    Write(ring, Count(8, 6));
    QCOMPARE(ring.getLost(), quint64(2));
}

void tst_SampleRing::moreThanTheCapacity_leavesTheLast()
{
    pulse::SampleRing ring(4);
    Write(ring, Count(0, 11));
    QCOMPARE(ring.getLost(), quint64(7));
    QCOMPARE(Read(ring, 10), Count(7, 4));
}

void tst_SampleRing::nothing_standsForSilence()
{
    pulse::SampleRing ring(8);
    Write(ring, Count(1, 2));
    ring.Write(nullptr, 3);
    Write(ring, Count(3, 1));
    QCOMPARE(Read(ring, 10), Samples({1, 2, 0, 0, 0, 3}));
}

AA_TEST(tst_SampleRing, NoApplication)
#include "tst_SampleRing.moc"
