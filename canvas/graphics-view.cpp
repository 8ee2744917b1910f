// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/graphics-view.h"

#include "canvas/common-item.h"
#include "canvas/cursor-image.h"
#include "canvas/d-data.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/erase-item.h"
#include "canvas/graphics-scene.h"
#include "canvas/ink-layer.h"
#include "canvas/operate-item.h"
#include "canvas/pass-through.h"
#include "common/board-settings.h"
#include "common/event-position.h"
#include "common/window-layering.h"
#include "toolbar/ctrl-form.h"
#include "toolbar/toolbar-geometry.h"

#include <QButtonGroup>
#include <QGraphicsScene>
#include <QGraphicsTextItem>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineF>
#include <QPointer>
#include <QSettings>
#include <QStyleOptionGraphicsItem>
#include <QTabletEvent>
#include <QVBoxLayout>
#include <QWindow>

namespace pallo {

namespace {

QPointer<GraphicsView> s_view;

constexpr int kTextToolId = 5;

} // namespace

GraphicsView* GraphicsView::instance()
{
    return s_view;
}

QString GraphicsView::currentFigure()
{
    if (!s_view || !s_view->m_manager)
        return QString();
    return s_view->m_manager->data()->figure;
}

GraphicsView::GraphicsView(bool enable, QWidget* parent) : QGraphicsView(parent)
{
    s_view = this;

    setAttribute(Qt::WA_TranslucentBackground, true);
    setWindowFlags(window_layering::canvasFlags());
    setRenderHint(QPainter::Antialiasing, true);
    setAttribute(Qt::WA_MouseTracking, false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // Scene coordinates are the window's own: no frame, no centring, no scrolling.
    setFrameShape(QFrame::NoFrame);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);

    slot_enable(enable);
    m_chooseMode = false;

    m_settings = openBoardSettings(nullptr);

    setScene(new GraphicsScene(this));
    m_manager = new DrawManagerEx(this);
    connect(m_manager, &DrawManagerEx::sg_cursor, this, &GraphicsView::slot_cursor);
    connect(m_manager, &DrawManagerEx::sg_widstayontop, this, &GraphicsView::slot_widstayontop);
    m_inkLayer = std::make_unique<InkLayer>(
        this, [this](const QGraphicsItem* item) { return item != m_manager->strokeItem(); });

    setOptimizationFlag(QGraphicsView::IndirectPainting, true);
    installEventFilter(this);

    // The pencil is the first cursor. Its image, the first the process loads, is loaded
    // once the event loop runs, so that it does not hold up the canvas's first showing: the
    // board starts in desktop operation, where the canvas's cursor is not seen.
    m_cursorName = QStringLiteral("curve");
    QMetaObject::invokeMethod(this, &GraphicsView::setInitialCursor, Qt::QueuedConnection);

#ifdef Q_OS_WIN
    installPenHook();
#endif
}

GraphicsView::~GraphicsView()
{
#ifdef Q_OS_WIN
    if (m_nativeCursor)
        DestroyCursor(m_nativeCursor);
#endif
    delete m_settings;
    // A text being edited is finished while the drawing data still exists; then the history,
    // which refers to the items, goes before the scene that owns them.
    scene()->setFocusItem(nullptr, Qt::OtherFocusReason);
    m_inkLayer.reset();
    delete m_manager;
    m_manager = nullptr;
}

void GraphicsView::attachCtrlForm(CtrlForm* form)
{
    if (m_ctrlForm || !form)
        return;
    m_ctrlForm = form;

    connect(form, &CtrlForm::sg_figure, m_manager, &DrawManagerEx::slot_figure);
    connect(form, &CtrlForm::sg_width, m_manager, &DrawManagerEx::slot_width);
    connect(form, &CtrlForm::sg_undo, m_manager, &DrawManagerEx::slot_undo);
    connect(form, &CtrlForm::sg_redo, m_manager, &DrawManagerEx::slot_redo);
    connect(form, &CtrlForm::sg_clear, m_manager, &DrawManagerEx::slot_clear);
    connect(form, &CtrlForm::sg_color, m_manager, &DrawManagerEx::slot_color);
    connect(form, &CtrlForm::sg_choose, this, &GraphicsView::slot_choose);
    connect(form, &CtrlForm::sg_test, this, &GraphicsView::slot_test);
    connect(form, &CtrlForm::sg_timer, this, &GraphicsView::slot_timer);
    connect(form, &CtrlForm::sg_short, this, &GraphicsView::slot_shortcut);
    connect(form, &CtrlForm::sg_showmin, this, &GraphicsView::slot_showmin);
    connect(form, &CtrlForm::sg_screenimage, m_manager, &DrawManagerEx::slot_screenimage);
    connect(form, &CtrlForm::sg_changeFontSize, m_manager, &DrawManagerEx::slot_changeFontSize);
    connectHotkeys();

    delete layout();
    form->setParent(this);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(form);
    row->addSpacing(toolbar_geometry::rightGap);
    auto* column = new QVBoxLayout;
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(row);
    column->addStretch();
    setLayout(column);
}

void GraphicsView::slot_enable(bool enable)
{
    // An alpha of 0.005 cannot be seen, but it makes the window take the mouse. It is the
    // background of the scene's area, which covers the whole viewport: painted beneath the
    // items, it is part of the ink layer's picture, which a repaint copies over what lies
    // beneath, so a fill of the viewport before it would be painted over at once. The view
    // and its viewport paint nothing else, so the desktop shows through everywhere else.
    QColor background(Qt::black);
    background.setAlphaF(enable ? 0.005 : 0.0);
    QPalette pal = palette();
    pal.setColor(QPalette::All, QPalette::Window, background);
    pal.setColor(QPalette::All, QPalette::Base, background);
    setPalette(pal);
    setBackgroundBrush(background);
    setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    repaint();
}

void GraphicsView::slot_choose()
{
    if (m_manager)
        m_manager->data()->deselectAll();
    setAttribute(Qt::WA_AlwaysStackOnTop, true);
    setMousePassThrough(this, true);
    if (m_ctrlForm) {
        m_ctrlForm->setWindowFlags(window_layering::overCanvasFlags());
        m_ctrlForm->show();
    }
    m_chooseMode = true;
}

void GraphicsView::slot_test()
{
    setMousePassThrough(this, false);
    m_chooseMode = false;
    update();
}

void GraphicsView::slot_dirchanged(QString str)
{
    m_settings->setValue("cutdirectory", str);
}

void GraphicsView::setInitialCursor()
{
    if (!m_initialCursorPending)
        return;
    m_initialCursorPending = false;
    setCursor(cursorFromImage(":/images/pencil.png", 64));
#ifdef Q_OS_WIN
    updateNativeCursor();
#endif
}

void GraphicsView::slot_cursor(QString cursor)
{
    // A name outside the table keeps the cursor there was, the pencil at first.
    setInitialCursor();
    m_cursorName = cursor;
    bool changed = true;
    if (cursor == "normal")
        setCursor(Qt::ArrowCursor);
    else if (cursor == "erase")
        setCursor(cursorFromImage(":/images/erase.png", 40));
    else if (cursor == "brush" || cursor == "curve")
        setCursor(cursorFromImage(":/images/pencil.png", 64));
    else if (cursor == "highlighter")
        setCursor(cursorFromImage(":/images/highlight.png", 64));
    else if (cursor == "delayerase")
        setCursor(cursorFromImage(":/images/delay_erase.png", 64));
    else
        changed = false;
#ifdef Q_OS_WIN
    if (changed)
        updateNativeCursor();
#else
    Q_UNUSED(changed)
#endif

    if (cursor == "drag") {
        setCursor(Qt::ArrowCursor);
#ifdef Q_OS_WIN
        updateNativeCursor();
#endif
        m_dragMode = true;
        setItemsMovable(true);
        return;
    }
    if (m_dragMode) {
        if (OperateItem* handles = OperateItem::existing())
            handles->detach();
        setItemsMovable(false);
    }
    m_dragMode = false;
}

void GraphicsView::slot_showmin()
{
    showMinimized();
}

void GraphicsView::slot_widstayontop()
{
    setAttribute(Qt::WA_AlwaysStackOnTop, true);
}

void GraphicsView::setItemsMovable(bool on)
{
    if (!scene())
        return;
    const QList<QGraphicsItem*> items = scene()->items();
    for (QGraphicsItem* item : items) {
        if (qgraphicsitem_cast<EraseItem*>(item))
            continue;
        item->setFlag(QGraphicsItem::ItemIsMovable, on);
        item->setFlag(QGraphicsItem::ItemIsSelectable, on);
        item->setAcceptHoverEvents(on);
    }
}

void GraphicsView::showEvent(QShowEvent* event)
{
    QGraphicsView::showEvent(event);
    QWindow* window = windowHandle();
    if (window && window != m_watchedWindow) {
        window->installEventFilter(this);
        m_watchedWindow = window;
    }
}

bool GraphicsView::eventFilter(QObject* object, QEvent* event)
{
    // A window manager that frames the canvas copies the canvas's input shape to its frame
    // only when told the shape changed while it manages the window; a shape set before the
    // window was mapped stays unseen and the frame would take every click. The first
    // picture comes after the manager has mapped the window, so the shape is set again.
    if (object == m_watchedWindow && event->type() == QEvent::Expose && m_chooseMode &&
        m_watchedWindow->isExposed())
        setMousePassThrough(this, true);
    if (object == this && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape) {
            if (m_ctrlForm)
                m_ctrlForm->hideBoard();
            else
                hide();
            return true;
        }
        if (key == Qt::Key_Delete) {
            if (m_manager)
                m_manager->slot_clear();
            return true;
        }
    }
    return QGraphicsView::eventFilter(object, event);
}

