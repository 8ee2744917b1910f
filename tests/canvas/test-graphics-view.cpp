// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas-test-support.h"
#include "canvas/common-item.h"
#include "canvas/cursor-image.h"
#include "canvas/curve-item.h"
#include "canvas/d-data.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/erase-item.h"
#include "canvas/graphics-view.h"
#include "canvas/operate-item.h"
#include "canvas/text-itemchange.h"
#include "toolbar/ctrl-form.h"

#include <QButtonGroup>
#include <QCoreApplication>
#include <QDir>
#include <QSettings>
#include <QTabletEvent>
#include <QToolButton>
#include <QUndoStack>
#include <QtTest>
#include <memory>

namespace {

QPainterPath onlyCurvePath(QGraphicsScene* scene)
{
    const QList<QGraphicsItem*> items = scene->items();
    if (items.size() != 1 || !qgraphicsitem_cast<CurveItem*>(items.first()))
        return QPainterPath();
    return qgraphicsitem_cast<CurveItem*>(items.first())->path();
}

QVector<QPointF> pointsOf(const QPainterPath& path)
{
    QVector<QPointF> points;
    for (int i = 0; i < path.elementCount(); ++i)
        points << QPointF(path.elementAt(i));
    return points;
}

} // namespace

class TestGraphicsView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void firstRunWritesSettingDefaults();
    void emptySettingValueIsKept();
    void dirChangedIsStored();
    void constructionState();
    void firstCursorIsThePencil();
    void cursorChosenBeforeTheLoopRuns_data();
    void cursorChosenBeforeTheLoopRuns();
    void enableSetsInvisibleBackground();
    void paintsOnlyTheInvisibleFill();
    void toolbarSignalsReachManagerAndView();
    void toolbarSitsTopRight();
    void attachingSecondToolbarChangesNothing();
    void mouseStrokeDrawsWhereTheMouseWent();
    void penStrokeMatchesMouseStroke();
    void mouseEventsDuringPenStrokeDrawNothing();
    void closePenSamplesAreDropped();
    void coordinatesTruncateTowardZero();
    void desktopOperationPassesNothing();
    void cursorForEachTool_data();
    void cursorForEachTool();
    void unknownCursorKeepsPrevious();
    void leavingDragHidesHandlesAndFreezesItems();
    void switchingBetweenOtherToolsKeepsFlags();
    void dragPressAttachesHandlesToShape();
    void textToolPressOnTextEditsIt();
    void otherToolPressOnTextDrawsOverIt();
    void escapeHidesCanvasAndToolbar();
    void deleteKeyClearsCanvas();

private:
    void mouseStroke(const QVector<QPoint>& points);
    void mouseMove(const QPoint& pos, Qt::MouseButtons buttons);
    void penEvent(QEvent::Type type, const QPointF& pos, Qt::MouseButton button);
    QToolButton* toolButton(int id);

    CtrlForm* m_form = nullptr;
    std::unique_ptr<pallo::GraphicsView> m_view;
};

void TestGraphicsView::init()
{
    m_form = new CtrlForm;
    m_view.reset(m_form->canvasView());
    m_view->setWindowState(Qt::WindowNoState);
    m_view->resize(400, 300);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
    m_view->drawManager()->slot_color("#ff0000");
    m_view->drawManager()->slot_width(3);
}

void TestGraphicsView::cleanup()
{
    m_view.reset();
    m_form = nullptr;
}

QToolButton* TestGraphicsView::toolButton(int id)
{
    if (QAbstractButton* existing = m_form->figureGroup()->button(id))
        return static_cast<QToolButton*>(existing);
    auto* button = new QToolButton(m_form);
    button->setCheckable(true);
    m_form->figureGroup()->addButton(button, id);
    return button;
}

void TestGraphicsView::mouseStroke(const QVector<QPoint>& points)
{
    QWidget* viewport = m_view->viewport();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, points.first());
    for (int i = 1; i < points.size(); ++i)
        mouseMove(points.at(i), Qt::LeftButton);
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, points.last());
}

void TestGraphicsView::mouseMove(const QPoint& pos, Qt::MouseButtons buttons)
{
    sendMouseMove(m_view->viewport(), pos, buttons);
}

