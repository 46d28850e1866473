// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioSampleConverter.h>

#include <QtTest>

#include <limits>
#include <support/TestClass.h>

namespace {

template <typename T>
int Convert(T pSample)
{
    return AudioSampleConverter<T>()(pSample);
}

/// Every sample of a type short enough to try them all, against its meaning in plain arithmetic.
template <typename T, typename Meaning>
void CompareAll(Meaning pMeaning)
{
    for (int x = std::numeric_limits<T>::min(); x <= std::numeric_limits<T>::max(); ++x)
        QCOMPARE(Convert(static_cast<T>(x)), pMeaning(x));
}

template <typename T>
constexpr bool IsBareFunctor = std::is_polymorphic_v<AudioSampleConverter<T>> &&
                               !std::has_virtual_destructor_v<AudioSampleConverter<T>> &&
                               sizeof(AudioSampleConverter<T>) == sizeof(void*);

}  // namespace

class tst_AudioSampleConverter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void signed8_isScaledBy256();
    void unsigned8_isCenteredAndScaledBy256();
    void signed16_isUnchanged();
    void unsigned16_isCentered();
    void signed32_keepsUpper16Bits_data();
    void signed32_keepsUpper16Bits();
    void unsigned32_keepsUpper16BitsCentered_data();
    void unsigned32_keepsUpper16BitsCentered();
    void signed64_keepsUpper16Bits_data();
    void signed64_keepsUpper16Bits();
    void unsigned64_keepsUpper16BitsCentered_data();
    void unsigned64_keepsUpper16BitsCentered();
    void converter_isPolymorphicWithoutVirtualDestructor_isIntended();
    void call_isDispatchedVirtually();
};

void tst_AudioSampleConverter::signed8_isScaledBy256()
{
    CompareAll<signed char>([](int x) { return x * 256; });
    QCOMPARE(Convert<signed char>(-1), -256);
    QCOMPARE(Convert<signed char>(-128), -32768);
    QCOMPARE(Convert<signed char>(127), 32512);
}

void tst_AudioSampleConverter::unsigned8_isCenteredAndScaledBy256()
{
    CompareAll<unsigned char>([](int x) { return (x - 128) * 256; });
    QCOMPARE(Convert<unsigned char>(0x00), -32768);
    QCOMPARE(Convert<unsigned char>(0x80), 0);
    QCOMPARE(Convert<unsigned char>(0xFF), 32512);
}

void tst_AudioSampleConverter::signed16_isUnchanged()
{
    CompareAll<short>([](int x) { return x; });
}

void tst_AudioSampleConverter::unsigned16_isCentered()
{
    CompareAll<unsigned short>([](int x) { return x - 32768; });
}

void tst_AudioSampleConverter::signed32_keepsUpper16Bits_data()
{
    QTest::addColumn<int>("sample");
    QTest::addColumn<int>("converted");
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("0x7FFF0000") << 0x7FFF0000 << 32767;
    QTest::newRow("largest") << std::numeric_limits<int>::max() << 32767;
    QTest::newRow("smallest") << std::numeric_limits<int>::min() << -32768;
    QTest::newRow("low bits") << 0x0000FFFF << 0;
    QTest::newRow("0x00010000") << 0x00010000 << 1;
    QTest::newRow("-1") << -1 << -1;
    QTest::newRow("-65536") << -65536 << -1;
    QTest::newRow("-65537") << -65537 << -2;
}

void tst_AudioSampleConverter::signed32_keepsUpper16Bits()
{
    QFETCH(int, sample);
    QFETCH(int, converted);
    QCOMPARE(Convert<int>(sample), converted);
}

void tst_AudioSampleConverter::unsigned32_keepsUpper16BitsCentered_data()
{
    QTest::addColumn<unsigned>("sample");
    QTest::addColumn<int>("converted");
    QTest::newRow("0") << 0u << -32768;
    QTest::newRow("low bits") << 0xFFFFu << -32768;
    QTest::newRow("0x00010000") << 0x10000u << -32767;
    QTest::newRow("below the middle") << 0x7FFFFFFFu << -1;
    QTest::newRow("middle") << 0x80000000u << 0;
    QTest::newRow("largest") << 0xFFFFFFFFu << 32767;
}

void tst_AudioSampleConverter::unsigned32_keepsUpper16BitsCentered()
{
    QFETCH(unsigned, sample);
    QFETCH(int, converted);
    QCOMPARE(Convert<unsigned>(sample), converted);
}

void tst_AudioSampleConverter::signed64_keepsUpper16Bits_data()
{
    QTest::addColumn<qint64>("sample");
    QTest::addColumn<int>("converted");
    QTest::newRow("0") << qint64(0) << 0;
    QTest::newRow("largest 32 bits") << qint64(0x7FFFFFFF) << 0;
    QTest::newRow("-1") << qint64(-1) << -1;
    QTest::newRow("2^48 - 1") << Q_INT64_C(0x0000FFFFFFFFFFFF) << 0;
    QTest::newRow("2^48") << Q_INT64_C(0x0001000000000000) << 1;
    QTest::newRow("largest") << std::numeric_limits<qint64>::max() << 32767;
    QTest::newRow("smallest") << std::numeric_limits<qint64>::min() << -32768;
}

void tst_AudioSampleConverter::signed64_keepsUpper16Bits()
{
    QFETCH(qint64, sample);
    QFETCH(int, converted);
    QCOMPARE(Convert<long long>(sample), converted);
}

void tst_AudioSampleConverter::unsigned64_keepsUpper16BitsCentered_data()
{
    QTest::addColumn<quint64>("sample");
    QTest::addColumn<int>("converted");
    QTest::newRow("0") << quint64(0) << -32768;
    QTest::newRow("largest 32 bits") << quint64(0xFFFFFFFF) << -32768;
    QTest::newRow("2^48") << Q_UINT64_C(0x0001000000000000) << -32767;
    QTest::newRow("below the middle") << Q_UINT64_C(0x7FFFFFFFFFFFFFFF) << -1;
    QTest::newRow("middle") << Q_UINT64_C(0x8000000000000000) << 0;
    QTest::newRow("largest") << std::numeric_limits<quint64>::max() << 32767;
}

void tst_AudioSampleConverter::unsigned64_keepsUpper16BitsCentered()
{
    QFETCH(quint64, sample);
    QFETCH(int, converted);
    QCOMPARE(Convert<unsigned long long>(sample), converted);
}

void tst_AudioSampleConverter::converter_isPolymorphicWithoutVirtualDestructor_isIntended()
{
    QVERIFY(IsBareFunctor<signed char> && IsBareFunctor<unsigned char>);
    QVERIFY(IsBareFunctor<short> && IsBareFunctor<unsigned short>);
    QVERIFY(IsBareFunctor<int> && IsBareFunctor<unsigned int>);
    QVERIFY(IsBareFunctor<long long> && IsBareFunctor<unsigned long long>);
}

void tst_AudioSampleConverter::call_isDispatchedVirtually()
{
    struct Doubling final : AudioSampleConverter<short>
    {
        qint16 operator()(short pSample) const override { return qint16(2 * pSample); }
    };
    const Doubling doubling;
    const AudioSampleConverter<short>& converter = doubling;
    QCOMPARE(int(converter(21)), 42);
}

AA_TEST(tst_AudioSampleConverter, NoApplication)
#include "tst_AudioSampleConverter.moc"
