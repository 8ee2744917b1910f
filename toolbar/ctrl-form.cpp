// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/ctrl-form.h"

#include "canvas/graphics-view.h"
#include "common/board-settings.h"
#include "common/event-position.h"
#include "common/scale-factor.h"
#include "common/window-layering.h"
#include "logging/log-categories.h"
#include "logging/startup-steps.h"
#include "toolbar/control-menu.h"
#include "toolbar/edge-hide-dialog.h"
#include "toolbar/edge-tab.h"
#include "toolbar/font-size-menu.h"
#include "toolbar/layout-rotation.h"
#include "toolbar/pen-menu.h"
#include "toolbar/popup-menu-wdiget.h"
#include "toolbar/size-menu.h"
#include "toolbar/toolbar-geometry.h"
#include "toolbar/toolbar-styles.h"
#include "tools/drop-later.h"
#include "tools/screen-shot-widget.h"
#include "tools/zoom-widget.h"
#include "ui_ctrl-form.h"

#include <QAction>
#include <QButtonGroup>
#include <QCursor>
#include <QDebug>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMouseEvent>
#include <QScreen>
#include <QSettings>
#include <QTimer>

using toolbar_geometry::MenuAnchor;

namespace {
const char* const penColorKey = "pen_color";
constexpr int dockCheckMs = 500;
constexpr int toolStartDelayMs = 200;
// Width of the band along a checked pen or select button's left and top edges where
// a press steps its menu instead of choosing the tool again.
constexpr int stepBand = 18;

QScreen* screenAtOrPrimary(const QPoint& p)
{
    QScreen* s = QGuiApplication::screenAt(p);
    return s ? s : QGuiApplication::primaryScreen();
}
} // namespace

CtrlForm::CtrlForm(QWidget* parent, CanvasShown canvasShown)
    : QWidget(parent), ui(new Ui::CtrlForm), m_figure_group(new QButtonGroup(this)),
      m_color_group(new QButtonGroup(this)), m_settings(openBoardSettings(this)),
      m_scale(screenScaleFactor())
{
    auto* view = new pallo::GraphicsView(true, nullptr);
    m_view = view;
    markStartupStep("canvas view");
    if (canvasShown == CanvasShown::AtOnce) {
        window_layering::showCanvasOverScreen(view);
        markStartupStep("canvas shown");
    }

    ui->setupUi(this);
    markStartupStep("toolbar ui");
    scaleForScreen();
    m_titleAction = new QAction(tr("CtrlForm.Text.Title"));
    m_aboutAction = new QAction(tr("CtrlForm.Btn.AboutUs"));
    m_versionAction = new QAction(tr("CtrlForm.Btn.VersionCheck"));

    view->attachCtrlForm(this);
    installEventFilter(view);
    view->installEventFilter(this);

    ui->toolButton_pen->setText("brush");
    ui->toolButton_drag->setText("drag");
    ui->toolButton_rect->setText("rect");
    ui->toolButton_line->setText("line");
    ui->toolButton_ellipse->setText("ellipse");
    ui->toolButton_text->setText("text");
    ui->toolButton_arrow->setText("arrow");
    ui->toolButton_erase->setText("erase");
    ui->toolButton_choose->setText("choose");
    ui->toolButton_drag->hide();

    setWindowFlags(Qt::FramelessWindowHint);
    setAttribute(Qt::WA_StyledBackground);

    buildGroups();

    const QList<QWidget*> pointing = {
        ui->toolButton_clear,  ui->toolButton_ellipse, ui->toolButton_line,  ui->toolButton_pen,
        ui->toolButton_rect,   ui->checkBox_black,     ui->checkBox_blue,    ui->checkBox_red,
        ui->checkBox_white,    ui->checkBox_green,     ui->checkBox_yellow,  ui->toolButton_redo,
        ui->toolButton_text,   ui->toolButton_undo,    ui->toolButton_arrow, ui->toolButton_erase,
        ui->toolButton_choose, ui->toolButton_zoom,    ui->toolButton_size,  ui->toolButton_rotate,
        ui->toolButton_folder, ui->toolButton_close};
    for (QWidget* w : pointing) {
        w->setFocusPolicy(Qt::NoFocus);
        w->setCursor(Qt::PointingHandCursor);
    }
    for (QToolButton* b : {ui->toolButton_zoom, ui->toolButton_text, ui->toolButton_size,
                           ui->toolButton_pen, ui->toolButton_choose})
        b->installEventFilter(this);

    markStartupStep("buttons");
    buildMenus();
    markStartupStep("menus");
    adjustSize();

    // The canvas starts with the remembered text size.
    QTimer::singleShot(0, this, [this] { emit sg_changeFontSize(m_fontSizeMenu->fontSize()); });
}