void TestGraphicsView::penEvent(QEvent::Type type, const QPointF& pos, Qt::MouseButton button)
{
    const Qt::MouseButtons buttons = type == QEvent::TabletRelease ? Qt::NoButton : button;
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    static const QPointingDevice stylus(
        QStringLiteral("stylus"), 1, QInputDevice::DeviceType::Stylus,
        QPointingDevice::PointerType::Pen,
        QInputDevice::Capability::Position | QInputDevice::Capability::Pressure, 1, 3);
    QTabletEvent event(type, &stylus, pos, m_view->mapToGlobal(pos), 0.5, 0, 0, 0, 0, 0,
                       Qt::NoModifier, button, buttons);
#else
    QTabletEvent event(type, pos, m_view->mapToGlobal(pos.toPoint()), QTabletEvent::Stylus,
                       QTabletEvent::Pen, 0.5, 0, 0, 0.0, 0.0, 0, Qt::NoModifier, 1, button,
                       buttons);
#endif
    QCoreApplication::sendEvent(m_view.get(), &event);
    QVERIFY(event.isAccepted());
}

void TestGraphicsView::firstRunWritesSettingDefaults()
{
    // A first run is one without a settings file, whatever ran before in this folder.
    const QString file = m_view->settings()->fileName();
    m_view.reset();
    QVERIFY(!QFile::exists(file) || QFile::remove(file));
    init();
    const QString name = QCoreApplication::applicationName();
    QSettings store(QSettings::IniFormat, QSettings::UserScope, name, name + "New");
    QCOMPARE(store.value("timer").toString(), QString("Ctrl+M"));
    QCOMPARE(store.value("zoom").toString(), QString("Ctrl+B"));
    QCOMPARE(store.value("screen").toString(), QString("Alt+S"));
    QCOMPARE(store.value("cutdirectory").toString(), QDir::homePath() + "/Desktop");
    QCOMPARE(store.value("picformat").toString(), QString("PNG"));
    QVERIFY(QFile::exists(store.fileName()));
    QVERIFY(store.fileName().startsWith(qEnvironmentVariable("XDG_CONFIG_HOME")));
}

void TestGraphicsView::emptySettingValueIsKept()
{
    const QString file = m_view->settings()->fileName();
    m_view.reset();
    {
        QSettings store(file, QSettings::IniFormat);
        store.setValue("zoom", "");
        store.remove("picformat");
    }
    m_form = new CtrlForm;
    m_view.reset(m_form->canvasView());
    QCOMPARE(m_view->settings()->value("zoom").toString(), QString(""));
    QCOMPARE(m_view->settings()->value("picformat").toString(), QString("PNG"));
}

void TestGraphicsView::dirChangedIsStored()
{
    m_view->slot_dirchanged("/tmp/shots");
    QSettings store(m_view->settings()->fileName(), QSettings::IniFormat);
    QCOMPARE(store.value("cutdirectory").toString(), QString("/tmp/shots"));
}

