// SPDX-License-Identifier: MIT
#include <desktop/outputs/LampDelegate.h>
#include <desktop/outputs/OutputEditor.h>
#include <desktop/outputs/OutputsModel.h>
#include <desktop/outputs/OutputsPanel.h>
#include <desktop/settings/DecimalField.h>
#include <desktop/settings/HintLabel.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>

OutputsPanel::OutputsPanel(Configuration& pConfiguration,
                           MonitorOutputs& pOutputs,
                           QWidget* pParent)
    : SettingsPanel(pConfiguration, pParent), m_outputs(pOutputs), m_pModel(new OutputsModel(this)),
      m_pList(new QListView(this)), m_pState(new HintLabel(this)), m_pEmpty(new HintLabel(this)),
      m_pAdd(new QPushButton(this)), m_pEdit(new QPushButton(this)),
      m_pRemove(new QPushButton(this)), m_pTest(new QPushButton(this)),
      m_pOffsetLabel(new QLabel(this)), m_pOffset(new QSlider(Qt::Horizontal, this)),
      m_pOffsetField(new DecimalField(this)), m_pNotice(new HintLabel(this))
{
    _SetFields();
    _MakeLayout();
    _Connect();
    _ConnectKeys();
    _Retranslate();
    Refresh();
}

void OutputsPanel::_SetFields()
{
    m_pList->setObjectName(QStringLiteral("outputs"));
    m_pList->setModel(m_pModel);
    m_pList->setItemDelegate(new LampDelegate(m_pList));
    m_pList->setUniformItemSizes(true);
    m_pList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pState->setObjectName(QStringLiteral("outputState"));
    // Nothing moves when there is more to say.
    m_pState->setFixedHeight(2 * m_pState->fontMetrics().lineSpacing());
    m_pState->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_pEmpty->setObjectName(QStringLiteral("noOutputs"));
    m_pAdd->setObjectName(QStringLiteral("addOutput"));
    m_pEdit->setObjectName(QStringLiteral("editOutput"));
    m_pRemove->setObjectName(QStringLiteral("removeOutput"));
    m_pTest->setObjectName(QStringLiteral("testOutput"));
    m_pOffset->setObjectName(QStringLiteral("outputOffset"));
    m_pOffsetField->setObjectName(QStringLiteral("outputOffsetField"));
    m_pNotice->setObjectName(QStringLiteral("outputNotice"));
    constexpr int kPage = 10;  // ms
    const int farthest = int(OutputSettings::kFarthestOffset);
    m_pOffset->setRange(-farthest, farthest);
    m_pOffset->setPageStep(kPage);
    m_pOffset->setTickPosition(QSlider::TicksBelow);
    m_pOffset->setTickInterval(farthest);
    m_pOffsetField->setRange(-farthest, farthest);
    m_pOffsetField->setDecimals(1);
    m_pOffsetLabel->setBuddy(m_pOffset);
}

void OutputsPanel::_MakeLayout()
{
    auto* pButtons = new QHBoxLayout;
    pButtons->addWidget(m_pEmpty, 2);
    for (QPushButton* pButton : {m_pAdd, m_pEdit, m_pRemove, m_pTest})
        pButtons->addWidget(pButton, 1);
    auto* pOffset = new QHBoxLayout;
    pOffset->addWidget(m_pOffsetLabel);
    pOffset->addWidget(m_pOffset, 1);
    pOffset->addWidget(m_pOffsetField);
    auto* pLayout = new QVBoxLayout(this);
    pLayout->addWidget(m_pList, 1);
    pLayout->addWidget(m_pState);
    pLayout->addLayout(pButtons);
    pLayout->addLayout(pOffset);
    pLayout->addWidget(m_pNotice);
}

