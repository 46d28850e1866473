// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDevice.h>
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>

#include "FieldOrder.h"

#include <QtTest>

#include <fake/FakeAudioState.h>
#include <fake/Machine.h>
#include <memory>
#include <support/TestClass.h>

namespace {

/// "name" or "name*" (default) for each entry, in order, joined by bars.
QByteArray Names(const QList<QtAudioInputDeviceInfo>& pDevices)
{
    QStringList names;
    for (const QtAudioInputDeviceInfo& device : pDevices)
        names.append(device.getDeviceName() +
                     (device.isDefault() ? QStringLiteral("*") : QString()));
    return names.join(QLatin1Char('|')).toUtf8();
}

QByteArray Enumerated()
{
    return Names(QtAudioInputDeviceInfo::Enumerate());
}

std::unique_ptr<QtAudioInputDevice> Create(const QString& pName)
{
    return std::unique_ptr<QtAudioInputDevice>(
        QtAudioInputDeviceInfo(pName, false).Create(nullptr));
}

int Compare(const QString& pLeft, const QString& pRight)
{
    return QtAudioInputDeviceInfo(pLeft, false).CompareTo(QtAudioInputDeviceInfo(pRight, true));
}

}  // namespace

class tst_QtAudioInputDeviceInfo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void default_isEmptyAndNotDefault();
    void constructor_storesBothUnchanged();
    void copy_copiesBoth();
    void assignment_toItselfChangesNothing();
    void fields_standInOrder();
    void compareTo_ignoresCaseBlanksAndDefault_isIntended_data();
    void compareTo_ignoresCaseBlanksAndDefault_isIntended();
    void compareTo_ordersByName();
    void enumerate_isEmpty_whenThereIsNoDevice();
    void enumerate_keepsThePlatformsOrder();
    void enumerate_marksTheDefaultDevice_data();
    void enumerate_marksTheDefaultDevice();
    void enumerate_marksNone_whenThereIsNoDefault();
    void enumerate_marksNone_whenTheDefaultHasNoName();
    void enumerate_trimsNames();
    void enumerate_skipsNamelessDevices();
    void enumerate_keepsAndMarksDuplicates_isIntended();
    void enumerate_marksByLetterCase_isIntended();
    void enumerate_marksByTrimmedName();
    void list_isASnapshot();
    void create_givesTheNamedDevice();
    void create_givesTheFirstOfTwo();
    void create_findsUntrimmedPlatformName();
    void create_givesNull_whenThereIsNoDevice();
    void create_givesNull_whenDeviceVanished();
    void create_givesNull_whenOnlyLetterCaseDiffers_isIntended();
    void create_givesNull_whenStoredNameIsUntrimmed_isIntended();
    void create_givesNull_whenNameIsEmptyOrBlank();
    void create_hangsTheDeviceOnItsParent();
    void metaType_hasItsName();
    void metaType_isMovableAndConstructed();
    void metaType_travelsThroughAVariant();
};

void tst_QtAudioInputDeviceInfo::initTestCase()
{
    FakeAudioState::Install();
}

void tst_QtAudioInputDeviceInfo::init()
{
    Machine().Clear();
}

void tst_QtAudioInputDeviceInfo::default_isEmptyAndNotDefault()
{
    const QtAudioInputDeviceInfo info;
    QCOMPARE(info.getDeviceName(), QString());
    QVERIFY(!info.isDefault());
}

void tst_QtAudioInputDeviceInfo::constructor_storesBothUnchanged()
{
    const QtAudioInputDeviceInfo info(QStringLiteral("  Mic\t"), true);
    QCOMPARE(info.getDeviceName(), QStringLiteral("  Mic\t"));
    QVERIFY(info.isDefault());
}

void tst_QtAudioInputDeviceInfo::copy_copiesBoth()
{
    const QtAudioInputDeviceInfo info(QStringLiteral("Mic"), true);
    const QtAudioInputDeviceInfo copy(info);
    QCOMPARE(copy.getDeviceName(), QStringLiteral("Mic"));
    QVERIFY(copy.isDefault());
    QtAudioInputDeviceInfo assigned;
    QtAudioInputDeviceInfo& result = (assigned = info);
    QCOMPARE(&result, &assigned);
    QCOMPARE(assigned.getDeviceName(), QStringLiteral("Mic"));
    QVERIFY(assigned.isDefault());
}

