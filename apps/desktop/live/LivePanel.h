// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/look/Look.h>
#include <desktop/session/LiveValues.h>

#include <QEvent>
#include <QWidget>

/// A part of the window that shows what is heard just now.
class LivePanel : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Called up to sixty times a second while the panel can be seen. It must repaint only what has
    /// changed. pNow: ms on the clock of the values' times.
    virtual void Refresh(const LiveValues& pValues, qint64 pNow) = 0;
    /// pColors: valid for ever.
    virtual void setColors(const LookColors& pColors) = 0;

protected:
    static constexpr qint64 kFrameMs = 30;  ///< motion that is this quick looks smooth

    /// Sets all texts anew. Also to be called by the constructor of a panel.
    virtual void Retranslate() = 0;

    void changeEvent(QEvent* pEvent) override
    {
        if (pEvent->type() == QEvent::LanguageChange)
            Retranslate();
        QWidget::changeEvent(pEvent);
    }
};