CtrlForm::~CtrlForm()
{
    delete m_titleAction;
    delete m_aboutAction;
    delete m_versionAction;
    delete m_toolsMenu;
    delete m_fontSizeMenu;
    delete m_penMenu;
    delete m_controlMenu;
    delete ui;
    // The view hosts this toolbar. A view being destroyed has already taken the toolbar
    // out of its children; otherwise the toolbar goes first and takes the view along.
    if (m_view && (parentWidget() != m_view || m_view->children().contains(this))) {
        setParent(nullptr);
        delete m_view;
    }
}

void CtrlForm::scaleForScreen()
{
    for (QBoxLayout* box : {ui->horizontalLayout_2, ui->horizontalLayout, ui->horizontalLayout_4,
                            ui->horizontalLayout_5})
        box->setSpacing(scaled(box->spacing()));
    ui->horizontalLayout->setContentsMargins(scaled(6), 0, 0, 0);
    ui->gridLayout->setHorizontalSpacing(scaled(ui->gridLayout->horizontalSpacing()));
    for (QWidget* sep :
         {ui->widget_sp1, ui->widget_sp2, ui->widget_sp3, ui->widget_sp4, ui->widget_3}) {
        sep->setMinimumSize(scaled(sep->minimumWidth()), scaled(sep->minimumHeight()));
        sep->setMaximumSize(scaled(sep->maximumWidth()), scaled(sep->maximumHeight()));
    }
}

void CtrlForm::buildGroups()
{
    m_figure_group->setExclusive(true);
    m_figure_group->addButton(ui->toolButton_pen, 1);
    m_figure_group->addButton(ui->toolButton_rect, 2);
    m_figure_group->addButton(ui->toolButton_line, 3);
    m_figure_group->addButton(ui->toolButton_ellipse, 4);
    m_figure_group->addButton(ui->toolButton_text, 5);
    m_figure_group->addButton(ui->toolButton_choose, 6);
    m_figure_group->addButton(ui->toolButton_arrow, 7);
    m_figure_group->addButton(ui->toolButton_erase, 8);
    m_figure_group->addButton(ui->toolButton_drag, 9);
    ui->toolButton_pen->setChecked(true);
    connect(m_figure_group, qOverload<QAbstractButton*>(&QButtonGroup::buttonClicked), this,
            &CtrlForm::slot_figure);

    const QList<QPair<QAbstractButton*, const char*>> colours = {
        {ui->checkBox_black, "#000000"}, {ui->checkBox_blue, "#0000ff"},
        {ui->checkBox_red, "#ff0000"},   {ui->checkBox_white, "#ffffff"},
        {ui->checkBox_green, "#4df013"}, {ui->checkBox_yellow, "#fff11d"}};
    int id = 1;
    for (const auto& c : colours) {
        c.first->setText(c.second);
        m_color_group->addButton(c.first, id++);
    }
    connect(m_color_group, qOverload<QAbstractButton*>(&QButtonGroup::buttonClicked), this,
            &CtrlForm::slot_color);

    QString colour = m_settings->value(penColorKey).toString();
    if (!m_settings->contains(penColorKey)) {
        colour = QStringLiteral("#ff0000");
        m_settings->setValue(penColorKey, colour);
    }
    for (QAbstractButton* box : m_color_group->buttons()) {
        if (box->text() == colour) {
            box->click();
            break;
        }
    }
}