void tst_QtAudioInputDeviceInfo::assignment_toItselfChangesNothing()
{
    QtAudioInputDeviceInfo info(QStringLiteral("Mic"), true);
    const QtAudioInputDeviceInfo& same = info;
    info = same;
    QCOMPARE(info.getDeviceName(), QStringLiteral("Mic"));
    QVERIFY(info.isDefault());
}

void tst_QtAudioInputDeviceInfo::fields_standInOrder()
{
    const QtAudioInputDeviceInfo info;
    QVERIFY(AreInOrder(info.m_deviceName, info.m_isDefault));
}

void tst_QtAudioInputDeviceInfo::compareTo_ignoresCaseBlanksAndDefault_isIntended_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::newRow("same") << QStringLiteral("USB Audio") << QStringLiteral("USB Audio");
    QTest::newRow("letter case") << QStringLiteral("USB Audio") << QStringLiteral("usb audio");
    QTest::newRow("blanks") << QStringLiteral("  USB Audio\n") << QStringLiteral("\tUSB Audio ");
    QTest::newRow("both") << QStringLiteral(" usb AUDIO") << QStringLiteral("USB audio ");
    QTest::newRow("empty and blank") << QStringLiteral("") << QStringLiteral(" \t ");
}

void tst_QtAudioInputDeviceInfo::compareTo_ignoresCaseBlanksAndDefault_isIntended()
{
    QFETCH(QString, left);
    QFETCH(QString, right);
    const QtAudioInputDeviceInfo a(left, true);
    const QtAudioInputDeviceInfo b(right, false);
    QCOMPARE(a.CompareTo(b), 0);
    QCOMPARE(b.CompareTo(a), 0);
    QVERIFY(a == b);
    QVERIFY(!(a < b) && !(b < a));
}

void tst_QtAudioInputDeviceInfo::compareTo_ordersByName()
{
    QVERIFY(Compare(QStringLiteral("alpha"), QStringLiteral("Beta")) < 0);
    QVERIFY(Compare(QStringLiteral("Beta"), QStringLiteral("alpha")) > 0);
    QVERIFY(Compare(QString(), QStringLiteral("a")) < 0);
    QVERIFY(Compare(QStringLiteral("USB  Audio"), QStringLiteral("USB Audio")) != 0);
    QVERIFY(QtAudioInputDeviceInfo(QStringLiteral("a"), false) <
            QtAudioInputDeviceInfo(QStringLiteral("b"), false));
}

void tst_QtAudioInputDeviceInfo::enumerate_isEmpty_whenThereIsNoDevice()
{
    QCOMPARE(Enumerated(), QByteArray());
}

void tst_QtAudioInputDeviceInfo::enumerate_keepsThePlatformsOrder()
{
    for (const char* name : {"Zulu", "alpha", "Mike"})
        Machine().Plug(QLatin1String(name));
    QCOMPARE(Enumerated(), QByteArray("Zulu*|alpha|Mike"));
}

void tst_QtAudioInputDeviceInfo::enumerate_marksTheDefaultDevice_data()
{
    QTest::addColumn<int>("defaultIndex");
    QTest::addColumn<QByteArray>("names");
    QTest::newRow("first") << 0 << QByteArray("a*|b|c");
    QTest::newRow("middle") << 1 << QByteArray("a|b*|c");
    QTest::newRow("last") << 2 << QByteArray("a|b|c*");
}

void tst_QtAudioInputDeviceInfo::enumerate_marksTheDefaultDevice()
{
    QFETCH(int, defaultIndex);
    QFETCH(QByteArray, names);
    for (const char* name : {"a", "b", "c"})
        Machine().Plug(QLatin1String(name));
    Machine().SetDefault(defaultIndex);
    QCOMPARE(Enumerated(), names);
}

