// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// The canvas view's part in the presentation tools: the timer window, the settings panel
// and the hotkeys that open the tools.
#include "canvas/graphics-view.h"

#include "logging/log-categories.h"
#include "toolbar/ctrl-form.h"
#include "tools/drop-later.h"
#include "tools/qxt-global-shortcut.h"
#include "tools/shadowframe-widget.h"
#include "tools/widgettest.h"

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
    qCDebug(lcCanvas) << "接收到定时器信号";
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
    dropLater(m_timerWidget);
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
    dropLater(m_shortcutWidget);
}

void GraphicsView::connectHotkeys()
{
    for (QxtGlobalShortcut* shortcut : {m_zoomShortcut, m_timerShortcut, m_screenShortcut})
        connectHotkey(shortcut);
}

void GraphicsView::connectHotkey(QxtGlobalShortcut* shortcut)
{
    if (!shortcut)
        return;
    if (shortcut == m_timerShortcut)
        connect(shortcut, &QxtGlobalShortcut::activated, this, &GraphicsView::slot_timer);
    else if (shortcut == m_zoomShortcut)
        connect(shortcut, &QxtGlobalShortcut::activated, m_ctrlForm, &CtrlForm::slot_zoom);
    else
        connect(shortcut, &QxtGlobalShortcut::activated, m_ctrlForm, &CtrlForm::slot_screen);
}

// Every successful change adds one more connection to the hotkey's target.
void GraphicsView::changeHotkey(QxtGlobalShortcut* shortcut, const QString& key,
                                const QString& sequence)
{
    if (!shortcut || !shortcut->setShortcut(QKeySequence(sequence))) {
        qCDebug(lcCanvas) << "快捷键已占用";
        return;
    }
    connectHotkey(shortcut);
    m_settings->setValue(key, sequence);
}

void GraphicsView::slot_zoomshortcut(QString str)
{
    changeHotkey(m_zoomShortcut, "zoom", str);
}

void GraphicsView::slot_timershortcut(QString str)
{
    changeHotkey(m_timerShortcut, "timer", str);
}

void GraphicsView::slot_screenshortcut(QString str)
{
    qCDebug(lcCanvas) << "screen快捷键";
    changeHotkey(m_screenShortcut, "screen", str);
}

} // namespace pallo
