// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <QtTest>

#include <limits>
#include <support/Numbers.h>
#include <support/TestClass.h>
#include <type_traits>

namespace {

/// One plain setting: its setter, its member and its default.
template <typename Value>
struct Setting
{
    const char* name;
    bool (Configuration::*set)(Value);
    Value Configuration::*member;
    Value initial;
};

const Setting<double> kDurations[] = {
    {"average volume",
     &Configuration::setAverageVolumeCalculationDuration,
     &Configuration::m_averageVolumeCalculationDuration,
     2.0},
    {"BPM",
     &Configuration::setBPMCalculationDuration,
     &Configuration::m_bpmCalculationDuration,
     10.0},
    {"normalization",
     &Configuration::setNormalizationDuration,
     &Configuration::m_normalizationDuration,
     5.0},
    {"stop detection",
     &Configuration::setStopDetectionDuration,
     &Configuration::m_stopDetectionDuration,
     0.5},
};

const Setting<bool> kFlags[] = {
    {"speakers", &Configuration::setDisplaySpeakers, &Configuration::m_displaySpeakers, true},
    {"stopped", &Configuration::setDisplayStopped, &Configuration::m_displayStopped, false},
    {"virtual beats",
     &Configuration::setDisplayVirtualBeatsWhenStopped,
     &Configuration::m_displayVirtualBeatsWhenStopped,
     false},
    {"gray mode", &Configuration::setGrayMode, &Configuration::m_grayMode, true},
    {"top most", &Configuration::setTopMost, &Configuration::m_topMost, true},
};

const Setting<short> kThresholds[] = {
    {"normalization",
     &Configuration::setNormalizationThreshold,
     &Configuration::m_normalizationThreshold,
     16383},
    {"stop detection",
     &Configuration::setStopDetectionThreshold,
     &Configuration::m_stopDetectionThreshold,
     3276},
};

template <typename Value>
void addRows(const Value& pSettings)
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const auto& setting : pSettings)
        QTest::newRow(setting.name) << index++;
}

}  // namespace

class tst_Configuration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void class_isPlainValue();
    void constructor_setsDefaults();
    void getters_readTheirOwnMember();
    void durationSetter_storesAndMarks_data() { addRows(kDurations); }
    void durationSetter_storesAndMarks();
    void durationSetter_takesNaNAsChangeEveryTime_isIntended_data() { addRows(kDurations); }
    void durationSetter_takesNaNAsChangeEveryTime_isIntended();
    void flagSetter_storesAndMarks_data() { addRows(kFlags); }
    void flagSetter_storesAndMarks();
    void thresholdSetter_storesAndMarks_data() { addRows(kThresholds); }
    void thresholdSetter_storesAndMarks();
    void setters_checkNoRange_isIntended();
    void setThreshold_takesAnyNegativeAsAutomatic_data();
    void setThreshold_takesAnyNegativeAsAutomatic();
    void setThreshold_walksThroughSequence();
    void setLanguage_ignoresCase_data();
    void setLanguage_ignoresCase();
    void setLanguage_storesNullText_whenCleared();
    void setLanguage_refusesOwnText();
    void setIsModified_storesMarkAndIsAlwaysTrue();
    void isModified_staysSet_whenValueIsSetBack();
};

void tst_Configuration::class_isPlainValue()
{
    static_assert(!std::is_polymorphic_v<Configuration>);
    static_assert(std::is_copy_constructible_v<Configuration>);
    const Configuration configuration;
    // Alphabetical declaration order, seen from both ends.
    const auto address = [](const auto& pMember) { return reinterpret_cast<quintptr>(&pMember); };
    QCOMPARE(address(configuration), address(configuration.m_averageVolumeCalculationDuration));
    QVERIFY(address(configuration.m_stopDetectionThreshold) < address(configuration.m_threshold));
    QVERIFY(address(configuration.m_threshold) < address(configuration.m_topMost));
}

void tst_Configuration::constructor_setsDefaults()
{
    const Configuration configuration;
    QCOMPARE(configuration.getAverageVolumeCalculationDuration(), 2.0);
    QCOMPARE(configuration.getBPMCalculationDuration(), 10.0);
    QCOMPARE(configuration.getDisplaySpeakers(), true);
    QCOMPARE(configuration.m_displayStopped, false);
    QCOMPARE(configuration.getDisplayVirtualBeatsWhenStopped(), false);
    QCOMPARE(configuration.getGrayMode(), true);
    QCOMPARE(configuration.isModified(), false);
    QCOMPARE(configuration.getLanguage(), QString());
    QCOMPARE(configuration.getNormalizationDuration(), 5.0);
    QCOMPARE(configuration.getNormalizationThreshold(), short(16383));
    QCOMPARE(configuration.m_selectedAudioInputDevice, QString());
    QCOMPARE(configuration.getStopDetectionDuration(), 0.5);
    QCOMPARE(configuration.getStopDetectionThreshold(), short(3276));
    QCOMPARE(configuration.getThreshold(), short(-1));
    QCOMPARE(configuration.isTopMost(), true);
}

