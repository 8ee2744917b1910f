// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// The canvas view's part in the presentation tools: the timer window, the settings panel
// and the hotkeys that open the tools.
#include "canvas/graphics-view.h"

#include "toolbar/ctrl-form.h"
#include "tools/qxt-global-shortcut.h"
#include "tools/shadowframe-widget.h"
#include "tools/widgettest.h"

#include <QDebug>
#include <QKeySequence>
#include <QSettings>

namespace pallo {

Widgettest* GraphicsView::timerWindow() const
{
    return m_timerWidget;
}

shadowframeWidget* GraphicsView::settingsPanel() const
{
    return m_shortcutWidget;
}

void GraphicsView::slot_timer()
{
    qDebug() << "接收到定时器信号";
    // The toolbar's entry and the hotkey both toggle the window.
    if (m_timerWidget) {
        delete m_timerWidget;
        return;
    }
    m_timerWidget = new Widgettest(this);
    m_timerWidget->show();
    connect(m_timerWidget, &Widgettest::sg_timerexit, this, &GraphicsView::slot_timerexit);
}

void GraphicsView::slot_timerexit()
{
    // The window is still inside its own quit handler.
    if (m_timerWidget)
        m_timerWidget->deleteLater();
    m_timerWidget = nullptr;
}

void GraphicsView::slot_shortcut()
{
    const QString zoom = m_settings->value("zoom").toString();
    const QString timer = m_settings->value("timer").toString();
    const QString screen = m_settings->value("screen").toString();
    const QString folder = m_settings->value("cutdirectory").toString();
    const QString format = " " + m_settings->value("picformat").toString();
    if (m_shortcutWidget)
        return;
    m_shortcutWidget = new shadowframeWidget(this);
    connect(m_shortcutWidget, &shadowframeWidget::sg_zoomkeytext, this,
            &GraphicsView::slot_zoomshortcut);
    connect(m_shortcutWidget, &shadowframeWidget::sg_timerkeytext, this,
            &GraphicsView::slot_timershortcut);
    connect(m_shortcutWidget, &shadowframeWidget::sg_screenkeytext, this,
            &GraphicsView::slot_screenshortcut);
    connect(m_shortcutWidget, &shadowframeWidget::sg_dirchanged, this,
            &GraphicsView::slot_dirchanged);
    m_shortcutWidget->setFormatText(format);
    m_shortcutWidget->setDirectory(folder);
    m_shortcutWidget->setZoomKeyText(zoom);
    m_shortcutWidget->setTimerKeyText(timer);
    m_shortcutWidget->setScreenKeyText(screen);
    m_shortcutWidget->show();
    connect(m_shortcutWidget, &shadowframeWidget::sg_shortexit, this,
            &GraphicsView::slot_shortwidexit);
}

void GraphicsView::slot_shortwidexit()
{
    // The panel is still inside its own close handler.
    if (m_shortcutWidget)
        m_shortcutWidget->deleteLater();
    m_shortcutWidget = nullptr;
}

void GraphicsView::connectHotkeys()
{
    if (m_zoomShortcut)
        connect(m_zoomShortcut, &QxtGlobalShortcut::activated, m_ctrlForm, &CtrlForm::slot_zoom);
    if (m_timerShortcut)
        connect(m_timerShortcut, &QxtGlobalShortcut::activated, this, &GraphicsView::slot_timer);
    if (m_screenShortcut)
        connect(m_screenShortcut, &QxtGlobalShortcut::activated, m_ctrlForm,
                &CtrlForm::slot_screen);
}

bool GraphicsView::registerHotkey(QxtGlobalShortcut* shortcut, const QString& sequence)
{
    if (shortcut && shortcut->setShortcut(QKeySequence(sequence)))
        return true;
    qDebug() << "快捷键已占用";
    return false;
}

void GraphicsView::slot_zoomshortcut(QString str)
{
    if (!registerHotkey(m_zoomShortcut, str))
        return;
    connect(m_zoomShortcut, &QxtGlobalShortcut::activated, m_ctrlForm, &CtrlForm::slot_zoom);
    m_settings->setValue("zoom", str);
}

void GraphicsView::slot_timershortcut(QString str)
{
    if (!registerHotkey(m_timerShortcut, str))
        return;
    connect(m_timerShortcut, &QxtGlobalShortcut::activated, this, &GraphicsView::slot_timer);
    m_settings->setValue("timer", str);
}

void GraphicsView::slot_screenshortcut(QString str)
{
    qDebug() << "screen快捷键";
    if (!registerHotkey(m_screenShortcut, str))
        return;
    connect(m_screenShortcut, &QxtGlobalShortcut::activated, m_ctrlForm, &CtrlForm::slot_screen);
    m_settings->setValue("screen", str);
}

} // namespace pallo