void CtrlForm::buildMenus()
{
    m_toolsMenu = new PopupMenuWdiget;
    ui->toolButton_zoom->setPopupMode(QToolButton::MenuButtonPopup);
    ui->toolButton_zoom->setMenu(m_toolsMenu);
    connect(m_toolsMenu, &QMenu::aboutToShow, this, &CtrlForm::toolmenuShow);
    connect(m_toolsMenu, &PopupMenuWdiget::sg_buttonType, this, &CtrlForm::changeToolType);

    m_sizeMenu = new SizeMenu(this);
    connect(m_sizeMenu, &SizeMenu::sg_sizeChange, this, &CtrlForm::slot_width);

    m_penMenu = new PenMenu;
    connect(m_penMenu, &PenMenu::sg_penchange, this, &CtrlForm::slot_penchange);
    ui->toolButton_pen->setPopupMode(QToolButton::MenuButtonPopup);
    ui->toolButton_pen->setMenu(m_penMenu);
    ui->toolButton_pen->setText("brush");
    connect(m_penMenu, &QMenu::aboutToShow, this, &CtrlForm::penMenuShow);

    m_controlMenu = new ControlMenu;
    connect(m_controlMenu, &ControlMenu::sg_controlchange, this, &CtrlForm::slot_controlchange);
    ui->toolButton_choose->setPopupMode(QToolButton::MenuButtonPopup);
    ui->toolButton_choose->setMenu(m_controlMenu);
    connect(m_controlMenu, &QMenu::aboutToShow, this, &CtrlForm::ControlMenuShow);

    ui->toolButton_text->setPopupMode(QToolButton::MenuButtonPopup);
    m_fontSizeMenu = new FontSizeMenu;
    ui->toolButton_text->setMenu(m_fontSizeMenu);
    connect(m_fontSizeMenu, &QMenu::aboutToShow, this, &CtrlForm::fontSizeMenuShow);
    connect(m_fontSizeMenu, &FontSizeMenu::sg_fontSize, this, &CtrlForm::sg_changeFontSize);
    connect(m_fontSizeMenu, &FontSizeMenu::sg_fontSize, this, &CtrlForm::clickTextButton);

    // A menu popping up moves itself below its button after aboutToShow; the placement
    // is applied again once it is on screen.
    for (QWidget* menu :
         {static_cast<QWidget*>(m_toolsMenu), static_cast<QWidget*>(m_penMenu),
          static_cast<QWidget*>(m_controlMenu), static_cast<QWidget*>(m_fontSizeMenu)})
        menu->installEventFilter(this);
}

pallo::GraphicsView* CtrlForm::canvasView() const
{
    // A view in the middle of its destruction is no longer a GraphicsView.
    return qobject_cast<pallo::GraphicsView*>(m_view.data());
}

EdgeHideDialog* CtrlForm::edgeStrip() const
{
    return m_strip;
}

int CtrlForm::scaled(int px) const
{
    return toolbar_geometry::scaled(px, m_scale);
}

void CtrlForm::enterChooseState()
{
    ui->toolButton_choose->click();
    ui->toolButton_choose->setStyleSheet(toolbar_styles::chooseStyle("choose"));
    ui->toolButton_choose->setChecked(true);
    // Styled already, the toolbar may have its final size now: then it is never seen at
    // that size anywhere but its place.
    placeAtStart();
}

// In select mode the toolbar is a window of its own, out of the view's layout: put it, at
// its natural size, where that layout would.
void CtrlForm::placeAtStart()
{
    QScreen* screen = QGuiApplication::primaryScreen();
    if (!isWindow() || !screen || m_collapsed)
        return;
    // A window's layout also sets its minimum size, from the unstyled buttons until it
    // runs again.
    layout()->activate();
    if (minimumSize() != maximumSize())
        resize(sizeHint());
    move(toolbar_geometry::startPosition(size(), area(screen)));
}

QRect CtrlForm::area(const QScreen* screen) const
{
    return window_layering::canvasArea(m_view, screen->geometry());
}

