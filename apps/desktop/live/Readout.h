// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;

/// A named number with the colour in which a picture shows it.
class Readout : public QWidget
{
    Q_OBJECT

public:
    explicit Readout(QWidget* pParent = nullptr);

    void setColor(const QColor& pColor);
    void setName(const QString& pName);
    void setValue(const QString& pValue);
    QString getValue() const;

private:
    QLabel* m_pSwatch;
    QLabel* m_pName;
    QLabel* m_pValue;
};