void tst_Configuration::getters_readTheirOwnMember()
{
    Configuration configuration;
    configuration.m_averageVolumeCalculationDuration = 1.5;
    configuration.m_bpmCalculationDuration = 2.5;
    configuration.m_normalizationDuration = 3.5;
    configuration.m_stopDetectionDuration = 4.5;
    configuration.m_normalizationThreshold = 11;
    configuration.m_stopDetectionThreshold = 12;
    configuration.m_threshold = 13;
    configuration.m_language = QStringLiteral("nl");
    QCOMPARE(configuration.getAverageVolumeCalculationDuration(), 1.5);
    QCOMPARE(configuration.getBPMCalculationDuration(), 2.5);
    QCOMPARE(configuration.getNormalizationDuration(), 3.5);
    QCOMPARE(configuration.getStopDetectionDuration(), 4.5);
    QCOMPARE(configuration.getNormalizationThreshold(), short(11));
    QCOMPARE(configuration.getStopDetectionThreshold(), short(12));
    QCOMPARE(configuration.getThreshold(), short(13));
    QCOMPARE(&configuration.getLanguage(), &configuration.m_language);

    using Flag = bool (Configuration::*)() const;
    const std::pair<Flag, bool Configuration::*> flags[] = {
        {&Configuration::getDisplaySpeakers, &Configuration::m_displaySpeakers},
        {&Configuration::getDisplayVirtualBeatsWhenStopped,
         &Configuration::m_displayVirtualBeatsWhenStopped},
        {&Configuration::getGrayMode, &Configuration::m_grayMode},
        {&Configuration::isModified, &Configuration::m_isModified},
        {&Configuration::isTopMost, &Configuration::m_topMost},
    };
    for (const auto& one : flags) {
        for (const auto& other : flags)
            configuration.*other.second = false;
        configuration.*one.second = true;
        for (const auto& other : flags)
            QCOMPARE((configuration.*other.first)(), other.second == one.second);
    }
}

void tst_Configuration::durationSetter_storesAndMarks()
{
    QFETCH(int, index);
    const Setting<double>& setting = kDurations[index];
    Configuration configuration;
    QVERIFY(!(configuration.*setting.set)(setting.initial));
    QVERIFY(!configuration.isModified());
    QVERIFY((configuration.*setting.set)(0.25));
    QVERIFY(configuration.isModified());
    QCOMPARE(configuration.*setting.member, 0.25);
    QVERIFY(!(configuration.*setting.set)(0.25));
    for (const auto& other : kDurations)
        if (other.member != setting.member)
            QCOMPARE(configuration.*other.member, other.initial);
}

void tst_Configuration::durationSetter_takesNaNAsChangeEveryTime_isIntended()
{
    QFETCH(int, index);
    const Setting<double>& setting = kDurations[index];
    Configuration configuration;
    QVERIFY((configuration.*setting.set)(kNaN));
    QVERIFY(std::isnan(configuration.*setting.member));
    configuration.setIsModified(false);
    QVERIFY((configuration.*setting.set)(kNaN));
    QVERIFY(configuration.isModified());
    QVERIFY((configuration.*setting.set)(1.0));
    QCOMPARE(configuration.*setting.member, 1.0);
}

void tst_Configuration::flagSetter_storesAndMarks()
{
    QFETCH(int, index);
    const Setting<bool>& setting = kFlags[index];
    Configuration configuration;
    QCOMPARE(configuration.*setting.member, setting.initial);
    QVERIFY(!(configuration.*setting.set)(setting.initial));
    QVERIFY(!configuration.isModified());
    QVERIFY((configuration.*setting.set)(!setting.initial));
    QVERIFY(configuration.isModified());
    QCOMPARE(configuration.*setting.member, !setting.initial);
    QVERIFY(!(configuration.*setting.set)(!setting.initial));
    for (const auto& other : kFlags)
        if (other.member != setting.member)
            QCOMPARE(configuration.*other.member, other.initial);
}

void tst_Configuration::thresholdSetter_storesAndMarks()
{
    QFETCH(int, index);
    const Setting<short>& setting = kThresholds[index];
    Configuration configuration;
    QVERIFY(!(configuration.*setting.set)(setting.initial));
    QVERIFY(!configuration.isModified());
    QVERIFY((configuration.*setting.set)(-5));
    QVERIFY(configuration.isModified());
    QCOMPARE(configuration.*setting.member, short(-5));
    QVERIFY(!(configuration.*setting.set)(-5));
    for (const auto& other : kThresholds)
        if (other.member != setting.member)
            QCOMPARE(configuration.*other.member, other.initial);
}

void tst_Configuration::setters_checkNoRange_isIntended()
{
    Configuration configuration;
    for (const auto& setting : kDurations) {
        for (const double value : {-1e300, std::numeric_limits<double>::infinity(), 0.0}) {
            QVERIFY((configuration.*setting.set)(value));
            QCOMPARE(configuration.*setting.member, value);
        }
        QVERIFY(!(configuration.*setting.set)(-0.0));
    }
    for (const auto& setting : kThresholds) {
        for (const short value : {short(-32768), short(32767), short(0)}) {
            QVERIFY((configuration.*setting.set)(value));
            QCOMPARE(configuration.*setting.member, value);
        }
    }
}