void CtrlForm::showCanvasFullScreen()
{
    if (!m_view)
        return;
    window_layering::showCanvasOverScreen(m_view);
    // The toolbar's buttons take their final size from the stylesheet only once shown, so
    // it is placed again on the event loop's next turn.
    QTimer::singleShot(0, this, [this] {
        markStartupStep("first turn after the canvas is shown");
        placeAtStart();
    });
    // Nor does anything keep a stay-on-top window above one mapped after it.
    raiseOverCanvas();
}

void CtrlForm::raiseOverCanvas()
{
    if (isVisible())
        raise();
    if (m_strip && m_strip->isVisible()) {
        m_strip->raise();
        m_strip->tab()->raise();
    }
}

bool CtrlForm::isBoardShown() const
{
    return isVisible() || (m_strip && m_strip->isVisible());
}

void CtrlForm::hideBoard()
{
    if (m_view)
        m_view->hide();
    m_hiddenDocked = m_strip && m_strip->isVisible();
    if (m_hiddenDocked)
        m_strip->hide();
    hide();
}

void CtrlForm::showBoard()
{
    // The canvas first, so that the toolbar, or its strip, maps above it.
    if (m_view) {
        m_view->show();
        m_view->activateWindow();
    }
    if (m_hiddenDocked && m_strip)
        m_strip->show();
    else
        show();
    m_hiddenDocked = false;
    raiseOverCanvas();
}

void CtrlForm::on_toolButton_undo_clicked()
{
    emit sg_undo();
}

void CtrlForm::on_toolButton_redo_clicked()
{
    emit sg_redo();
}

void CtrlForm::on_toolButton_clear_clicked()
{
    emit sg_clear();
}

void CtrlForm::on_toolButton_close_clicked()
{
    hideBoard();
}

void CtrlForm::ShowOrHide()
{
    if (isBoardShown())
        hideBoard();
    else
        showBoard();
}

void CtrlForm::slot_command(QString cmd)
{
    const QJsonDocument doc = QJsonDocument::fromJson(cmd.toUtf8());
    if (!doc.isObject() || doc.object().value("cmd").toString() != QLatin1String("show_hide"))
        return;
    ShowOrHide();
}

void CtrlForm::slot_figure(QAbstractButton* btn)
{
    setFocus(Qt::OtherFocusReason);
    const QString name = btn->text();
    if (name == QLatin1String("choose")) {
        emit sg_choose();
        m_chooseMode = true;
        return;
    }
    if (m_chooseMode) {
        emit sg_test();
        m_chooseMode = false;
    }
    emit sg_figure(name);
}

void CtrlForm::slot_color(QAbstractButton* btn)
{
    const QString colour = btn->text();
    m_settings->setValue(penColorKey, colour);
    emit sg_color(colour);
}

void CtrlForm::slot_width(int width)
{
    const QString css = toolbar_styles::sizeStyle(width);
    if (!css.isNull())
        ui->toolButton_size->setStyleSheet(css);
    emit sg_width(width);
}

void CtrlForm::clickTextButton()
{
    ui->toolButton_text->click();
}

void CtrlForm::slot_penchange(QString name)
{
    const QString css = toolbar_styles::penStyle(name);
    if (!css.isNull()) {
        ui->toolButton_pen->setStyleSheet(css);
        ui->toolButton_pen->setToolTip(tr(toolbar_styles::penTooltipKey(name)));
    }
    qCDebug(lcToolbar) << name;
    ui->toolButton_pen->setChecked(true);
    ui->toolButton_pen->setText(name);
    slot_figure(ui->toolButton_pen);
}

void CtrlForm::slot_controlchange(QString name)
{
    const bool choose = name == QLatin1String("choose");
    ui->toolButton_choose->setStyleSheet(toolbar_styles::chooseStyle(name));
    ui->toolButton_choose->setToolTip(choose ? tr("CtrlForm.Btn.Select") : tr("CtrlForm.Btn.Drag"));
    ui->toolButton_choose->setChecked(true);
    ui->toolButton_choose->setText(name);
    slot_figure(ui->toolButton_choose);
}

