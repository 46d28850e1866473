// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;

/// The status bar: what is heard, and beneath it what could not be saved, in full.
class StatusLine : public QWidget
{
    Q_OBJECT

public:
    explicit StatusLine(QWidget* pParent = nullptr);

    void setWarningColor(const QColor& pColor);
    void setSource(const QString& pText, bool pIsWarning);
    /// An empty text takes no room.
    void setProblem(const QString& pText);
    QString getSource() const;
    QString getProblem() const;

private:
    void _Color(QLabel& pLabel, bool pIsWarning) const;

    QLabel* m_pSource;
    QLabel* m_pProblem;
    QColor m_warning;
    bool m_isWarning = false;
};