void tst_Configuration::setThreshold_takesAnyNegativeAsAutomatic_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("isChanged");
    QTest::addColumn<int>("expected");
    QTest::newRow("automatic, -1") << -1 << -1 << false << -1;
    QTest::newRow("automatic, -7") << -1 << -7 << false << -1;
    QTest::newRow("other negative, -1") << -9 << -1 << false << -9;
    QTest::newRow("other negative, same") << -9 << -9 << false << -9;
    QTest::newRow("automatic, 0") << -1 << 0 << true << 0;
    QTest::newRow("automatic, full scale") << -1 << 32767 << true << 32767;
    QTest::newRow("0, 0") << 0 << 0 << false << 0;
    QTest::newRow("0, -1") << 0 << -1 << true << -1;
    QTest::newRow("fixed, lowest") << 2000 << -32768 << true << -1;
    QTest::newRow("fixed, same") << 2000 << 2000 << false << 2000;
    QTest::newRow("fixed, other") << 2000 << 2001 << true << 2001;
}

void tst_Configuration::setThreshold_takesAnyNegativeAsAutomatic()
{
    QFETCH(int, stored);
    QFETCH(int, value);
    QFETCH(bool, isChanged);
    Configuration configuration;
    configuration.m_threshold = qint16(stored);
    QCOMPARE(configuration.setThreshold(short(value)), isChanged);
    QCOMPARE(configuration.isModified(), isChanged);
    QTEST(int(configuration.getThreshold()), "expected");
}

void tst_Configuration::setThreshold_walksThroughSequence()
{
    Configuration configuration;
    QVERIFY(!configuration.setThreshold(-7));
    QVERIFY(configuration.setThreshold(2000));
    QVERIFY(!configuration.setThreshold(2000));
    QVERIFY(configuration.setThreshold(-3));
    QCOMPARE(configuration.getThreshold(), short(-1));
}

void tst_Configuration::setLanguage_ignoresCase_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("isChanged");
    QTest::addColumn<QString>("expected");
    const QString none;
    const QString small = QStringLiteral("en");
    QTest::newRow("none, null") << none << none << false << none;
    QTest::newRow("none, empty") << none << QStringLiteral("") << false << none;
    QTest::newRow("none, en") << none << small << true << small;
    QTest::newRow("en, en") << small << small << false << small;
    QTest::newRow("en, EN") << small << QStringLiteral("EN") << false << small;
    QTest::newRow("en, fr") << small << QStringLiteral("fr") << true << QStringLiteral("fr");
    QTest::newRow("en, null") << small << none << true << none;
    QTest::newRow("en, empty") << small << QStringLiteral("") << true << none;
    QTest::newRow("en, blank") << small << QStringLiteral(" ") << true << QStringLiteral(" ");
}

void tst_Configuration::setLanguage_ignoresCase()
{
    QFETCH(QString, stored);
    QFETCH(QString, value);
    QFETCH(bool, isChanged);
    Configuration configuration;
    configuration.m_language = stored;
    QCOMPARE(configuration.setLanguage(value), isChanged);
    QCOMPARE(configuration.isModified(), isChanged);
    QTEST(configuration.getLanguage(), "expected");
}

void tst_Configuration::setLanguage_storesNullText_whenCleared()
{
    Configuration configuration;
    QVERIFY(configuration.setLanguage(QStringLiteral("en")));
    QVERIFY(configuration.setLanguage(QStringLiteral("")));
    QVERIFY(configuration.getLanguage().isNull());
}

void tst_Configuration::setLanguage_refusesOwnText()
{
    Configuration configuration;
    QVERIFY(configuration.setLanguage(QStringLiteral("en")));
    configuration.setIsModified(false);
    QVERIFY(!configuration.setLanguage(configuration.getLanguage()));
    QVERIFY(!configuration.isModified());
    QCOMPARE(configuration.getLanguage(), QStringLiteral("en"));
}

void tst_Configuration::setIsModified_storesMarkAndIsAlwaysTrue()
{
    Configuration configuration;
    QVERIFY(configuration.setIsModified(false));
    QVERIFY(!configuration.isModified());
    QVERIFY(configuration.setIsModified(true));
    QVERIFY(configuration.isModified());
    QVERIFY(configuration.setIsModified(true));
    QVERIFY(configuration.isModified());
    QVERIFY(configuration.setIsModified(false));
    QVERIFY(!configuration.isModified());
}

void tst_Configuration::isModified_staysSet_whenValueIsSetBack()
{
    Configuration configuration;
    QVERIFY(configuration.setGrayMode(false));
    QVERIFY(configuration.setGrayMode(true));
    QVERIFY(!configuration.setGrayMode(true));
    QVERIFY(configuration.isModified());
}

AA_TEST(tst_Configuration, QCoreApplication)
#include "tst_Configuration.moc"