void CtrlForm::slot_screencutfin()
{
    qCDebug(lcToolbar) << " m_figure_group->button(6)->click();";
    m_figure_group->button(6)->click();
}

void CtrlForm::changeToolType(int type)
{
    const QString css = toolbar_styles::zoomStyle(type);
    if (!css.isNull()) {
        ui->toolButton_zoom->setStyleSheet(css);
        m_toolType = type;
    }
    QTimer::singleShot(toolStartDelayMs, this, &CtrlForm::on_toolButton_zoom_clicked);
}

void CtrlForm::on_toolButton_zoom_clicked()
{
    switch (m_toolType) {
    case 1:
        slot_zoom();
        break;
    case 2:
        emit sg_timer();
        break;
    case 3:
        slot_screen();
        break;
    default:
        break;
    }
}

ZoomWidget* CtrlForm::magnifier() const
{
    return m_zoom;
}

screenShotWidget* CtrlForm::screenShot() const
{
    return m_screenShot;
}

void CtrlForm::slot_zoom()
{
    if (m_zoom)
        return;
    m_zoom = new ZoomWidget(this);
    window_layering::showToolOverScreen(m_zoom);
    connect(m_zoom, &ZoomWidget::sg_exit, this, &CtrlForm::slot_zoomexit);
}

void CtrlForm::slot_screen()
{
    if (m_screenShot)
        return;
    m_screenShot = new screenShotWidget(this);
    window_layering::showToolOverScreen(m_screenShot);
    connect(m_screenShot, &screenShotWidget::sg_screenexit, this, &CtrlForm::slot_screenexit);
    connect(m_screenShot, &screenShotWidget::sg_screenimage, this, &CtrlForm::sg_screenimage);
    connect(m_screenShot, &screenShotWidget::sg_transtochoose, this, &CtrlForm::slot_screencutfin);
}

void CtrlForm::slot_zoomexit()
{
    dropLater(m_zoom);
}

void CtrlForm::slot_screenexit()
{
    dropLater(m_screenShot);
}

void CtrlForm::on_toolButton_size_clicked()
{
    placeMenu(m_sizeMenu, ui->toolButton_size, QSize(90, 120), false);
    m_sizeMenu->show();
}

void CtrlForm::placeMenu(QWidget* menu, QWidget* button, QSize size, bool beside)
{
    const QSize fixed(scaled(size.width()), scaled(size.height()));
    menu->setFixedSize(fixed);
    const QRect b(button->mapToGlobal(QPoint(0, 0)), button->size());
    const MenuAnchor anchor = beside ? MenuAnchor::Beside : MenuAnchor::Centre;
    const QPoint normal = toolbar_geometry::normalMenuPosition(anchor, b, fixed);
    const int bottom = screenAtOrPrimary(normal)->geometry().bottom();
    menu->move(toolbar_geometry::menuPosition(anchor, b, fixed, bottom));
    m_menuArea = QRect(menu->pos(), fixed);
}

void CtrlForm::toolmenuShow()
{
    placeMenu(m_toolsMenu, ui->toolButton_zoom, QSize(120, 140), false);
}

void CtrlForm::fontSizeMenuShow()
{
    placeMenu(m_fontSizeMenu, ui->toolButton_text, QSize(90, 120), false);
}

void CtrlForm::penMenuShow()
{
    placeMenu(m_penMenu, ui->toolButton_pen, QSize(48, 100), true);
}

void CtrlForm::ControlMenuShow()
{
    // Anchored on the pen button, like the pen menu, so both open at the same place.
    placeMenu(m_controlMenu, ui->toolButton_pen, QSize(48, 100), true);
}

void CtrlForm::CircleEditMode()
{
    if (m_controlMenu)
        m_controlMenu->slot_buttonClicked();
}