void TestGraphicsView::constructionState()
{
    QCOMPARE(pallo::GraphicsView::instance(), m_view.get());
    QVERIFY(m_view->testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(m_view->windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(m_view->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QCOMPARE(m_view->cursorName(), QString("curve"));
    QVERIFY(!m_view->chooseMode());
    QVERIFY(!m_view->dragMode());
    QCOMPARE(m_view->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QVERIFY(m_view->renderHints().testFlag(QPainter::Antialiasing));
}

void TestGraphicsView::firstCursorIsThePencil()
{
    QCOMPARE(m_view->cursor().shape(), Qt::BitmapCursor);
    QCOMPARE(m_view->cursor().pixmap().toImage(),
             cursorFromImage(":/images/pencil.png", 64).pixmap().toImage());
    QCOMPARE(m_view->cursor().hotSpot(), QPoint(32, 32));
}

// The pencil is set once the event loop runs; a cursor asked for before that is the one
// the canvas keeps, and a tool without a cursor of its own keeps the pencil.
void TestGraphicsView::cursorChosenBeforeTheLoopRuns_data()
{
    QTest::addColumn<QString>("tool");
    QTest::addColumn<QString>("image");
    QTest::addColumn<int>("size");
    QTest::newRow("erase") << "erase"
                           << ":/images/erase.png" << 40;
    QTest::newRow("highlighter") << "highlighter"
                                 << ":/images/highlight.png" << 64;
    QTest::newRow("rect") << "rect"
                          << ":/images/pencil.png" << 64;
}

void TestGraphicsView::cursorChosenBeforeTheLoopRuns()
{
    QFETCH(QString, tool);
    QFETCH(QString, image);
    QFETCH(int, size);
    pallo::GraphicsView view(true, nullptr);
    view.slot_cursor(tool);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(view.cursorName(), tool);
    QCOMPARE(view.cursor().shape(), Qt::BitmapCursor);
    QCOMPARE(view.cursor().pixmap().toImage(), cursorFromImage(image, size).pixmap().toImage());
}

void TestGraphicsView::enableSetsInvisibleBackground()
{
    m_view->slot_enable(true);
    QCOMPARE(m_view->palette().color(QPalette::Inactive, QPalette::Window).alpha(), 1);
    m_view->slot_enable(false);
    QCOMPARE(m_view->palette().color(QPalette::Active, QPalette::Window).alpha(), 0);
}

void TestGraphicsView::paintsOnlyTheInvisibleFill()
{
    // The desktop must show through: neither the view nor its viewport paints anything but
    // the fill of alpha 0.005 (1 of 255).
    m_view->slot_enable(true);
    m_form->hide();
    QImage image(m_view->size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    m_view->QWidget::render(&image);
    int strongest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            strongest = qMax(strongest, qAlpha(image.pixel(x, y)));
    }
    QCOMPARE(strongest, 1);
}

void TestGraphicsView::toolbarSignalsReachManagerAndView()
{
    DData* data = m_view->drawManager()->data();
    emit m_form->sg_figure("rect");
    QCOMPARE(data->figure, QString("rect"));
    emit m_form->sg_width(6);
    QCOMPARE(data->width, 6);
    emit m_form->sg_color("#00ff00");
    QCOMPARE(data->color, QColor(0, 255, 0));
    emit m_form->sg_changeFontSize(22);
    QCOMPARE(m_view->drawManager()->fontSize(), 22);
    mouseStroke({{10, 10}, {50, 50}, {90, 90}});
    QCOMPARE(data->undoStack()->index(), 1);
    emit m_form->sg_undo();
    QCOMPARE(data->undoStack()->index(), 0);
    emit m_form->sg_redo();
    QCOMPARE(data->undoStack()->index(), 1);
    emit m_form->sg_clear();
    QCOMPARE(data->undoStack()->index(), 2);
    emit m_form->sg_choose();
    QVERIFY(m_view->chooseMode());
    emit m_form->sg_test();
    QVERIFY(!m_view->chooseMode());
}

void TestGraphicsView::toolbarSitsTopRight()
{
    m_form->setFixedSize(120, 40);
    QCOMPARE(m_form->parentWidget(), static_cast<QWidget*>(m_view.get()));
    QTRY_COMPARE(m_form->geometry().top(), 0);
    QTRY_COMPARE(m_view->width() - (m_form->geometry().right() + 1), 50);
}

void TestGraphicsView::attachingSecondToolbarChangesNothing()
{
    auto* other = new CtrlForm;
    std::unique_ptr<pallo::GraphicsView> otherView(other->canvasView());
    m_view->attachCtrlForm(other);
    QCOMPARE(m_view->ctrlForm(), m_form);
    QCOMPARE(other->parentWidget(), static_cast<QWidget*>(otherView.get()));
    emit other->sg_figure("ellipse");
    QVERIFY(m_view->drawManager()->data()->figure != "ellipse");
}

void TestGraphicsView::mouseStrokeDrawsWhereTheMouseWent()
{
    emit m_form->sg_figure("brush");
    mouseStroke({{50, 100}, {100, 100}, {200, 100}, {300, 100}});
    const QImage image = renderScene(m_view->scene());
    keepPicture(image, "view-mouse-stroke");
    QCOMPARE(alphaAt(image, 150, 100), 255);
    QCOMPARE(qRed(image.pixel(250, 100)), 255);
    QCOMPARE(alphaAt(image, 150, 120), 0);
}

void TestGraphicsView::penStrokeMatchesMouseStroke()
{
    emit m_form->sg_figure("brush");
    const QVector<QPoint> points = {{40, 60}, {80, 70}, {120, 90}, {200, 150}, {260, 150}};
    mouseStroke(points);
    const QVector<QPointF> byMouse = pointsOf(onlyCurvePath(m_view->scene()));
    QVERIFY(byMouse.size() >= 3);
    m_view->scene()->clear();

    penEvent(QEvent::TabletPress, points.first(), Qt::LeftButton);
    QVERIFY(m_view->penDown());
    for (int i = 1; i < points.size(); ++i)
        penEvent(QEvent::TabletMove, points.at(i), Qt::LeftButton);
    penEvent(QEvent::TabletRelease, points.last(), Qt::LeftButton);
    QVERIFY(!m_view->penDown());
    QCOMPARE(pointsOf(onlyCurvePath(m_view->scene())), byMouse);
}

void TestGraphicsView::mouseEventsDuringPenStrokeDrawNothing()
{
    emit m_form->sg_figure("brush");
    penEvent(QEvent::TabletPress, QPointF(50, 50), Qt::LeftButton);
    QWidget* viewport = m_view->viewport();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(50, 50));
    penEvent(QEvent::TabletMove, QPointF(100, 50), Qt::LeftButton);
    mouseMove(QPoint(300, 250), Qt::LeftButton);
    penEvent(QEvent::TabletMove, QPointF(150, 50), Qt::LeftButton);
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(300, 250));
    penEvent(QEvent::TabletRelease, QPointF(200, 50), Qt::LeftButton);

    QCOMPARE(m_view->scene()->items().size(), 1);
    QCOMPARE(m_view->drawManager()->data()->undoStack()->count(), 1);
    const QVector<QPointF> points = pointsOf(onlyCurvePath(m_view->scene()));
    for (const QPointF& p : points)
        QCOMPARE(p.y(), 50.0);
}

void TestGraphicsView::closePenSamplesAreDropped()
{
    emit m_form->sg_figure("brush");
    penEvent(QEvent::TabletPress, QPointF(100, 100), Qt::LeftButton);
    penEvent(QEvent::TabletMove, QPointF(110, 100), Qt::LeftButton);
    penEvent(QEvent::TabletMove, QPointF(120, 100), Qt::LeftButton);
    penEvent(QEvent::TabletMove, QPointF(120.6, 100.6), Qt::LeftButton);
    penEvent(QEvent::TabletMove, QPointF(121.5, 100), Qt::LeftButton);
    penEvent(QEvent::TabletMove, QPointF(130, 100), Qt::LeftButton);
    penEvent(QEvent::TabletRelease, QPointF(130, 100), Qt::LeftButton);
    // The first move starts the path at the press point; every later passed sample adds a
    // point (the release at the last point adds none). The sample 0.85 from (120, 100) is
    // dropped.
    const QVector<QPointF> expected = {{100, 100}, {120, 100}, {121, 100}, {130, 100}};
    QCOMPARE(pointsOf(onlyCurvePath(m_view->scene())), expected);
}

void TestGraphicsView::coordinatesTruncateTowardZero()
{
    emit m_form->sg_figure("line");
    penEvent(QEvent::TabletPress, QPointF(10.9, 20.7), Qt::LeftButton);
    penEvent(QEvent::TabletMove, QPointF(60.99, 80.5), Qt::LeftButton);
    penEvent(QEvent::TabletRelease, QPointF(60.99, 80.5), Qt::LeftButton);
    auto* line = qgraphicsitem_cast<CommonItem*>(m_view->scene()->items().first());
    QVERIFY(line);
    QCOMPARE(line->mapToScene(line->shapePath().elementAt(0)), QPointF(10, 20));
    QCOMPARE(line->mapToScene(line->shapePath().elementAt(1)), QPointF(60, 80));
}

void TestGraphicsView::desktopOperationPassesNothing()
{
    emit m_form->sg_figure("brush");
    m_view->slot_choose();
    QVERIFY(m_view->chooseMode());
    QVERIFY(m_form->isWindow());
    QVERIFY(m_form->isVisible());
    mouseStroke({{50, 50}, {100, 100}, {150, 150}});
    penEvent(QEvent::TabletPress, QPointF(50, 200), Qt::LeftButton);
    penEvent(QEvent::TabletMove, QPointF(150, 200), Qt::LeftButton);
    penEvent(QEvent::TabletRelease, QPointF(150, 200), Qt::LeftButton);
    QVERIFY(m_view->scene()->items().isEmpty());
    m_view->slot_test();
    mouseStroke({{50, 50}, {100, 100}, {150, 150}});
    QCOMPARE(m_view->scene()->items().size(), 1);
}

void TestGraphicsView::cursorForEachTool_data()
{
    QTest::addColumn<QString>("tool");
    QTest::addColumn<int>("size");
    QTest::newRow("brush") << "brush" << 64;
    QTest::newRow("highlighter") << "highlighter" << 64;
    QTest::newRow("delayerase") << "delayerase" << 64;
    QTest::newRow("erase") << "erase" << 40;
    QTest::newRow("rect") << "rect" << 0;
    QTest::newRow("drag") << "drag" << 0;
}

void TestGraphicsView::cursorForEachTool()
{
    QFETCH(QString, tool);
    QFETCH(int, size);
    emit m_form->sg_figure(tool);
    if (size == 0) {
        QCOMPARE(m_view->cursor().shape(), Qt::ArrowCursor);
    } else {
        QCOMPARE(m_view->cursor().shape(), Qt::BitmapCursor);
        QCOMPARE(m_view->cursor().pixmap().size(), QSize(size, size));
        QCOMPARE(m_view->cursor().hotSpot(), QPoint(size / 2, size / 2));
    }
}

void TestGraphicsView::unknownCursorKeepsPrevious()
{
    m_view->slot_cursor("erase");
    const QImage erase = m_view->cursor().pixmap().toImage();
    for (const char* name : {"rect", "line", "text", "arrow"}) {
        m_view->slot_cursor(name);
        QCOMPARE(m_view->cursorName(), QString(name));
        QCOMPARE(m_view->cursor().pixmap().toImage(), erase);
    }
}

void TestGraphicsView::leavingDragHidesHandlesAndFreezesItems()
{
    emit m_form->sg_figure("rect");
    mouseStroke({{50, 50}, {100, 100}, {150, 150}});
    emit m_form->sg_figure("erase");
    mouseStroke({{50, 200}, {100, 200}, {150, 200}});
    auto* rect = qgraphicsitem_cast<CommonItem*>(m_view->scene()->items().last());
    QVERIFY(rect);

    emit m_form->sg_figure("drag");
    QVERIFY(m_view->dragMode());
    QVERIFY(rect->flags().testFlag(QGraphicsItem::ItemIsMovable));
    QVERIFY(rect->flags().testFlag(QGraphicsItem::ItemIsSelectable));
    QVERIFY(rect->acceptHoverEvents());
    for (QGraphicsItem* item : m_view->scene()->items()) {
        if (qgraphicsitem_cast<EraseItem*>(item))
            QVERIFY(!item->flags().testFlag(QGraphicsItem::ItemIsMovable));
    }
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(50, 100));
    QVERIFY(OperateItem::existing());
    QVERIFY(OperateItem::existing()->isVisible());

    emit m_form->sg_figure("brush");
    QVERIFY(!m_view->dragMode());
    QVERIFY(!OperateItem::existing()->isVisible());
    QVERIFY(!rect->flags().testFlag(QGraphicsItem::ItemIsMovable));
    QVERIFY(!rect->flags().testFlag(QGraphicsItem::ItemIsSelectable));
    QVERIFY(!rect->acceptHoverEvents());
}

void TestGraphicsView::switchingBetweenOtherToolsKeepsFlags()
{
    emit m_form->sg_figure("brush");
    mouseStroke({{50, 50}, {100, 100}, {150, 150}});
    QGraphicsItem* curve = m_view->scene()->items().first();
    curve->setFlag(QGraphicsItem::ItemIsMovable, true);
    emit m_form->sg_figure("rect");
    emit m_form->sg_figure("highlighter");
    QVERIFY(curve->flags().testFlag(QGraphicsItem::ItemIsMovable));
}

void TestGraphicsView::dragPressAttachesHandlesToShape()
{
    emit m_form->sg_figure("ellipse");
    mouseStroke({{100, 100}, {150, 150}, {200, 200}});
    auto* ellipse = qgraphicsitem_cast<CommonItem*>(m_view->scene()->items().first());
    emit m_form->sg_figure("drag");
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(150, 100));
    QVERIFY(OperateItem::existing()->isAttachedTo(ellipse));
    QVERIFY(OperateItem::existing()->isVisible());
    const QImage framed = renderScene(m_view->scene());
    keepPicture(framed, "handles-frame");
    QVERIFY(alphaAt(framed, 150, 94) > 0);

    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(350, 280));
    QVERIFY(!OperateItem::existing()->isVisible());
    QCOMPARE(m_view->scene()->items().size(), 2);

    // The pen attaches the handles the same way.
    penEvent(QEvent::TabletPress, QPointF(100, 150), Qt::LeftButton);
    penEvent(QEvent::TabletRelease, QPointF(100, 150), Qt::LeftButton);
    QVERIFY(OperateItem::existing()->isAttachedTo(ellipse));
    QCOMPARE(m_view->drawManager()->data()->undoStack()->count(), 1);
}

