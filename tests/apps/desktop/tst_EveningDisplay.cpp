// SPDX-License-Identifier: MIT
#include <QKeyEvent>

#include <apps/desktop/VirtualDisplay.h>
#include <apps/desktop/window/EveningTest.h>
#include <support/TestClass.h>

using namespace eveningtest;

namespace {

/// What came from the display's keyboard.
class KeyCount : public QObject
{
public:
    KeyCount() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* pTarget, QEvent* pEvent) override
    {
        m_count += pEvent->type() == QEvent::KeyRelease && pEvent->spontaneous() &&
                   pTarget->isWindowType();
        return false;
    }
    int get() const { return m_count; }

private:
    int m_count = 0;
};

/// Its keys come through the X server and the window manager.
class DisplayedEvening : public Evening
{
public:
    void Press(Qt::Key pKey) override
    {
        const int before = m_keys.get();
        const QString name = QKeySequence(pKey).toString();
        QProcess keyboard;
        keyboard.start(QStringLiteral("xdotool"),
                       {QStringLiteral("key"),
                        name.size() == 1 || pKey == Qt::Key_Space ? name.toLower() : name});
        QVERIFY(keyboard.waitForFinished(kPatienceMs));
        QCOMPARE(keyboard.readAllStandardError(), QByteArray());
        QTRY_VERIFY_WITH_TIMEOUT(m_keys.get() > before, kPatienceMs);
    }

private:
    KeyCount m_keys;
};

}  // namespace

/// An operator's evening on an X server of its own, in real time.
class tst_EveningDisplay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void evening_isRuledByKeys_andKept();
};

void tst_EveningDisplay::evening_isRuledByKeys_andKept()
{
    PanelTest::Clear();
    desktoptest::ForgetSettings();
    QFile::remove(UISettings::_getDefaultPath());
    QCOMPARE(QGuiApplication::platformName(), QStringLiteral("xcb"));
    const WindowManager manager;
    double tapped = 0.0;
    spend([] { return std::make_unique<DisplayedEvening>(); }, tapped);
    // The hand waits for the keyboard before each tap.
    QVERIFY(tapped > 0.0 && tapped < 121.0);
    QFile::remove(UISettings::_getDefaultPath());
}

AA_TEST(tst_EveningDisplay, DisplayedApplication)
#include "tst_EveningDisplay.moc"
