// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "toolbar/enter-event.h"

#include <QImage>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <QString>
#include <QWidget>

class QAbstractButton;
class QAction;
class QButtonGroup;
class QSettings;
class QScreen;
class QToolButton;
class ControlMenu;
class EdgeHideDialog;
class FontSizeMenu;
class PenMenu;
class PopupMenuWdiget;
class SizeMenu;
class ZoomWidget;
class screenShotWidget;

namespace pallo {
class GraphicsView;
}

namespace Ui {
class CtrlForm;
}

// The floating control toolbar: chooses tools, colours and widths for the canvas view
// it creates, can be dragged, folded to one button, turned upright, and hides into a
// strip when left at a screen edge. The view hosts the toolbar as a child; deleting the
// toolbar deletes the view as well, and deleting the view takes the toolbar with it.
class CtrlForm : public QWidget
{
    Q_OBJECT

public:
    // When the canvas comes on screen: with the toolbar, by showCanvasFullScreen(), or as
    // soon as it exists, before the rest of the toolbar is built, which is how the board
    // starts, so that the screen is covered sooner.
    enum class CanvasShown
    {
        WithToolbar,
        AtOnce
    };

    explicit CtrlForm(QWidget* parent = nullptr,
                      CanvasShown canvasShown = CanvasShown::WithToolbar);
    ~CtrlForm() override;

    // The exclusive group of the tool buttons; id 5 is the text tool.
    QButtonGroup* figureGroup() const { return m_figure_group; }
    QButtonGroup* colorGroup() const { return m_color_group; }
    pallo::GraphicsView* canvasView() const;

    PopupMenuWdiget* toolsMenu() const { return m_toolsMenu; }
    SizeMenu* sizeMenu() const { return m_sizeMenu; }
    FontSizeMenu* fontSizeMenu() const { return m_fontSizeMenu; }
    PenMenu* penMenu() const { return m_penMenu; }
    ControlMenu* controlMenu() const { return m_controlMenu; }
    EdgeHideDialog* edgeStrip() const;
    // The magnifier and the screenshot overlay while they are open, else null.
    ZoomWidget* magnifier() const;
    screenShotWidget* screenShot() const;

    bool isHorizontal() const { return m_horizontal; }
    bool isCollapsed() const { return m_collapsed; }
    bool isChooseMode() const { return m_chooseMode; }
    int toolType() const { return m_toolType; }
    int dockSide() const { return m_dockSide; }
    bool isDockTimerRunning() const { return m_hideTimerId != 0; }

    // Start state of the board: desktop operation, with the select button lit.
    void enterChooseState();
    // Shows the canvas view over the whole screen.
    void showCanvasFullScreen();
    // True while the toolbar or the strip it docked into is on screen.
    bool isBoardShown() const;
    // Hides the canvas with the toolbar, or with its strip when docked, and shows them
    // back as they were.
    void hideBoard();
    void showBoard();
    // Puts the toolbar, or its strip, back above the canvas.
    void raiseOverCanvas();
    // Moves the toolbar back onto its screen; flush lets it touch the edges.
    void keepOnScreen(bool flush);

signals:
    void sg_figure(QString name);
    void sg_width(int width);
    void sg_color(QString name);
    void sg_changeFontSize(int size);
    void sg_pen();
    void sg_undo();
    void sg_redo();
    void sg_clear();
    void sg_choose();
    void sg_test();
    void sg_timer();
    void sg_short();
    void sg_showmin();
    void sg_screenimage(QImage screenimage);

public slots:
    void slot_command(QString cmd);
    void slot_zoom();
    void slot_screen();
    void toolmenuShow();
    void fontSizeMenuShow();
    void penMenuShow();
    void ControlMenuShow();
    void ShowOrHide();
    void CircleEditMode();

private slots:
    void on_toolButton_undo_clicked();
    void on_toolButton_redo_clicked();
    void on_toolButton_clear_clicked();
    void on_toolButton_close_clicked();
    void on_toolButton_zoom_clicked();
    void on_toolButton_size_clicked();
    void on_toolButton_rotate_clicked();
    void on_toolButton_folder_clicked();
    void slot_figure(QAbstractButton* btn);
    void slot_color(QAbstractButton* btn);
    void slot_width(int width);
    void clickTextButton();
    void slot_penchange(QString name);
    void slot_controlchange(QString name);
    void slot_zoomexit();
    void slot_screenexit();
    void slot_screencutfin();
    void changeToolType(int type);
    void changefolderType(int type);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void enterEvent(EnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildGroups();
    void buildMenus();
    void scaleForScreen();
    bool handleButtonPress(QToolButton* button, QMouseEvent* event);
    bool anyMenuVisible() const;
    void placeAtStart();
    // The part of the screen the toolbar lies and docks in (window_layering::canvasArea).
    QRect area(const QScreen* screen) const;
    void watchForDock();
    void stopWatchingForDock();
    void dock();
    void restoreFromStrip();
    void placeMenu(QWidget* menu, QWidget* button, QSize size, bool beside);
    QRect globalFrame() const;
    void moveGlobalFrame(const QPoint& topLeft);
    int scaled(int px) const;

    Ui::CtrlForm* ui;
    QButtonGroup* m_figure_group;
    QButtonGroup* m_color_group;
    // Held as a QWidget: the destructor may meet the view half-destroyed, when it is no
    // longer a GraphicsView.
    QPointer<QWidget> m_view;
    PopupMenuWdiget* m_toolsMenu = nullptr;
    SizeMenu* m_sizeMenu = nullptr;
    FontSizeMenu* m_fontSizeMenu = nullptr;
    PenMenu* m_penMenu = nullptr;
    ControlMenu* m_controlMenu = nullptr;
    QPointer<EdgeHideDialog> m_strip;
    QPointer<ZoomWidget> m_zoom;
    QPointer<screenShotWidget> m_screenShot;
    QAction* m_titleAction;
    QAction* m_aboutAction;
    QAction* m_versionAction;
    QSettings* m_settings;

    double m_scale;
    bool m_chooseMode = false;
    bool m_dragging = false;
    QPoint m_dragOffset;
    int m_dragScreen = 0;
    int m_toolType = 1;
    bool m_horizontal = true;
    bool m_collapsed = false;
    QSize m_savedSize;
    int m_edgeDistance = 10;
    int m_stripThickness = 2;
    int m_hideTimerId = 0;
    bool m_mouseInside = false;
    // The pointer has left the toolbar since it last came in.
    bool m_pointerLeft = false;
    int m_dockSide = 0;
    bool m_hiddenDocked = false;
    // Where the last menu opened, until the pointer has left it and the toolbar.
    QRect m_menuArea;
};
