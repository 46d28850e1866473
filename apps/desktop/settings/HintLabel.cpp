// SPDX-License-Identifier: MIT
#include <desktop/settings/HintLabel.h>

#include <QEvent>

namespace {

/// Readable on a light and on a dark ground.
QColor Loud(const QColor& pGround)
{
    return pGround.lightness() < 128 ? QColor(255, 138, 128) : QColor(176, 0, 32);
}

/// Seven tenths of the way from the ground to the text.
QColor Quiet(const QColor& pGround, const QColor& pText)
{
    const auto mix = [](int pFrom, int pTo) { return (3 * pFrom + 7 * pTo) / 10; };
    return {mix(pGround.red(), pText.red()),
            mix(pGround.green(), pText.green()),
            mix(pGround.blue(), pText.blue())};
}

}  // namespace

HintLabel::HintLabel(QWidget* pParent) : QLabel(pParent)
{
    setWordWrap(true);
    setTextFormat(Qt::PlainText);
    _Paint();
}

void HintLabel::_Show(const QString& pText, bool pIsRefusal)
{
    m_isRefusal = pIsRefusal;
    setText(pText);
    _Paint();
}

void HintLabel::_Paint()
{
    const QPalette& base = parentWidget() ? parentWidget()->palette() : palette();
    const QColor ground = base.color(QPalette::Window);
    const QColor color =
        m_isRefusal ? Loud(ground) : Quiet(ground, base.color(QPalette::WindowText));
    if (color == palette().color(QPalette::WindowText))
        return;
    QPalette own = palette();
    own.setColor(QPalette::WindowText, color);
    setPalette(own);
}

void HintLabel::changeEvent(QEvent* pEvent)
{
    QLabel::changeEvent(pEvent);
    if (pEvent->type() == QEvent::PaletteChange || pEvent->type() == QEvent::ParentChange)
        _Paint();
}
