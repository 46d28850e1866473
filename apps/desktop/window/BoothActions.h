// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/window/BoothKeys.h>

#include <QObject>
#include <QString>

#include <array>
#include <utility>
#include <vector>

class BeatHand;
class QAction;
class QMenu;
class QStringList;
class QTimer;
class QWidget;

/// The actions behind the keys of BoothKeys, in every window that they are added to.
///
/// No key is lost to what has the focus: lists and buttons do without them, and a field that is
/// typed into keeps only those that it can use, until Enter, Escape or ten seconds without a key.
/// Enter presses what has the focus, since the space bar is the one.
///
/// Threads: the event-loop thread.
class BoothActions : public QObject
{
    Q_OBJECT

public:
    static constexpr int kProfiles = 9;
    static constexpr int kFieldMs = 10000;  ///< how long a field is waited for

    /// pHand is not owned. What it does not do itself is to be connected.
    explicit BoothActions(BeatHand& pHand, QObject* pParent = nullptr);

    /// All but those of the view, with the profiles in a menu of their own.
    void FillMenu(QMenu& pMenu);
    /// The keys work in that window, too.
    void AddTo(QWidget& pWindow);
    QAction& get(eBoothAction pAction) const { return *m_actions[pAction]; }
    /// As many as there are get a key.
    void setProfiles(const QStringList& pNames);
    void Retranslate();
    /// Keys with what they do.
    static std::vector<std::pair<QString, QString>> getPage();

Q_SIGNALS:
    /// pRow: from 0, of the list of profiles.
    void OnProfileChosen(int pRow);

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private:
    void _MakeActions();
    void _ConnectHand();
    bool _IsOurs(const QWidget& pWidget) const;
    bool _Press(QWidget& pWidget, int pKey);
    void _WatchField(QWidget& pField, int pKey);

    BeatHand& m_hand;  ///< not owned
    std::array<QAction*, eBoothActionCount> m_actions{};
    std::array<QAction*, kProfiles> m_profiles{};
    QMenu* m_pProfilesMenu = nullptr;
    std::vector<QWidget*> m_windows;  ///< not owned; they outlive this
    QTimer* m_pFieldTimer;
};
