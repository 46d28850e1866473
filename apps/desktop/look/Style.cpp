// SPDX-License-Identifier: MIT
#include <desktop/look/Style.h>

#include <QAbstractSpinBox>
#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>

namespace {

/// Fusion, with an outline in the colour of the text around all that can be pressed or filled in
/// where the ground is so dark that its own outlines, which are darker still, cannot be seen.
class OutlineStyle : public QProxyStyle
{
public:
    OutlineStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    void drawPrimitive(PrimitiveElement pElement,
                       const QStyleOption* pOption,
                       QPainter* pPainter,
                       const QWidget* pWidget) const override
    {
        QProxyStyle::drawPrimitive(pElement, pOption, pPainter, pWidget);
        if (!_IsBlack(*pOption) || pOption->state & State_HasFocus)
            return;
        const bool isWholeField =
            pElement == PE_PanelLineEdit &&
            !(pWidget && qobject_cast<const QAbstractSpinBox*>(pWidget->parentWidget()));
        if (pElement == PE_IndicatorCheckBox || pElement == PE_Frame ||
            pElement == PE_PanelButtonCommand || isWholeField)
            _DrawOutline(*pPainter, *pOption, false);
        else if (pElement == PE_IndicatorRadioButton)
            _DrawOutline(*pPainter, *pOption, true);
    }

    void drawComplexControl(ComplexControl pControl,
                            const QStyleOptionComplex* pOption,
                            QPainter* pPainter,
                            const QWidget* pWidget) const override
    {
        QProxyStyle::drawComplexControl(pControl, pOption, pPainter, pWidget);
        const bool hasFrame = pControl == CC_SpinBox || pControl == CC_ComboBox;
        if (hasFrame && _IsBlack(*pOption) && !(pOption->state & State_HasFocus))
            _DrawOutline(*pPainter, *pOption, false);
    }

private:
    static bool _IsBlack(const QStyleOption& pOption)
    {
        constexpr int kBlack = 8;
        return pOption.palette.color(QPalette::Window).lightness() < kBlack;
    }

    static void _DrawOutline(QPainter& pPainter, const QStyleOption& pOption, bool pIsRound)
    {
        const QRect place = pOption.rect.adjusted(0, 0, -1, -1);
        pPainter.save();
        pPainter.setPen(pOption.palette.color(QPalette::WindowText));
        pPainter.setBrush(Qt::NoBrush);
        pPainter.setRenderHint(QPainter::Antialiasing, pIsRound);
        pIsRound ? pPainter.drawEllipse(place) : pPainter.drawRect(place);
        pPainter.restore();
    }
};

}  // namespace

void style::Prepare()
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    // Frames are whole points wide; between two whole factors only the letters grow.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::RoundPreferFloor);
}

void style::Apply()
{
    QApplication::setStyle(new OutlineStyle);
}