QPointF GraphicsView::toScene(const QPointF& viewportPos) const
{
    return viewportTransform().inverted().map(viewportPos);
}

void GraphicsView::passState(const char* state, const QPointF& scenePos)
{
    // Coordinates are truncated toward zero.
    m_manager->slot_mousestate(QString::fromLatin1(state), static_cast<int>(scenePos.x()),
                               static_cast<int>(scenePos.y()));
}

void GraphicsView::tabletEvent(QTabletEvent* event)
{
    const QPointF viewportPos = event_position::local(event) - QPointF(viewport()->pos());
    const QPointF scenePos = toScene(viewportPos);
    const bool routed = m_manager && event->button() == Qt::LeftButton && !m_chooseMode;

    switch (event->type()) {
    case QEvent::TabletPress:
        window_layering::followCanvasFrame(this);
        m_penDown = true;
        m_lastPenPoint = scenePos;
        if (!m_dragMode) {
            if (routed) {
                if (textItemUnderCursor(viewportPos.toPoint())) {
                    event->accept();
                    return;
                }
                passState("press", scenePos);
            }
        } else {
            attachHandlesAt(viewportPos.toPoint());
            forwardAsMouse(event, viewportPos);
        }
        break;
    case QEvent::TabletRelease:
        m_penDown = false;
        if (!m_dragMode) {
            if (routed) {
                if (textItemUnderCursor(viewportPos.toPoint())) {
                    event->accept();
                    return;
                }
                passState("release", scenePos);
                m_mouseDrawing = false;
            }
        } else {
            forwardAsMouse(event, viewportPos);
        }
        break;
    case QEvent::TabletMove:
        if (m_penDown) {
            if (QLineF(m_lastPenPoint, scenePos).length() < 1.0) {
                event->accept();
                return;
            }
            if (!m_dragMode) {
                if (m_manager)
                    passState("move", scenePos);
            } else {
                forwardAsMouse(event, viewportPos);
            }
            m_lastPenPoint = scenePos;
        } else if (m_dragMode) {
            forwardAsMouse(event, viewportPos);
        }
        break;
    default:
        QGraphicsView::tabletEvent(event);
        return;
    }
    event->accept();
}