void CtrlForm::changefolderType(int type)
{
    const QString css = toolbar_styles::folderStyle(type, m_horizontal, ui->toolButton_pen->text(),
                                                    ui->toolButton_choose->text());
    if (!css.isNull())
        ui->toolButton_folder->setStyleSheet(css);
}

void CtrlForm::on_toolButton_folder_clicked()
{
    if (!m_collapsed) {
        m_savedSize = size();
        ui->frame_iback->hide();
        setFixedSize(ui->frame_folder->size());
        m_collapsed = true;
        changefolderType(m_figure_group->checkedId());
    } else {
        ui->frame_iback->show();
        setFixedSize(m_savedSize);
        m_collapsed = false;
        changefolderType(0);
    }
    keepOnScreen(false);
}

void CtrlForm::on_toolButton_rotate_clicked()
{
    rotateWidgetLayout(this);
    m_horizontal = !m_horizontal;
    changefolderType(0);
    // The turned layout wants the turned size.
    layout()->activate();
    const QSize wanted = sizeHint();
    if (minimumSize() == maximumSize())
        setFixedSize(wanted);
    else
        resize(wanted);
    keepOnScreen(false);
}

QRect CtrlForm::globalFrame() const
{
    if (isWindow())
        return frameGeometry();
    return QRect(mapToGlobal(QPoint(0, 0)), size());
}

void CtrlForm::moveGlobalFrame(const QPoint& topLeft)
{
    if (isWindow())
        move(topLeft);
    else
        move(parentWidget()->mapFromGlobal(topLeft));
}

void CtrlForm::keepOnScreen(bool flush)
{
    const QRect g = globalFrame();
    QScreen* screen = QGuiApplication::primaryScreen();
    if (QGuiApplication::screens().size() > 1)
        screen = screenAtOrPrimary(flush ? g.center() : g.topLeft());
    const QRect r = toolbar_geometry::keepOnScreen(g, area(screen), flush, m_scale, m_edgeDistance);
    moveGlobalFrame(r.topLeft());
}

void CtrlForm::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        const QRect g = globalFrame();
        m_dragOffset = event_position::global(event) - g.center();
        m_dragging = true;
        m_dragScreen = QGuiApplication::screens().indexOf(screenAtOrPrimary(g.center()));
    }
    QWidget::mousePressEvent(event);
}

void CtrlForm::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragging) {
        QRect g = globalFrame();
        g.moveCenter(event_position::global(event) - m_dragOffset);
        moveGlobalFrame(g.topLeft());
    }
    QWidget::mouseMoveEvent(event);
}

void CtrlForm::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_dragging && event->button() == Qt::LeftButton) {
        m_dragging = false;
        const QList<QScreen*> screens = QGuiApplication::screens();
        QScreen* now = screenAtOrPrimary(globalFrame().center());
        if (screens.size() > 1 && screens.indexOf(now) != m_dragScreen && m_view)
            m_view->setGeometry(now->geometry());
        keepOnScreen(true);
    }
    QWidget::mouseReleaseEvent(event);
}

bool CtrlForm::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_view) {
        // A compositor that keeps the canvas out of its panel sizes it only once shown;
        // the toolbar then takes its start place within what the canvas covers.
        QScreen* screen = QGuiApplication::primaryScreen();
        if (event->type() == QEvent::Resize && screen && area(screen) != screen->geometry())
            placeAtStart();
        return false;
    }
    if (event->type() == QEvent::Show) {
        if (watched == m_toolsMenu)
            toolmenuShow();
        else if (watched == m_penMenu)
            penMenuShow();
        else if (watched == m_controlMenu)
            ControlMenuShow();
        else if (watched == m_fontSizeMenu)
            fontSizeMenuShow();
        return false;
    }
    if (event->type() != QEvent::MouseButtonPress)
        return QWidget::eventFilter(watched, event);
    auto* button = qobject_cast<QToolButton*>(watched);
    const bool watchedButton =
        button && (button == ui->toolButton_zoom || button == ui->toolButton_text ||
                   button == ui->toolButton_size || button == ui->toolButton_pen ||
                   button == ui->toolButton_choose);
    if (!watchedButton)
        return QWidget::eventFilter(watched, event);
    return handleButtonPress(button, static_cast<QMouseEvent*>(event));
}

