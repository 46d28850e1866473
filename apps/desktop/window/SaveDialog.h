// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QTimer>

class QCheckBox;
class QLabel;
class SoundKeeper;

/// Asks what belongs into the file of what happened.
class SaveDialog : public QDialog
{
    Q_OBJECT

public:
    /// pSound is not owned; it keeps the sound from when that is ticked on.
    explicit SaveDialog(SoundKeeper& pSound, QWidget* pParent = nullptr);

private:
    void _Show();

    SoundKeeper& m_sound;  ///< not owned
    QCheckBox* m_pWithSound;
    QLabel* m_pKept;
    QTimer m_tick;
};
