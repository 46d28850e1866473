// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/settings/ProfilesModel.h>
#include <desktop/settings/ProfilesPanel.h>

#include <QListView>
#include <QPushButton>

#include <apps/desktop/PanelTest.h>
#include <support/Text.h>
#include <utility>

/// A panel with a user profile "Zouk" in its configuration, and its signals in one log.
struct ProfilesBench
{
    ProfilesBench()
    {
        configuration.Add(Text("Zouk"), 80.0, 110.0, 1.5, 20, 90);
        configuration.setIsModified(false);
        panel.Refresh();
        QObject::connect(
            &panel, &ProfilesPanel::OnProfileChanged, [this] { log.append(Text("profile")); });
        QObject::connect(&panel, &SettingsPanel::OnConfigurationChanged, [this] {
            log.append(Text("changed"));
        });
        if (!PanelTest::Show(panel))
            qFatal("the panel is not shown");
    }

    QListView& List() { return PanelTest::Get<QListView>(panel, "profiles"); }
    QString Summary() { return PanelTest::Get<QLabel>(panel, "summary").text(); }
    QPushButton& Button(const char* pName) { return PanelTest::Get<QPushButton>(panel, pName); }
    void Click(const char* pName) { PanelTest::Click(panel, pName); }
    void Select(int pRow) { List().setCurrentIndex(panel.m_pModel->index(pRow)); }
    QStringList Names() const { return panel.m_pModel->getNames(); }
    QString Selected() const { return configuration.getSelectedProfile().getName(); }
    QStringList TakeLog() { return std::exchange(log, {}); }
    ProfileEditor& Editor() { return *panel.m_pEditor; }
    void Type(const char* pField, const char* pText)
    {
        auto& field = PanelTest::Get<QWidget>(Editor(), pField);
        QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&field, Text(pText));
    }

    Configuration configuration;
    ProfilesPanel panel{configuration};
    QStringList log;
};

inline const QStringList kBoth{QStringLiteral("profile"), QStringLiteral("changed")};
