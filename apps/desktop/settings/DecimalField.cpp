// SPDX-License-Identifier: MIT
#include <desktop/settings/DecimalField.h>

#include <QLocale>

DecimalField::DecimalField(QWidget* pParent) : QDoubleSpinBox(pParent)
{
    setKeyboardTracking(false);
    setAlignment(Qt::AlignRight);
}

QValidator::State DecimalField::validate(QString& pText, int& pPosition) const
{
    const QChar point = locale().decimalPoint();
    pText.replace(point == QLatin1Char(',') ? QLatin1Char('.') : QLatin1Char(','), point);
    return QDoubleSpinBox::validate(pText, pPosition);
}

#include "moc_DecimalField.cpp"
