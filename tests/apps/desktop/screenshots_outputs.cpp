// SPDX-License-Identifier: MIT
#include <desktop/outputs/OutputEditor.h>
#include <shared/outputs/kinds/OutputKinds.h>

#include <QAction>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QUdpSocket>

#include <apps/desktop/ScreenshotScene.h>

using namespace screenshots;

namespace {

StoredOutput OutputAt(const char* pName, const char* pKind, const QString& pPlace)
{
    StoredOutput output;
    output.name = QString::fromUtf8(pName);
    output.kind = QString::fromUtf8(pKind);
    shared::readOutputPlace(pPlace, output);
    return output;
}

/// One of each state.
void StoreOutputs(MonitorOutputs& pOutputs, int pPort)
{
    StoredOutput off = OutputAt("Strip", "wled", QStringLiteral("127.0.0.1"));
    off.isEnabled = false;
    StoredOutput late =
        OutputAt("Visuals", "osc", QStringLiteral("127.0.0.1:%1/resolume").arg(pPort));
    late.offset = -40.0;
    for (const StoredOutput& output :
         {late, OutputAt("Desk", "osc", QStringLiteral("tcp:127.0.0.1:1/grandma3")), off})
        if (!pOutputs.Add(output).isEmpty())
            qFatal("an output is refused");
    pOutputs.setOn(true);
}

template <typename Widget>
Widget& Find(QWidget& pParent, const char* pName)
{
    auto* pWidget = pParent.findChild<Widget*>(QLatin1String(pName));
    if (!pWidget)
        qFatal("there is no %s", pName);
    return *pWidget;
}

void ShootEditor(Scene& pScene)
{
    Find<QPushButton>(*pScene.window, "addOutput").click();
    auto& editor = *pScene.window->findChild<OutputEditor*>();
    Find<QLineEdit>(editor, "name").setText(QStringLiteral("Lights"));
    Find<QLineEdit>(editor, "address").setText(QStringLiteral("10.0.0.7:0"));
    Find<QPushButton>(editor, "accept").click();
    Wait(300);
    pScene.Save("output-editor", editor);
    editor.close();
}

}  // namespace

void screenshots::shootOutputs(Scene& pScene)
{
    MainWindow& window = *pScene.window;
    QUdpSocket receiver;
    receiver.bind(QHostAddress(QHostAddress::LocalHost));
    StoreOutputs(pScene.session.getOutputs(), receiver.localPort());
    window._SetSize();
    Wait(1500);
    pScene.SaveOnBeat("outputs");
    Find<QListView>(window, "outputs").setFocus();
    Find<QListView>(window, "outputs")
        .setCurrentIndex(Find<QListView>(window, "outputs").model()->index(1, 0));
    pScene.setLook(eGrayLook);
    pScene.SaveOnBeat("outputs-gray");
    window.m_pContrast->setChecked(true);
    pScene.SaveOnBeat("outputs-contrast");
    window.m_pContrast->setChecked(false);
    pScene.setLook(eLightLook);
    Find<QListView>(window, "outputs")
        .setCurrentIndex(Find<QListView>(window, "outputs").model()->index(0, 0));
    pScene.session.getOutputs().Try(QStringLiteral("Visuals"));
    Wait(2000);
    pScene.translations.setLanguage(QStringLiteral("de"));
    Wait(400);
    pScene.Save("outputs-test-de");
    pScene.translations.setLanguage(QStringLiteral("en"));
    Wait(4000);
    ShootEditor(pScene);
    for (const char* name : {"Visuals", "Desk", "Strip"})
        pScene.session.getOutputs().Remove(QLatin1String(name));
    window._SetSize();
    Wait(300);
}