bool CtrlForm::handleButtonPress(QToolButton* button, QMouseEvent* event)
{
    if (event->button() == Qt::RightButton) {
        if (button == ui->toolButton_size)
            on_toolButton_size_clicked();
        else
            button->showMenu();
        return true;
    }
    if (event->button() != Qt::LeftButton)
        return false;
    const bool pen = button == ui->toolButton_pen && m_penMenu;
    const bool choose = button == ui->toolButton_choose && m_controlMenu;
    if (!(pen || choose) || !button->isChecked())
        return false;
    const QRect inner = button->rect().adjusted(scaled(stepBand), scaled(stepBand), 0, 0);
    if (inner.contains(event->pos()))
        return false;
    if (pen)
        m_penMenu->slot_buttonClicked();
    else
        m_controlMenu->slot_buttonClicked();
    return true;
}

void CtrlForm::enterEvent(EnterEvent* event)
{
    m_mouseInside = true;
    m_pointerLeft = false;
    stopWatchingForDock();
    QWidget::enterEvent(event);
}

void CtrlForm::leaveEvent(QEvent* event)
{
    m_mouseInside = false;
    m_pointerLeft = true;
    watchForDock();
    QWidget::leaveEvent(event);
}

// The dock check rests once it has found the toolbar hidden, folded, docked or away from
// the edges, and wakes again when the toolbar is shown, moved or resized, the only ways
// out of those; an idle toolbar then costs no wake-ups.
void CtrlForm::showEvent(QShowEvent* event)
{
    watchForDock();
    QWidget::showEvent(event);
}

void CtrlForm::moveEvent(QMoveEvent* event)
{
    watchForDock();
    QWidget::moveEvent(event);
}

void CtrlForm::resizeEvent(QResizeEvent* event)
{
    watchForDock();
    QWidget::resizeEvent(event);
}

void CtrlForm::watchForDock()
{
    if (m_pointerLeft && m_hideTimerId == 0)
        m_hideTimerId = startTimer(dockCheckMs, Qt::CoarseTimer);
}

void CtrlForm::stopWatchingForDock()
{
    if (m_hideTimerId != 0) {
        killTimer(m_hideTimerId);
        m_hideTimerId = 0;
    }
}

bool CtrlForm::anyMenuVisible() const
{
    return m_toolsMenu->isVisible() || m_penMenu->isVisible() || m_controlMenu->isVisible() ||
           m_fontSizeMenu->isVisible() || m_sizeMenu->isVisible();
}

void CtrlForm::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_hideTimerId) {
        QWidget::timerEvent(event);
        return;
    }
    if (m_mouseInside || anyMenuVisible())
        return;
    if (m_collapsed || !isVisible()) {
        stopWatchingForDock();
        return;
    }
    // The pointer on its way to or back from a menu, or resting where a menu just closed,
    // is still using the toolbar.
    if (m_menuArea.isValid() && m_menuArea.united(globalFrame()).contains(QCursor::pos()))
        return;
    m_menuArea = QRect();
    stopWatchingForDock();
    dock();
}

void CtrlForm::dock()
{
    const QRect g = globalFrame();
    const QRect s = area(screenAtOrPrimary(g.center()));
    m_dockSide = toolbar_geometry::dockSide(g, s, m_horizontal, m_edgeDistance);
    if (m_dockSide == toolbar_geometry::DockNone)
        return;
    const QRect strip = toolbar_geometry::stripRect(g, m_dockSide, m_scale, m_stripThickness);
    if (!m_strip) {
        m_strip = new EdgeHideDialog(this);
        connect(m_strip, &EdgeHideDialog::sig_showCtrlBar, this, &CtrlForm::restoreFromStrip);
    }
    m_strip->setSide(m_dockSide);
    m_strip->setGeometry(strip);
    m_strip->show();
    hide();
}

void CtrlForm::restoreFromStrip()
{
    m_strip->hide();
    show();
}