void tst_QtAudioInputDeviceInfo::enumerate_marksNone_whenThereIsNoDefault()
{
    Machine().Plug(QStringLiteral("a"));
    Machine().Plug(QStringLiteral("b"));
    Machine().SetDefault(-1);
    QCOMPARE(QAudioDeviceInfo::defaultInputDevice().deviceName(), QString());
    QCOMPARE(Enumerated(), QByteArray("a|b"));
}

void tst_QtAudioInputDeviceInfo::enumerate_marksNone_whenTheDefaultHasNoName()
{
    Machine().Plug(QStringLiteral("  "));
    Machine().Plug(QStringLiteral("b"));
    QCOMPARE(Enumerated(), QByteArray("b"));
}

void tst_QtAudioInputDeviceInfo::enumerate_trimsNames()
{
    Machine().Plug(QStringLiteral("\t Built-in Audio  \n"));
    QCOMPARE(Enumerated(), QByteArray("Built-in Audio*"));
    QCOMPARE(QtAudioInputDeviceInfo::Enumerate().first().CompareTo(
                 QtAudioInputDeviceInfo(QStringLiteral(" Built-in Audio"), false)),
             0);
}

void tst_QtAudioInputDeviceInfo::enumerate_skipsNamelessDevices()
{
    for (const char* name : {"a", "", " \t", "b"})
        Machine().Plug(QLatin1String(name));
    QCOMPARE(Enumerated(), QByteArray("a*|b"));
}

void tst_QtAudioInputDeviceInfo::enumerate_keepsAndMarksDuplicates_isIntended()
{
    for (const char* name : {"USB", "Mic", "USB", " USB "})
        Machine().Plug(QLatin1String(name));
    QCOMPARE(Enumerated(), QByteArray("USB*|Mic|USB*|USB*"));
}

void tst_QtAudioInputDeviceInfo::enumerate_marksByLetterCase_isIntended()
{
    Machine().Plug(QStringLiteral("USB Audio"));
    Machine().Plug(QStringLiteral("usb audio"));
    QCOMPARE(Enumerated(), QByteArray("USB Audio*|usb audio"));
    const QList<QtAudioInputDeviceInfo> devices = QtAudioInputDeviceInfo::Enumerate();
    QCOMPARE(devices.at(0).CompareTo(devices.at(1)), 0);
}

void tst_QtAudioInputDeviceInfo::enumerate_marksByTrimmedName()
{
    Machine().Plug(QStringLiteral("Mic "));
    Machine().Plug(QStringLiteral(" Mic"));
    QCOMPARE(Enumerated(), QByteArray("Mic*|Mic*"));
}

void tst_QtAudioInputDeviceInfo::list_isASnapshot()
{
    const QByteArray handle = Machine().Plug(QStringLiteral("a"));
    const QList<QtAudioInputDeviceInfo> devices = QtAudioInputDeviceInfo::Enumerate();
    Machine().Unplug(handle);
    QCOMPARE(Names(devices), QByteArray("a*"));
    QCOMPARE(Enumerated(), QByteArray());
}

void tst_QtAudioInputDeviceInfo::create_givesTheNamedDevice()
{
    Machine().Plug(QStringLiteral("a"));
    Machine().Plug(QStringLiteral("b"));
    const std::unique_ptr<QtAudioInputDevice> pDevice = Create(QStringLiteral("b"));
    QVERIFY(pDevice);
    QCOMPARE(pDevice->getName(), QStringLiteral("b"));
    QCOMPARE(pDevice->parent(), static_cast<QObject*>(nullptr));
}

void tst_QtAudioInputDeviceInfo::create_givesTheFirstOfTwo()
{
    FakeAudioDevice first;
    first.name = QStringLiteral("USB");
    first.sampleRates = {8000};
    Machine().Plug(first);
    Machine().Plug(QStringLiteral("USB"));
    const std::unique_ptr<QtAudioInputDevice> pDevice = Create(QStringLiteral("USB"));
    QVERIFY(pDevice);
    QCOMPARE(pDevice->getPreferredInputFormat().sampleRate(), 8000);
}

