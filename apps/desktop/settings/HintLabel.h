// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// The words beside a field: quietly its limits, or loudly why its value is refused.
class HintLabel : public QLabel
{
public:
    explicit HintLabel(QWidget* pParent = nullptr);

    void setHint(const QString& pText) { _Show(pText, false); }
    void setRefusal(const QString& pText) { _Show(pText, true); }
    bool isRefusal() const { return m_isRefusal; }

protected:
    void changeEvent(QEvent* pEvent) override;

private:
    void _Show(const QString& pText, bool pIsRefusal);
    void _Paint();

    bool m_isRefusal = false;
};