void OutputsPanel::_Connect()
{
    connect(&m_outputs, &MonitorOutputs::OnChanged, this, &OutputsPanel::Refresh);
    connect(&m_outputs, &MonitorOutputs::OnFailed, this, &OutputsPanel::_Judge);
    connect(m_pModel,
            &OutputsModel::OnEnabledChosen,
            this,
            [this](const QString& pName, bool pIsEnabled) {
                _Judge(m_outputs.setEnabled(pName, pIsEnabled));
            });
    connect(m_pList->selectionModel(),
            &QItemSelectionModel::currentChanged,
            this,
            &OutputsPanel::_ShowCurrent);
    connect(
        m_pAdd, &QPushButton::clicked, this, [this] { _OpenEditor({}); });
    connect(m_pEdit, &QPushButton::clicked, this, [this] {
        if (_Current())
            _OpenEditor(_Current()->output);
    });
    connect(m_pRemove, &QPushButton::clicked, this, &OutputsPanel::_Remove);
    connect(
        m_pTest,
        &QPushButton::clicked,
        this,
        [this] {
            if (_Current())
                m_outputs.Try(QString(_Current()->output.name));
        });
    connect(
        m_pOffset, &QSlider::valueChanged, this, [this](int pMs) { _ChooseOffset(double(pMs)); });
    connect(m_pOffsetField,
            QOverload<double>::of(&QDoubleSpinBox::valueChanged),
            this,
            &OutputsPanel::_ChooseOffset);
}

void OutputsPanel::_ConnectKeys()
{
    const auto on = [this](int pKey, auto pDo) {
        auto* pShortcut = new QShortcut(QKeySequence(pKey), m_pList);
        pShortcut->setContext(Qt::WidgetShortcut);
        connect(pShortcut, &QShortcut::activated, this, pDo);
    };
    on(
        Qt::Key_Return, [this] { _Toggle(); });
    on(
        Qt::Key_Enter, [this] { _Toggle(); });
    on(
        Qt::Key_F2, [this] { m_pEdit->click(); });
    on(
        Qt::Key_Delete, [this] { m_pRemove->click(); });
    on(Qt::Key_Insert, [this] { m_pAdd->click(); });
}

// ---- Changes ------------------------------------------------------------------------------------

const MonitorOutputs::Entry* OutputsPanel::_Current() const
{
    return m_pModel->getEntry(m_pList->currentIndex().row());
}

void OutputsPanel::_Choose(const QString& pName)
{
    m_pList->setCurrentIndex(m_pModel->index(m_pModel->Find(pName)));
}

void OutputsPanel::_OpenEditor(const StoredOutput& pOutput)
{
    if (m_pEditor)
        return m_pEditor->activateWindow();
    m_pEditor = new OutputEditor(
        pOutput,
        [this, before = pOutput.name](const StoredOutput& pEdited) {
            return before.isEmpty() ? m_outputs.Add(pEdited) : m_outputs.Replace(before, pEdited);
        },
        this);
    m_pEditor->setAttribute(Qt::WA_DeleteOnClose);
    const OutputEditor* pEditor = m_pEditor;
    connect(pEditor, &OutputEditor::accepted, this, [this, pEditor] {
        _Choose(pEditor->getOutput().name);
        _Judge({});
    });
    // Not exec(): the event loop goes on, and the beat with it.
    m_pEditor->open();
}

void OutputsPanel::_Toggle()
{
    if (_Current())
        _Judge(
            m_outputs.setEnabled(QString(_Current()->output.name), !_Current()->output.isEnabled));
}

void OutputsPanel::_Remove()
{
    if (_Current())
        _Judge(m_outputs.Remove(QString(_Current()->output.name)));
}

void OutputsPanel::_ChooseOffset(double pOffset)
{
    if (_Current())
        m_outputs.setOffset(QString(_Current()->output.name), pOffset);
}

void OutputsPanel::_Judge(const QString& pRefusal)
{
    m_refusal = pRefusal;
    _ShowNotice();
}

// ---- What is shown ------------------------------------------------------------------------------

void OutputsPanel::Refresh()
{
    const int row = m_pList->currentIndex().row();
    const QString name = _Current() ? _Current()->output.name : QString();
    m_pModel->setEntries(m_outputs.getEntries());
    // The one that was chosen, or else whatever is in its place.
    const int last = m_pModel->rowCount() - 1;
    if (!_Current() || _Current()->output.name != name) {
        const int found = m_pModel->Find(name);
        m_pList->setCurrentIndex(m_pModel->index(found >= 0 ? found : qBound(0, row, last)));
    }
    const bool isAny = last >= 0;
    for (QWidget* pWidget : std::initializer_list<QWidget*>{m_pList,
                                                            m_pState,
                                                            m_pEdit,
                                                            m_pRemove,
                                                            m_pTest,
                                                            m_pOffsetLabel,
                                                            m_pOffset,
                                                            m_pOffsetField})
        pWidget->setVisible(isAny);
    m_pEmpty->setVisible(!isAny);
    _ShowCurrent();
}