void TestGraphicsView::textToolPressOnTextEditsIt()
{
    toolButton(1);
    toolButton(5)->setChecked(true);
    emit m_form->sg_figure("text");
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
    QCOMPARE(m_view->scene()->items().size(), 1);
    auto* text = qgraphicsitem_cast<textItemchange*>(m_view->scene()->items().first());
    QVERIFY(text);
    QTest::keyClicks(m_view->viewport(), "note");
    text->setPlainText("note");
    m_view->scene()->setFocusItem(nullptr);
    QVERIFY(!textItemchange::isEditing());
    text->setFlag(QGraphicsItem::ItemIsMovable, false);

    const QPoint onText = m_view->mapFromScene(text->sceneBoundingRect().center());
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, onText);
    QCOMPARE(m_view->scene()->items().size(), 1);
    QCOMPARE(m_view->drawManager()->data()->undoStack()->count(), 1);
    QVERIFY(text->flags().testFlag(QGraphicsItem::ItemIsMovable));
    QVERIFY(text->flags().testFlag(QGraphicsItem::ItemIsSelectable));
}

void TestGraphicsView::otherToolPressOnTextDrawsOverIt()
{
    toolButton(5);
    toolButton(1)->setChecked(true);
    emit m_form->sg_figure("text");
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
    auto* text = qgraphicsitem_cast<textItemchange*>(m_view->scene()->items().first());
    text->setPlainText("note");
    m_view->scene()->setFocusItem(nullptr);

    emit m_form->sg_figure("brush");
    const QPoint onText = m_view->mapFromScene(text->sceneBoundingRect().center());
    mouseStroke({onText, onText + QPoint(40, 0), onText + QPoint(80, 0)});
    QVERIFY(!text->flags().testFlag(QGraphicsItem::ItemIsMovable));
    QVERIFY(!text->flags().testFlag(QGraphicsItem::ItemIsSelectable));
    QCOMPARE(m_view->scene()->items().size(), 2);
    QCOMPARE(m_view->drawManager()->data()->undoStack()->count(), 2);
}

void TestGraphicsView::escapeHidesCanvasAndToolbar()
{
    m_form->show();
    QTest::keyClick(m_view.get(), Qt::Key_Escape);
    QVERIFY(!m_view->isVisible());
    QVERIFY(!m_form->isVisible());
}

void TestGraphicsView::deleteKeyClearsCanvas()
{
    emit m_form->sg_figure("brush");
    mouseStroke({{50, 50}, {100, 100}, {150, 150}});
    QGraphicsItem* curve = m_view->scene()->items().first();
    QTest::keyClick(m_view.get(), Qt::Key_Delete);
    // The toolbar's clear button also answers to Del, and a shortcut clicks a moment later.
    QTRY_VERIFY(!curve->isVisible());
    QCOMPARE(m_view->drawManager()->data()->undoStack()->count(), 2);
}

QTEST_MAIN(TestGraphicsView)
#include "test-graphics-view.moc"
