// SPDX-License-Identifier: MIT
#include <desktop/session/SoundKeeper.h>
#include <desktop/window/SaveDialog.h>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int kLookMs = 500;

}  // namespace

SaveDialog::SaveDialog(SoundKeeper& pSound, QWidget* pParent)
    : QDialog(pParent), m_sound(pSound), m_pWithSound(new QCheckBox(tr("with &sound"), this)),
      m_pKept(new QLabel(this))
{
    setWindowTitle(tr("Save what happened"));
    auto* pText = new QLabel(
        tr("One zip file with the last two minutes as a picture and as numbers, what was said, and "
           "the settings."),
        this);
    for (QLabel* pLabel : {pText, m_pKept})
        pLabel->setWordWrap(true);
    m_pWithSound->setObjectName(QStringLiteral("with-sound"));
    m_pWithSound->setChecked(pSound.isOn());
    auto* pButtons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    auto* pSave = pButtons->addButton(tr("Sa&ve…"), QDialogButtonBox::AcceptRole);
    pSave->setDefault(true);
    auto* pLayout = new QVBoxLayout(this);
    for (QWidget* pWidget : std::initializer_list<QWidget*>{pText, m_pWithSound, m_pKept, pButtons})
        pLayout->addWidget(pWidget);
    connect(pButtons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_pWithSound, &QCheckBox::toggled, this, [this](bool pIsOn) {
        m_sound.setOn(pIsOn);
        _Show();
    });
    connect(&m_tick, &QTimer::timeout, this, &SaveDialog::_Show);
    m_tick.start(kLookMs);
    _Show();
}

void SaveDialog::_Show()
{
    m_pKept->setText(
        m_sound.isOn()
            ? tr("%1 s of sound are kept by now, in memory alone; two minutes at most, until this "
                 "is switched off.")
                  .arg(int(m_sound.getSeconds()))
            : tr("No sound is kept. Tick it, and from then on the last two minutes are."));
}

#include "moc_SaveDialog.cpp"