void OutputsPanel::_ShowCurrent()
{
    const MonitorOutputs::Entry* pEntry = _Current();
    if (pEntry) {
        const QSignalBlocker slider(m_pOffset);
        const QSignalBlocker field(m_pOffsetField);
        m_pOffset->setValue(qRound(pEntry->output.offset));
        m_pOffsetField->setValue(pEntry->output.offset);
        if (pEntry->state == MonitorOutputs::eUseless)
            m_pState->setRefusal(_Describe(*pEntry));
        else
            m_pState->setHint(_Describe(*pEntry));
    }
    _ShowNotice();
}

QString OutputsPanel::_Describe(const MonitorOutputs::Entry& pEntry) const
{
    if (pEntry.state == MonitorOutputs::eAway && pEntry.words.isEmpty())
        return tr("It is being looked for.");
    if (pEntry.state != MonitorOutputs::eOff)
        return pEntry.words;
    return pEntry.output.isEnabled ? tr("All outputs are off: the key O switches them on.")
                                   : tr("Not enabled: nothing is sent to it.");
}

void OutputsPanel::_ShowNotice()
{
    const MonitorOutputs::Test test = m_outputs.getTest();
    const bool isOfTest = _Current() && _Current()->output.name == test.name;
    const bool isTesting = isOfTest && test.isRunning;
    m_pTest->setEnabled(!isTesting);
    m_pNotice->setVisible(!m_refusal.isEmpty() || isOfTest);
    if (!m_refusal.isEmpty())
        m_pNotice->setRefusal(m_refusal);
    else if (isTesting)
        m_pNotice->setHint(tr("Two bars at 120 BPM: %1.").arg(test.seen));
    else if (isOfTest && test.hasFailed)
        m_pNotice->setRefusal(tr("The test has failed: %1.").arg(test.words));
    else if (isOfTest)
        m_pNotice->setHint(tr("The test is over, %1: %2.").arg(test.words, test.seen));
}

void OutputsPanel::_Retranslate()
{
    setWindowTitle(tr("Outputs"));
    m_pList->setAccessibleName(tr("Outputs"));
    m_pList->setToolTip(tr("What is checked gets the beats. Enter checks, Ins adds, F2 changes, "
                           "Del removes."));
    m_pList->setAccessibleDescription(m_pList->toolTip());
    m_pEmpty->setHint(tr("None yet."));
    m_pAdd->setText(tr("&Add…"));
    m_pAdd->setToolTip(tr("Lights, visuals or an instrument that follow the beat."));
    m_pEdit->setText(tr("C&hange…"));
    m_pEdit->setToolTip(tr("Change name, kind, address and preset."));
    m_pRemove->setText(tr("Remo&ve"));
    m_pRemove->setToolTip(tr("Send nothing to it any more, and forget it."));
    m_pTest->setText(tr("Test no&w"));
    m_pTest->setToolTip(tr("Sends two bars at 120 BPM, without any music."));
    m_pOffsetLabel->setText(tr("O&ffset:"));
    m_pOffset->setToolTip(tr("By how much its beats come later, or earlier to the left. At once."));
    m_pOffsetField->setToolTip(m_pOffset->toolTip());
    m_pOffset->setAccessibleName(tr("Offset of the output"));
    m_pOffsetField->setAccessibleName(m_pOffset->accessibleName());
    m_pOffsetField->setSuffix(tr(" ms"));
    for (QWidget* pField : std::initializer_list<QWidget*>{
             m_pAdd, m_pEdit, m_pRemove, m_pTest, m_pOffset, m_pOffsetField})
        pField->setAccessibleDescription(pField->toolTip());
    m_pModel->Retranslate();
    _ShowCurrent();
}

#include "moc_OutputsPanel.cpp"
