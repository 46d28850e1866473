// SPDX-License-Identifier: MIT
#include <desktop/stage/KeysPage.h>

#include <QKeyEvent>

#include <algorithm>

KeysPage::KeysPage(QWidget* pWindow) : QLabel(pWindow)
{
    setTextFormat(Qt::RichText);
    // Dark in the dark, whatever the window is.
    QPalette colors;
    colors.setColor(QPalette::Window, QColor(0x1e2228));
    colors.setColor(QPalette::WindowText, QColor(0xf4f4f4));
    setPalette(colors);
    setAutoFillBackground(true);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setCursor(Qt::ArrowCursor);
    hide();
}

void KeysPage::Toggle(const std::vector<std::pair<QString, QString>>& pKeys)
{
    if (!isHidden())
        return hide();
    QString rows;
    for (const auto& [key, text] : pKeys)
        rows += QStringLiteral("<tr><td align=right><b>%1</b></td><td>&nbsp;&nbsp;%2</td></tr>")
                    .arg(key.toHtmlEscaped(), text.toHtmlEscaped());
    setText(QStringLiteral("<table cellpadding=3>%1</table>").arg(rows));
    setAccessibleName(tr("The keys"));
    // As large as the window lets it be.
    const QWidget* pWindow = parentWidget();
    QFont large = pWindow->font();
    const int perLine = pWindow->height() * 4 / 5 / int(pKeys.size() + 1);
    large.setPixelSize(std::clamp(perLine / 2, pWindow->fontInfo().pixelSize(), 36));
    setFont(large);
    setMargin(large.pixelSize());
    adjustSize();
    move((pWindow->width() - width()) / 2, (pWindow->height() - height()) / 2);
    show();
    raise();
    setFocus();
}

void KeysPage::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Escape)
        return hide();
    QLabel::keyPressEvent(pEvent);
}

void KeysPage::mousePressEvent(QMouseEvent*)
{
    hide();
}

#include "moc_KeysPage.cpp"
