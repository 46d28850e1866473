// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>
#include <AudioAnalyzer/config/SettingsTable.h>

#include <cli/settings/AnalysisOptionTable.h>

#include <apps/vamp/BeatTrackerTest.h>
#include <limits>
#include <support/TestClass.h>

using namespace vamptest;

/// What the Vamp plugin tells of itself, and what it refuses.
class tst_BeatTracker_description : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plugin_isInItsCategory();
    void outputs_areDescribed();
    void parameters_areDescribed();
    void initialise_refuses_data();
    void initialise_refuses();
    void calls_areHarmless_beforeInitialise();
};

void tst_BeatTracker_description::plugin_isInItsCategory()
{
    auto* pLoader = Vamp::HostExt::PluginLoader::getInstance();
    const auto keys = pLoader->listPlugins();
    QCOMPARE(keys.size(), std::size_t(1));
    QCOMPARE(keys.at(0), std::string("audio-analyzer-vamp:beat-tracker"));
    const std::vector<std::string> category = {"Time", "Tempo"};
    QVERIFY(pLoader->getPluginCategory(keys.at(0)) == category);
}

void tst_BeatTracker_description::outputs_areDescribed()
{
    const auto pPlugin = Load(44100.0F);
    QCOMPARE(pPlugin->getInputDomain(), Plugin::TimeDomain);
    QCOMPARE(pPlugin->getPluginVersion(),
             100 * AUDIOANALYZER_VERSION_MAJOR + AUDIOANALYZER_VERSION_MINOR);
    // A pulse block: at most a fortieth of a second, a power of two.
    QCOMPARE(pPlugin->getPreferredBlockSize(), std::size_t(1024));
    QCOMPARE(pPlugin->getPreferredStepSize(), std::size_t(1024));
    const auto outputs = pPlugin->getOutputDescriptors();
    QCOMPARE(outputs.size(), std::size_t(4));
    const char* const names[] = {"beats", "tempo", "pulses", "spectrum"};
    const std::size_t binCounts[] = {0, 1, 1, 512};
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        QCOMPARE(outputs[i].identifier, std::string(names[i]));
        QVERIFY(outputs[i].hasFixedBinCount);
        QCOMPARE(outputs[i].binCount, binCounts[i]);
    }
    QCOMPARE(outputs[eSpectrum].sampleRate, 44100.0F / 1024.0F);
    QCOMPARE(outputs[eSpectrum].binNames.at(1), std::string("43 Hz"));
    QCOMPARE(Load(8000.0F)->getOutputDescriptors().at(eSpectrum).binCount, std::size_t(64));
}

void tst_BeatTracker_description::parameters_areDescribed()
{
    const auto pPlugin = Load();
    QStringList names;
    for (const auto& parameter : pPlugin->getParameterDescriptors()) {
        names += QString::fromStdString(parameter.identifier);
        QCOMPARE(pPlugin->getParameter(parameter.identifier), parameter.defaultValue);
        QVERIFY(parameter.minValue <= parameter.defaultValue);
        QVERIFY(parameter.defaultValue <= parameter.maxValue);
    }
    // Each option of the command line host has its parameters.
    for (const AnalysisOptionInfo& info : getAnalysisOptionTable()) {
        QString name = info.name.mid(2);
        name.replace(QRegularExpression(QStringLiteral("^bpm$")), QStringLiteral("minimal-bpm"));
        name.replace(QLatin1String("band"), QLatin1String("low-frequency"));
        name.remove(QLatin1String("no-"));
        QVERIFY2(names.contains(name), qPrintable(name));
    }
    for (const auto& parameter : pPlugin->getParameterDescriptors()) {
        const auto* pSetting = SettingsTable::Find(QString::fromStdString(parameter.identifier));
        if (!pSetting)
            continue;
        QCOMPARE(pSetting->use, SettingsTable::eAnalysis);
        QCOMPARE(parameter.minValue, float(pSetting->minimum));
        QCOMPARE(parameter.maxValue, float(pSetting->maximum));
        QCOMPARE(parameter.defaultValue, float(pSetting->initial));
        QCOMPARE(parameter.unit, std::string(pSetting->pUnit));
        QCOMPARE(parameter.isQuantized, pSetting->form != SettingsTable::eNumber);
        QVERIFY(parameter.name.size() > 5 && parameter.description.size() > 20);
    }
    const auto profile = pPlugin->getParameterDescriptors().at(1);
    const std::vector<std::string> profiles = {"Electro", "Hardcore", "Slow"};
    QVERIFY(profile.valueNames == profiles);
    // A host sets all parameters, also those that it leaves as they are.
    pPlugin->setParameter("sensibility", -1.0F);
    QCOMPARE(pPlugin->getParameter("tracker"), 0.0F);
    pPlugin->setParameter("sensibility", 3.0F);
    QCOMPARE(pPlugin->getParameter("tracker"), 1.0F);
    QCOMPARE(pPlugin->getParameter("sensibility"), 3.0F);
    pPlugin->setParameter("nonsense", 3.0F);
    QCOMPARE(pPlugin->getParameter("nonsense"), 0.0F);
}

