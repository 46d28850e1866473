// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioSamplesStats.h>

#include "TestSeed.h"

#include <QtTest>

#include <algorithm>
#include <deque>
#include <support/TestClass.h>
#include <support/Waves.h>

using waves::Samples;

namespace {

/// The window as a plain queue.
class Model
{
public:
    explicit Model(std::size_t capacity) : m_capacity(capacity) {}

    void update(const Samples& samples)
    {
        for (const qint16 sample : samples) {
            m_samples.push_back(sample);
            if (m_samples.size() > m_capacity)
                m_samples.pop_front();
        }
    }
    void reset() { m_samples.clear(); }
    void resize(std::size_t capacity)
    {
        m_capacity = capacity;
        if (!m_samples.empty())
            m_samples = {maximum(), minimum()};
    }

    bool isEmpty() const { return m_samples.empty(); }
    qint16 average() const
    {
        qint64 sum = 0;
        for (const qint16 sample : m_samples)
            sum += magnitude(sample);
        return isEmpty() ? qint16(-1) : qint16(quint64(sum) / quint64(m_samples.size()));
    }
    qint16 maximum() const
    {
        qint16 value = -32768;
        for (const qint16 sample : m_samples)
            value = std::max(value, magnitude(sample));
        return isEmpty() ? qint16(-1) : value;
    }
    qint16 minimum() const
    {
        qint16 value = 32767;
        for (const qint16 sample : m_samples)
            value = std::min(value, magnitude(sample));
        return isEmpty() ? qint16(-1) : value;
    }

private:
    static qint16 magnitude(qint16 sample)
    {
        return sample == -32768 ? sample : qint16(std::abs(int(sample)));
    }

    std::size_t m_capacity;
    std::deque<qint16> m_samples;
};

}  // namespace

class tst_AudioSamplesStats_model : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void window_equalsTheModel_atEveryOffsetAndCount();
    void window_equalsTheModel_inRandomRuns();

private:
    static bool isEqual(const AudioSamplesStats& stats, const Model& model)
    {
        return stats.getAverageVolume() == model.average() &&
               stats.getMaximalVolume() == model.maximum() &&
               stats.getMinimalVolume() == model.minimum();
    }
};

void tst_AudioSamplesStats_model::window_equalsTheModel_atEveryOffsetAndCount()
{
    waves::Random random(testSeed());
    constexpr std::size_t capacity = 13;
    for (std::size_t offset = 0; offset <= 2 * capacity; ++offset) {
        for (std::size_t count = 1; count <= 2 * capacity + 1; ++count) {
            AudioSamplesStats stats(1.0, double(capacity));
            Model model(capacity);
            for (const std::size_t length : {offset, count, std::size_t(1)}) {
                Samples samples = waves::noise(length, 32767, random);
                stats.Update(samples.data(), samples.size());
                model.update(samples);
                QVERIFY(isEqual(stats, model));
            }
        }
    }
}

void tst_AudioSamplesStats_model::window_equalsTheModel_inRandomRuns()
{
    waves::Random random(testSeed());
    for (int run = 0; run < 300; ++run) {
        std::size_t capacity = 2 + random.below(50);
        AudioSamplesStats stats(1.0, double(capacity));
        Model model(capacity);
        for (int step = 0; step < 100; ++step) {
            Samples samples = waves::noise(random.below(70), random.between(0, 32767), random);
            if (!samples.empty() && random.chance(0.02))
                samples[random.below(samples.size())] = -32768;
            QCOMPARE(stats.Update(samples.data(), samples.size()), !samples.empty());
            model.update(samples);
            QVERIFY(isEqual(stats, model));
            if (random.chance(0.02)) {
                stats.Reset();
                model.reset();
                QVERIFY(isEqual(stats, model));
            }
            if (random.chance(0.05)) {
                const std::size_t next = 2 + random.below(50);
                QCOMPARE(stats._Resize(next), next != capacity);
                if (next != capacity)
                    model.resize(capacity = next);
                // The old figures stay until the next samples.
                Samples one = waves::noise(1, 32767, random);
                stats.Update(one.data(), 1);
                model.update(one);
                QVERIFY(isEqual(stats, model));
            }
        }
    }
}

AA_TEST(tst_AudioSamplesStats_model, NoApplication)
#include "tst_AudioSamplesStats_model.moc"
