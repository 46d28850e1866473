// SPDX-License-Identifier: MIT
#include <desktop/look/Card.h>
#include <desktop/outputs/OutputsPanel.h>
#include <desktop/settings/AdvancedSettingsPanel.h>
#include <desktop/settings/DurationsPanel.h>
#include <desktop/settings/InputDevicesPanel.h>
#include <desktop/settings/ManualBeatPanel.h>
#include <desktop/settings/ProfilesPanel.h>
#include <desktop/window/SettingsColumn.h>

#include <QEvent>
#include <QListView>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int kLeastLines = 2;  ///< of a list
constexpr int kUsualLines = 5;
constexpr int kMostLines = 8;
constexpr int kReadableWidth = 27;  ///< in heights of a letter

}  // namespace

SettingsColumn::SettingsColumn(Configuration& pConfiguration,
                               MonitorOutputs& pOutputs,
                               QWidget* pParent)
    : QScrollArea(pParent), m_pDevices(new InputDevicesPanel(pConfiguration)),
      m_pProfiles(new ProfilesPanel(pConfiguration)),
      m_pManualBeat(new ManualBeatPanel(pConfiguration)),
      m_pAdvanced(new AdvancedSettingsPanel(pConfiguration))
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    auto* pContent = new QWidget;
    auto* pLayout = new QVBoxLayout(pContent);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(fontMetrics().height() / 4);
    setWidget(pContent);
    _Add(eDevicesPanel, m_pDevices);
    _Add(eProfilesPanel, m_pProfiles);
    _Add(eManualBeatPanel, m_pManualBeat);
    _Add(eOutputsPanel, new OutputsPanel(pConfiguration, pOutputs));
    _Add(eDurationsPanel, new DurationsPanel(pConfiguration));
    _Add(eAdvancedSettingsPanel, m_pAdvanced);
    pLayout->addStretch();
    pContent->installEventFilter(this);
}

void SettingsColumn::_Add(ePanel pPanel, SettingsPanel* pContent)
{
    pContent->layout()->setContentsMargins(0, 0, 0, 0);
    // A list asks for far more than the few lines that it has.
    const auto lists = pContent->findChildren<QListView*>();
    m_lists.insert(m_lists.end(), lists.begin(), lists.end());
    _SetLists(_LinesHigh(kLeastLines));
    auto* pCard = new Card(pContent);
    pCard->setTitle(pContent->windowTitle());
    connect(pContent, &QWidget::windowTitleChanged, pCard, &Card::setTitle);
    connect(pContent,
            &SettingsPanel::OnConfigurationChanged,
            this,
            &SettingsColumn::OnConfigurationChanged);
    widget()->layout()->addWidget(pCard);
    m_cards[pPanel] = pCard;
    m_panels[pPanel] = pContent;
}

void SettingsColumn::setAnalyzer(AudioAnalyzer* pAnalyzer)
{
    for (const auto& [panel, pContent] : m_panels)
        pContent->setAnalyzer(pAnalyzer);
}

void SettingsColumn::Refresh()
{
    for (const auto& [panel, pContent] : m_panels)
        pContent->Refresh();
}

QWidget* SettingsColumn::getPanel(ePanel pPanel) const
{
    const auto found = m_cards.find(pPanel);
    return found == m_cards.end() ? nullptr : found->second;
}

void SettingsColumn::HideWhenEmpty()
{
    setHidden(std::all_of(
        m_cards.begin(),
        m_cards.end(),
        [](const auto& pEntry) { return pEntry.second->isHidden(); }));
}

int SettingsColumn::_NeededWidth() const
{
    return widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width();
}

QSize SettingsColumn::sizeHint() const
{
    const int readable = kReadableWidth * fontMetrics().height();
    const int more = (kUsualLines - kLeastLines) * fontMetrics().lineSpacing();
    return {std::max(_NeededWidth(), readable), _NeededHeight() + int(m_lists.size()) * more};
}

// ---- The lists ----------------------------------------------------------------------------------

int SettingsColumn::_LinesHigh(int pLines) const
{
    return pLines * fontMetrics().lineSpacing() + fontMetrics().height() / 4;
}

void SettingsColumn::_SetLists(int pHeight)
{
    for (QListView* pList : m_lists)
        pList->setFixedHeight(pHeight);
}

/// With the shortest lists.
int SettingsColumn::_NeededHeight() const
{
    const QLayout* pLayout = widget()->layout();
    const int width = viewport()->width();
    const int needed = pLayout->hasHeightForWidth() ? pLayout->totalHeightForWidth(width)
                                                    : pLayout->sizeHint().height();
    int longer = 0;
    for (const QListView* pList : m_lists)
        if (pList->isVisibleTo(widget()))
            longer += pList->minimumHeight() - _LinesHigh(kLeastLines);
    return needed - longer;
}

/// They share the room that nothing else needs.
void SettingsColumn::_FitLists()
{
    const auto shown = std::count_if(m_lists.begin(), m_lists.end(), [this](const auto* pList) {
        return pList->isVisibleTo(widget());
    });
    if (shown == 0)
        return;
    const int spare = (viewport()->height() - _NeededHeight()) / int(shown);
    _SetLists(std::clamp(
        _LinesHigh(kLeastLines) + spare, _LinesHigh(kLeastLines), _LinesHigh(kMostLines)));
}

void SettingsColumn::resizeEvent(QResizeEvent* pEvent)
{
    QScrollArea::resizeEvent(pEvent);
    _FitLists();
}

/// Never narrower than its panels, which then need no horizontal scroll bar.
bool SettingsColumn::eventFilter(QObject* pObject, QEvent* pEvent)
{
    if (pObject == widget() && pEvent->type() == QEvent::LayoutRequest)
        setMinimumWidth(_NeededWidth());
    if (pObject == widget() && pEvent->type() == QEvent::LayoutRequest)
        _FitLists();
    return QScrollArea::eventFilter(pObject, pEvent);
}

#include "moc_SettingsColumn.cpp"