void tst_BeatTracker_description::initialise_refuses_data()
{
    QTest::addColumn<float>("rate");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("step");
    QTest::addColumn<QString>("parameter");
    QTest::addColumn<float>("value");
    const auto add = [](const char* pName, float pRate, int pChannels, int pStep) {
        QTest::newRow(pName) << pRate << pChannels << pStep << QString() << 0.0F;
    };
    add("a rate below 8000 Hz", 7999.0F, 1, 1024);
    add("a rate above 192000 Hz", 192001.0F, 1, 1024);
    add("no channel", 44100.0F, 0, 1024);
    add("too many channels", 44100.0F, 65, 1024);
    add("no step", 44100.0F, 1, 0);
    add("gaps", 44100.0F, 1, 1025);
    const auto addValue = [](const char* pParameter, float pValue) {
        QTest::newRow(
            qPrintable(QStringLiteral("%1 %2").arg(QLatin1String(pParameter)).arg(pValue)))
            << 44100.0F << 1 << 1024 << QString::fromLatin1(pParameter) << pValue;
    };
    constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
    addValue("tracker", 2.0F);
    addValue("tracker", 0.5F);
    addValue("tracker", kNaN);
    addValue("profile", 3.0F);
    addValue("profile", -1.0F);
    addValue("profile", kNaN);
    addValue("profile", std::numeric_limits<float>::infinity());
    addValue("minimal-bpm", 176.0F);
    addValue("minimal-bpm", kNaN);
    addValue("maximal-bpm", 1000.0F);
    addValue("low-frequency", 76.0F);
    addValue("low-frequency", kNaN);
    addValue("sensibility", -2.0F);
    addValue("sensibility", kNaN);
    addValue("threshold", 32768.0F);
    addValue("threshold", 0.5F);
    addValue("stop-threshold", -1.0F);
    addValue("stop-duration", 11.0F);
    addValue("average-duration", 0.0F);
    addValue("bpm-duration", 601.0F);
    addValue("fixed-bpm", -1.0F);
    addValue("consistency", 2.0F);
    addValue("virtual-when-stopped", 0.5F);
}

void tst_BeatTracker_description::initialise_refuses()
{
    QFETCH(float, rate);
    QFETCH(int, channels);
    QFETCH(int, step);
    QFETCH(QString, parameter);
    QFETCH(float, value);
    const auto pPlugin = Load(rate);
    QVERIFY(pPlugin != nullptr);
    if (!parameter.isEmpty())
        pPlugin->setParameter(parameter.toStdString(), value);
    QVERIFY(!pPlugin->initialise(std::size_t(channels), std::size_t(step), 1024));
}

void tst_BeatTracker_description::calls_areHarmless_beforeInitialise()
{
    const auto pPlugin = Load();
    pPlugin->reset();
    QVERIFY(pPlugin->getRemainingFeatures().empty());
    QVERIFY(pPlugin->initialise(1, kStep, kStep));
    QVERIFY(pPlugin->getRemainingFeatures().empty());
}

AA_TEST(tst_BeatTracker_description, QCoreApplication)
#include "tst_BeatTracker_description.moc"