void tst_QtAudioInputDeviceInfo::create_findsUntrimmedPlatformName()
{
    Machine().Plug(QStringLiteral("  Mic "));
    const std::unique_ptr<QtAudioInputDevice> pDevice = Create(QStringLiteral("Mic"));
    QVERIFY(pDevice);
    QCOMPARE(pDevice->getName(), QStringLiteral("Mic"));
}

void tst_QtAudioInputDeviceInfo::create_givesNull_whenThereIsNoDevice()
{
    QVERIFY(!Create(QStringLiteral("Mic")));
}

void tst_QtAudioInputDeviceInfo::create_givesNull_whenDeviceVanished()
{
    const QByteArray handle = Machine().Plug(QStringLiteral("Mic"));
    const QtAudioInputDeviceInfo info = QtAudioInputDeviceInfo::Enumerate().first();
    Machine().Unplug(handle);
    QCOMPARE(info.Create(nullptr), static_cast<QtAudioInputDevice*>(nullptr));
}

void tst_QtAudioInputDeviceInfo::create_givesNull_whenOnlyLetterCaseDiffers_isIntended()
{
    Machine().Plug(QStringLiteral("USB Audio"));
    QCOMPARE(Compare(QStringLiteral("usb audio"), QStringLiteral("USB Audio")), 0);
    QVERIFY(!Create(QStringLiteral("usb audio")));
}

void tst_QtAudioInputDeviceInfo::create_givesNull_whenStoredNameIsUntrimmed_isIntended()
{
    Machine().Plug(QStringLiteral(" Mic "));
    QVERIFY(!Create(QStringLiteral(" Mic ")));
    QVERIFY(!Create(QStringLiteral("Mic ")));
    QCOMPARE(Compare(QStringLiteral(" Mic "), QStringLiteral("Mic")), 0);
}

void tst_QtAudioInputDeviceInfo::create_givesNull_whenNameIsEmptyOrBlank()
{
    Machine().Plug(QString());
    Machine().Plug(QStringLiteral("  "));
    QVERIFY(!Create(QString()));
    QVERIFY(!Create(QStringLiteral("  ")));
    QCOMPARE(QtAudioInputDeviceInfo().Create(nullptr), static_cast<QtAudioInputDevice*>(nullptr));
}

void tst_QtAudioInputDeviceInfo::create_hangsTheDeviceOnItsParent()
{
    Machine().Plug(QStringLiteral("Mic"));
    QObject parent;
    const QtAudioInputDevice* pDevice =
        QtAudioInputDeviceInfo(QStringLiteral("Mic"), false).Create(&parent);
    QVERIFY(pDevice);
    QCOMPARE(pDevice->parent(), &parent);
}

void tst_QtAudioInputDeviceInfo::metaType_hasItsName()
{
    QCOMPARE(QByteArray(QMetaType::typeName(qMetaTypeId<QtAudioInputDeviceInfo>())),
             QByteArray("QtAudioInputDeviceInfo"));
}

void tst_QtAudioInputDeviceInfo::metaType_isMovableAndConstructed()
{
    const QMetaType::TypeFlags flags = QMetaType::typeFlags(qMetaTypeId<QtAudioInputDeviceInfo>());
    QVERIFY(flags & QMetaType::NeedsConstruction);
    QVERIFY(flags & QMetaType::NeedsDestruction);
    QVERIFY(flags & QMetaType::MovableType);
}

void tst_QtAudioInputDeviceInfo::metaType_travelsThroughAVariant()
{
    const QVariant variant =
        QVariant::fromValue(QtAudioInputDeviceInfo(QStringLiteral("Mic"), true));
    const QtAudioInputDeviceInfo info = variant.value<QtAudioInputDeviceInfo>();
    QCOMPARE(info.getDeviceName(), QStringLiteral("Mic"));
    QVERIFY(info.isDefault());
}

AA_TEST(tst_QtAudioInputDeviceInfo, QCoreApplication)
#include "tst_QtAudioInputDeviceInfo.moc"
