// SPDX-License-Identifier: MIT
#pragma once

#include <QDoubleSpinBox>

/// A number with decimals. The comma and the point both separate them, whatever the language: a
/// number pad has only one of the two. A typed value counts when it is complete.
class DecimalField : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit DecimalField(QWidget* pParent = nullptr);

    QValidator::State validate(QString& pText, int& pPosition) const override;
};