void GraphicsView::forwardAsMouse(QTabletEvent* event, const QPointF& viewportPos)
{
    Qt::MouseButtons buttons = event->buttons();
    QMouseEvent::Type type = QEvent::MouseMove;
    Qt::MouseButton button = Qt::NoButton;
    if (event->type() == QEvent::TabletPress) {
        type = QEvent::MouseButtonPress;
        button = Qt::LeftButton;
        buttons |= Qt::LeftButton;
    } else if (event->type() == QEvent::TabletRelease) {
        type = QEvent::MouseButtonRelease;
        button = Qt::LeftButton;
        buttons &= ~Qt::MouseButtons(Qt::LeftButton);
    } else if (m_penDown) {
        buttons |= Qt::LeftButton;
    }
    QMouseEvent mouse(type, viewportPos, viewportPos, event_position::global(event), button,
                      buttons, event->modifiers(), Qt::MouseEventSynthesizedByApplication);
    if (type == QEvent::MouseButtonPress)
        QGraphicsView::mousePressEvent(&mouse);
    else if (type == QEvent::MouseButtonRelease)
        QGraphicsView::mouseReleaseEvent(&mouse);
    else
        QGraphicsView::mouseMoveEvent(&mouse);
    if (mouse.isAccepted())
        event->accept();
}

