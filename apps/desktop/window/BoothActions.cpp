// SPDX-License-Identifier: MIT
#include <desktop/session/BeatHand.h>
#include <desktop/window/BoothActions.h>

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>

#include <algorithm>

namespace {

bool IsArrow(int pKey)
{
    return pKey >= Qt::Key_Left && pKey <= Qt::Key_Down;
}

bool IsField(const QWidget* pWidget)
{
    return qobject_cast<const QAbstractSpinBox*>(pWidget) ||
           qobject_cast<const QLineEdit*>(pWidget);
}

/// Whether a field that is typed into can do something with a key.
bool Uses(const QWidget& pField, int pKey)
{
    if (qobject_cast<const QAbstractSpinBox*>(&pField))
        return IsArrow(pKey) || pKey == Qt::Key_Minus || (pKey >= Qt::Key_0 && pKey <= Qt::Key_9);
    return IsField(&pField) && pKey < Qt::Key_F1;
}

}  // namespace

BoothActions::BoothActions(BeatHand& pHand, QObject* pParent)
    : QObject(pParent), m_hand(pHand), m_pFieldTimer(new QTimer(this))
{
    _MakeActions();
    _ConnectHand();
    m_pFieldTimer->setSingleShot(true);
    m_pFieldTimer->setInterval(kFieldMs);
    connect(m_pFieldTimer, &QTimer::timeout, this, [] {
        if (IsField(QApplication::focusWidget()))
            QApplication::focusWidget()->clearFocus();
    });
    qApp->installEventFilter(this);
    Retranslate();
}

void BoothActions::_MakeActions()
{
    for (int i = 0; i < eBoothActionCount; ++i) {
        const BoothKeys::Key& key = BoothKeys::getTable()[std::size_t(i)];
        m_actions[std::size_t(i)] = new QAction(this);
        if (i != eProfileAction)
            m_actions[std::size_t(i)]->setShortcut(BoothKeys::getSequence(key));
        m_actions[std::size_t(i)]->setAutoRepeat(key.isRepeated);
    }
    m_actions[eOutputsAction]->setCheckable(true);
    m_actions[eMuteAction]->setCheckable(true);
    m_actions[ePauseAction]->setCheckable(true);
    for (int row = 0; row < kProfiles; ++row) {
        auto* pAction = new QAction(this);
        pAction->setShortcut(QKeySequence(Qt::Key_1 + row));
        pAction->setAutoRepeat(false);
        pAction->setVisible(false);
        connect(pAction, &QAction::triggered, this, [this, row] { Q_EMIT OnProfileChosen(row); });
        m_profiles[std::size_t(row)] = pAction;
    }
}

void BoothActions::_ConnectHand()
{
    BeatHand& hand = m_hand;
    const auto on = [this](eBoothAction pAction, auto pDo) {
        connect(m_actions[pAction], &QAction::triggered, this, pDo);
    };
    on(
        eTapAction, [&hand] { hand.Tap(); });
    on(
        eOneAction, [&hand] { hand.MarkOne(); });
    on(
        eRoundAction, [&hand] { hand.Round(); });
    on(
        eHoldAction, [&hand] { hand.isHeld() ? hand.Release() : hand.Hold(); });
    on(
        eEarlierAction, [&hand] { hand.Nudge(-BeatHand::kNudgeMs); });
    on(
        eLaterAction, [&hand] { hand.Nudge(BeatHand::kNudgeMs); });
    on(
        eDoubleAction, [&hand] { hand.Scale(2, 1); });
    on(eHalfAction, [&hand] { hand.Scale(1, 2); });
}

void BoothActions::FillMenu(QMenu& pMenu)
{
    for (int action = eTapAction; action <= eSearchAction; ++action)
        pMenu.addAction(m_actions[std::size_t(action)]);
    pMenu.addSeparator();
    pMenu.addAction(m_actions[eOutputsAction]);
    m_pProfilesMenu = pMenu.addMenu(QString());
    m_pProfilesMenu->addAction(m_actions[eAutomaticAction]);
    for (QAction* pAction : m_profiles)
        m_pProfilesMenu->addAction(pAction);
    Retranslate();
}

void BoothActions::AddTo(QWidget& pWindow)
{
    m_windows.push_back(&pWindow);
    for (QAction* pAction : m_actions)
        pWindow.addAction(pAction);
    for (QAction* pAction : m_profiles)
        pWindow.addAction(pAction);
}

void BoothActions::setProfiles(const QStringList& pNames)
{
    for (int row = 0; row < kProfiles; ++row) {
        QAction* pAction = m_profiles[std::size_t(row)];
        pAction->setVisible(row < pNames.size());
        QString name = row < pNames.size() ? pNames[row] : QString();
        name.replace(QLatin1Char('&'), QLatin1String("&&"));
        pAction->setText(QStringLiteral("&%1 %2").arg(row + 1).arg(name));
    }
}

void BoothActions::Retranslate()
{
    for (int i = 0; i < eBoothActionCount; ++i)
        m_actions[std::size_t(i)]->setText(
            BoothKeys::getText(BoothKeys::getTable()[std::size_t(i)]));
    if (m_pProfilesMenu)
        m_pProfilesMenu->setTitle(tr("&Profile"));
}

std::vector<std::pair<QString, QString>> BoothActions::getPage()
{
    std::vector<std::pair<QString, QString>> page;
    for (const BoothKeys::Key& key : BoothKeys::getTable())
        page.emplace_back(BoothKeys::getName(key), BoothKeys::getPlainText(key));
    return page;
}

// ---- What has the focus -------------------------------------------------------------------------

bool BoothActions::_IsOurs(const QWidget& pWidget) const
{
    return !QApplication::activePopupWidget() &&
           std::find(m_windows.begin(), m_windows.end(), pWidget.window()) != m_windows.end();
}

bool BoothActions::eventFilter(QObject* pObject, QEvent* pEvent)
{
    const bool isAsked = pEvent->type() == QEvent::ShortcutOverride;
    if (!isAsked && pEvent->type() != QEvent::KeyPress)
        return false;
    auto* pWidget = qobject_cast<QWidget*>(pObject);
    if (!pWidget || !_IsOurs(*pWidget))
        return false;
    const auto* pKey = static_cast<QKeyEvent*>(pEvent);
    if (!isAsked && IsField(pWidget))
        _WatchField(*pWidget, pKey->key());
    const bool isPlain = (pKey->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == 0;
    if (!isAsked)
        return isPlain && _Press(*pWidget, pKey->key());
    if (!isPlain || !IsField(pWidget))
        return false;
    // What a field does not want goes on to the shortcuts, the rest does not.
    pEvent->setAccepted(Uses(*pWidget, pKey->key()));
    return true;
}

bool BoothActions::_Press(QWidget& pWidget, int pKey)
{
    if (pKey != Qt::Key_Return && pKey != Qt::Key_Enter)
        return false;
    if (auto* pButton = qobject_cast<QAbstractButton*>(&pWidget)) {
        pButton->click();
        return true;
    }
    if (auto* pBox = qobject_cast<QComboBox*>(&pWidget)) {
        pBox->showPopup();
        return true;
    }
    return false;
}

void BoothActions::_WatchField(QWidget& pField, int pKey)
{
    m_pFieldTimer->start();
    // Once the field has taken what was typed.
    if (pKey == Qt::Key_Return || pKey == Qt::Key_Enter || pKey == Qt::Key_Escape)
        QTimer::singleShot(0, &pField, [&pField] { pField.clearFocus(); });
}

#include "moc_BoothActions.cpp"
