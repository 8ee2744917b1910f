// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsView>
#include <QPointF>
#include <QPointer>
#include <QString>

#include <memory>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

class CtrlForm;
class InkLayer;
class DrawManagerEx;
class QSettings;
class QWindow;
class QxtGlobalShortcut;
class Widgettest;
class shadowframeWidget;

namespace pallo {

// The transparent full-screen canvas. It draws nothing itself: mouse and pen input become
// "press", "move" and "release" for the drawing manager.
class GraphicsView : public QGraphicsView
{
    Q_OBJECT

public:
    GraphicsView(bool enable, QWidget* parent);
    ~GraphicsView() override;

    // The canvas of the process, or null.
    static GraphicsView* instance();
    // The current tool's stored figure, or an empty text when there is no canvas.
    static QString currentFigure();

    // Wires the toolbar's signals and places it in the top right corner; only the first call
    // counts. The toolbar becomes a child of the view.
    void attachCtrlForm(CtrlForm* form);

    DrawManagerEx* drawManager() const { return m_manager; }
    InkLayer* inkLayer() const { return m_inkLayer.get(); }
    CtrlForm* ctrlForm() const { return m_ctrlForm; }
    QSettings* settings() const { return m_settings; }
    bool chooseMode() const { return m_chooseMode; }
    bool dragMode() const { return m_dragMode; }
    bool penDown() const { return m_penDown; }
    QString cursorName() const { return m_cursorName; }

    // The timer window and the settings panel while they are open, else null.
    Widgettest* timerWindow() const;
    shadowframeWidget* settingsPanel() const;

    // Sets the movable, selectable and hover flags of every drawn item but eraser strokes.
    void setItemsMovable(bool on);

signals:
    void sg_pos(int x, int y);
    void sg_state(QString mouse_state, int x, int y);

public slots:
    void slot_enable(bool enable);
    void slot_choose();
    void slot_test();
    void slot_dirchanged(QString str);
    void slot_cursor(QString cursor);
    void slot_showmin();
    void slot_widstayontop();
    void slot_timer();
    void slot_timerexit();
    void slot_shortcut();
    void slot_shortwidexit();
    void slot_zoomshortcut(QString str);
    void slot_timershortcut(QString str);
    void slot_screenshortcut(QString str);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void tabletEvent(QTabletEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void drawBackground(QPainter* painter, const QRectF& rect) override;
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    void drawItems(QPainter* painter, int numItems, QGraphicsItem* items[],
                   const QStyleOptionGraphicsItem options[]) override;
#endif
    void showEvent(QShowEvent* event) override;

private:
    void setInitialCursor();
    bool textItemUnderCursor(const QPoint& point);
    void attachHandlesAt(const QPoint& point);
    void forwardAsMouse(QTabletEvent* event, const QPointF& viewportPos);
    void passState(const char* state, const QPointF& scenePos);
    QPointF toScene(const QPointF& viewportPos) const;
    void connectHotkeys();
    void connectHotkey(QxtGlobalShortcut* shortcut);
    void changeHotkey(QxtGlobalShortcut* shortcut, const QString& key, const QString& sequence);

#ifdef Q_OS_WIN
    bool installPenHook();
    void updateNativeCursor();
    static LRESULT CALLBACK penWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
#endif

    DrawManagerEx* m_manager = nullptr;
    std::unique_ptr<InkLayer> m_inkLayer;
    CtrlForm* m_ctrlForm = nullptr;
    QSettings* m_settings = nullptr;
    QPointer<QWindow> m_watchedWindow;
    QPointer<Widgettest> m_timerWidget;
    QPointer<shadowframeWidget> m_shortcutWidget;
    // The board never registers its hotkeys, so these stay null; the settings panel's
    // changes therefore always end as refused.
    QxtGlobalShortcut* m_zoomShortcut = nullptr;
    QxtGlobalShortcut* m_timerShortcut = nullptr;
    QxtGlobalShortcut* m_screenShortcut = nullptr;
    bool m_chooseMode = false;
    bool m_mouseDrawing = false;
    bool m_dragMode = false;
    bool m_penDown = false;
    QString m_cursorName;
    bool m_initialCursorPending = true;
    QPointF m_lastPenPoint;
#ifdef Q_OS_WIN
    WNDPROC m_previousWindowProc = nullptr;
    quint32 m_penPointerId = 0;
    bool m_penContact = false;
    HCURSOR m_nativeCursor = nullptr;
    bool m_penInRange = false;
#endif
};

} // namespace pallo