void GraphicsView::mousePressEvent(QMouseEvent* event)
{
    window_layering::followCanvasFrame(this);
    if (m_penDown) {
        event->ignore();
        return;
    }
    if (m_dragMode) {
        attachHandlesAt(event->pos());
    } else if (m_manager && event->button() == Qt::LeftButton && !m_chooseMode &&
               !textItemUnderCursor(event->pos())) {
        passState("press", toScene(event_position::local(event)));
        m_mouseDrawing = true;
    }
    QGraphicsView::mousePressEvent(event);
}

void GraphicsView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_penDown) {
        event->ignore();
        return;
    }
    if (!m_dragMode && m_manager && m_mouseDrawing)
        passState("move", toScene(event_position::local(event)));
    QGraphicsView::mouseMoveEvent(event);
}

void GraphicsView::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_penDown) {
        event->ignore();
        return;
    }
    if (!m_dragMode && m_manager && event->button() == Qt::LeftButton && !m_chooseMode &&
        !textItemUnderCursor(event->pos())) {
        passState("release", toScene(event_position::local(event)));
        m_mouseDrawing = false;
    }
    QGraphicsView::mouseReleaseEvent(event);
}

void GraphicsView::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
}

void GraphicsView::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
}

void GraphicsView::paintEvent(QPaintEvent* event)
{
    m_inkLayer->beginPaint();
    QGraphicsView::paintEvent(event);
    m_inkLayer->endPaint();
}

void GraphicsView::drawBackground(QPainter* painter, const QRectF& rect)
{
    if (!m_inkLayer->paintBackground(painter, rect))
        QGraphicsView::drawBackground(painter, rect);
}

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
void GraphicsView::drawItems(QPainter* painter, int numItems, QGraphicsItem* items[],
                             const QStyleOptionGraphicsItem options[])
{
    // The items in the ink layer's picture, and the hidden ones a repaint of the whole window
    // lists too, are left out before the scene sets up the painter for each of them.
    QVector<QGraphicsItem*> painted;
    QVector<QStyleOptionGraphicsItem> paintedOptions;
    for (int i = 0; i < numItems; ++i) {
        if (!items[i]->isVisible() || InkLayer::holds(items[i]))
            continue;
        painted.append(items[i]);
        paintedOptions.append(options[i]);
    }
    QGraphicsView::drawItems(painter, painted.size(), painted.data(), paintedOptions.data());
}
#endif

void GraphicsView::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    const QRectF screen(QPointF(0, 0), QSizeF(viewport()->size()));
    setSceneRect(screen);
    // A scene without a rectangle of its own measures every item again after any item's
    // bounds change, so that drawing would slow down as the drawing grows.
    if (scene())
        scene()->setSceneRect(screen);
}

bool GraphicsView::textItemUnderCursor(const QPoint& point)
{
    auto* text = dynamic_cast<QGraphicsTextItem*>(itemAt(point));
    if (!text)
        return false;
    const bool textTool = m_ctrlForm && m_ctrlForm->figureGroup()->checkedId() == kTextToolId;
    text->setFlag(QGraphicsItem::ItemIsSelectable, textTool);
    text->setFlag(QGraphicsItem::ItemIsMovable, textTool);
    return textTool;
}

void GraphicsView::attachHandlesAt(const QPoint& point)
{
    QGraphicsItem* item = itemAt(point);
    if (auto* shape = qgraphicsitem_cast<CommonItem*>(item)) {
        OperateItem* handles = OperateItem::instance();
        if (!handles->isAttachedTo(shape))
            handles->attachTo(shape);
    } else if (!qgraphicsitem_cast<OperateItem*>(item)) {
        if (OperateItem* handles = OperateItem::existing())
            handles->detach();
    }
    viewport()->update();
}

} // namespace pallo
