// SPDX-License-Identifier: MIT
#include <cli/settings/ConfigurationSettings.h>
#include <desktop/settings/detail/PlainText.h>
#include <desktop/settings/detail/SettingLimits.h>
#include <shared/settings/ConfigurationStore.h>

#include <QtTest>

#include <algorithm>

class tst_SettingLimits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decibels_areThoseOfFullScale_data();
    void decibels_areThoseOfFullScale();
    void decibels_areMinusInfinity_withoutALevel();
    void limits_areThoseOfTheCommandLine_data();
    void limits_areThoseOfTheCommandLine();
    void plainText_hasNoMarks_data();
    void plainText_hasNoMarks();
};

void tst_SettingLimits::decibels_areThoseOfFullScale_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<double>("decibels");
    QTest::newRow("full scale") << 32767 << 0.0;
    QTest::newRow("half") << 16383 << -6.021;     // 20 log10 0.49998
    QTest::newRow("a tenth") << 3276 << -20.002;  // 20 log10 0.09998
    QTest::newRow("a hundredth") << 327 << -40.018;
    QTest::newRow("least") << 1 << -90.309;
}

void tst_SettingLimits::decibels_areThoseOfFullScale()
{
    QFETCH(const int, level);
    QFETCH(const double, decibels);
    QVERIFY(std::abs(desktop::ToDecibels(level) - decibels) < 0.001);
}

void tst_SettingLimits::decibels_areMinusInfinity_withoutALevel()
{
    QVERIFY(std::isinf(desktop::ToDecibels(0)) && desktop::ToDecibels(0) < 0.0);
    QVERIFY(std::isinf(desktop::ToDecibels(-1)));
}

void tst_SettingLimits::limits_areThoseOfTheCommandLine_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("beyond");
    const auto add = [](const char* pName, const desktop::DurationLimits& pLimits) {
        QTest::newRow(pName) << QString::fromLatin1(pName) << pLimits.minimum << pLimits.maximum
                             << 0.01;
    };
    add("average-duration", desktop::kAverageVolumeLimits);
    add("bpm-duration", desktop::kBPMLimits);
    add("normalization-duration", desktop::kNormalizationLimits);
    add("stop-duration", desktop::kStopDetectionLimits);
    const double level = desktop::kMaximalLevel;
    QTest::newRow("stop-threshold") << QStringLiteral("stop-threshold") << 0.0 << level << 1.0;
    QTest::newRow("normalization-threshold")
        << QStringLiteral("normalization-threshold") << 0.0 << level << 1.0;
}

void tst_SettingLimits::limits_areThoseOfTheCommandLine()
{
    QFETCH(const QString, name);
    QFETCH(const double, minimum);
    QFETCH(const double, maximum);
    QFETCH(const double, beyond);
    const auto& settings = getConfigurationSettings();
    const auto found = std::find_if(settings.begin(), settings.end(), [&](const auto& pSetting) {
        return pSetting.name == name;
    });
    QVERIFY(found != settings.end());
    ConfigurationStore store;
    const auto takes = [&](double pValue) {
        return found->set(store, QString::number(pValue)).isEmpty();
    };
    QVERIFY(takes(minimum));
    QVERIFY(takes(maximum));
    QVERIFY(!takes(minimum - beyond));
    QVERIFY(!takes(maximum + beyond));
}

void tst_SettingLimits::plainText_hasNoMarks_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("text");
    QTest::newRow("mnemonic") << QStringLiteral("&Tempo:") << QStringLiteral("Tempo");
    QTest::newRow("inside") << QStringLiteral("Look a&gain") << QStringLiteral("Look again");
    QTest::newRow("French colon") << QStringLiteral("&Nom :") << QStringLiteral("Nom");
    QTest::newRow("colon inside") << QStringLiteral("a: b") << QStringLiteral("a: b");
    QTest::newRow("empty") << QString() << QString();
}

void tst_SettingLimits::plainText_hasNoMarks()
{
    QFETCH(const QString, label);
    QFETCH(const QString, text);
    QCOMPARE(desktop::PlainText(label), text);
}

QTEST_GUILESS_MAIN(tst_SettingLimits)
#include "tst_SettingLimits.moc"
