// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>

#include <QMetaMethod>
#include <QtTest>

#include <support/TestClass.h>

/// Hosts connect by signature strings and by index, so the meta-object is part of the interface.
class tst_MetaObject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void method_isAsDeclared_data();
    void method_isAsDeclared();
    void class_hasTenMethodsAndNothingElse();
    void signatures_connectByString();
};

void tst_MetaObject::method_isAsDeclared_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("access");
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<QList<QByteArray>>("names");

    int index = 0;
    const auto add = [&index](QMetaMethod::MethodType kind,
                              QMetaMethod::Access access,
                              const char* pSignature,
                              const QList<QByteArray>& names) {
        QTest::newRow(pSignature) << index++ << int(kind) << int(access) << QByteArray(pSignature)
                                  << names;
    };
    add(QMetaMethod::Signal,
        QMetaMethod::Public,
        "OnAmplitudesComputed(const double*,uint)",
        {"pAmplitudes", "pAmplitudesCount"});
    add(QMetaMethod::Signal, QMetaMethod::Public, "OnAnalysisStarted()", {});
    add(QMetaMethod::Signal, QMetaMethod::Public, "OnAnalysisStopped()", {});
    add(QMetaMethod::Signal,
        QMetaMethod::Public,
        "OnAudioSamplesAnalyzed(uint,qint16*,uint)",
        {"pIndex", "pAudioSamples", "pCount"});
    add(QMetaMethod::Signal, QMetaMethod::Public, "OnBeat()", {});
    add(QMetaMethod::Signal, QMetaMethod::Public, "OnBPMChanged(double)", {"pBPM"});
    add(QMetaMethod::Signal, QMetaMethod::Public, "OnPulseDetected(Pulse)", {"pPulse"});
    add(QMetaMethod::Slot,
        QMetaMethod::Public,
        "Analyze(qint16*,size_t)",
        {"pAudioSamples", "pCount"});
    add(QMetaMethod::Slot, QMetaMethod::Public, "Reset()", {});
    add(QMetaMethod::Slot, QMetaMethod::Private, "_OnBeat()", {});
}

void tst_MetaObject::method_isAsDeclared()
{
    QFETCH(int, index);
    QFETCH(int, kind);
    QFETCH(int, access);
    QFETCH(QByteArray, signature);
    QFETCH(QList<QByteArray>, names);
    const QMetaObject& meta = AudioAnalyzer::staticMetaObject;
    const QMetaMethod method = meta.method(meta.methodOffset() + index);
    QCOMPARE(method.methodSignature(), signature);
    QCOMPARE(int(method.methodType()), kind);
    QCOMPARE(int(method.access()), access);
    QCOMPARE(method.parameterNames(), names);
    QCOMPARE(method.typeName(), "void");
    QCOMPARE(meta.indexOfMethod(signature.constData()), meta.methodOffset() + index);
}

void tst_MetaObject::class_hasTenMethodsAndNothingElse()
{
    const QMetaObject& meta = AudioAnalyzer::staticMetaObject;
    QCOMPARE(meta.className(), "AudioAnalyzer");
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 10);
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 0);
    QCOMPARE(meta.enumeratorCount() - meta.enumeratorOffset(), 0);
    QCOMPARE(meta.classInfoCount() - meta.classInfoOffset(), 0);
    QCOMPARE(meta.constructorCount(), 0);
}

/// What SIGNAL() and SLOT() make of the declarations as they are written.
void tst_MetaObject::signatures_connectByString()
{
    const QMetaObject& meta = AudioAnalyzer::staticMetaObject;
    const auto normalized = [](const char* pSignature) {
        return QMetaObject::normalizedSignature(pSignature);
    };
    QVERIFY(meta.indexOfSignal(normalized("OnAmplitudesComputed(const double*, unsigned int)")) >=
            0);
    QVERIFY(meta.indexOfSignal(normalized("OnPulseDetected(const Pulse&)")) >= 0);
    QVERIFY(meta.indexOfSignal(
                normalized("OnAudioSamplesAnalyzed(unsigned int, qint16*, unsigned int)")) >= 0);
    QVERIFY(meta.indexOfSlot(normalized("Analyze(qint16*, size_t)")) >= 0);
}

AA_TEST(tst_MetaObject, NoApplication)
#include "tst_MetaObject.moc"
