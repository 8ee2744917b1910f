// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/pallo-translator.h"
#include "canvas/common-item.h"
#include "canvas/d-data.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/graphics-view.h"
#include "canvas/handle-geometry.h"
#include "canvas/operate-item.h"
#include "canvas/text-itemchange.h"
#include "common/style-sheet-loader.h"
#include "tests/e2e/popup-clicker.h"
#include "tests/e2e/x11-probe.h"
#include "tests/e2e/xdotool.h"
#include "tests/test-output.h"
#include "toolbar/ctrl-form.h"
#include "toolbar/edge-hide-dialog.h"

#include <QApplication>
#include <QDir>
#include <QScreen>
#include <QToolButton>
#include <QUndoStack>
#include <QtTest>
#include <memory>

namespace {

// Far enough in time from any earlier click not to make a double click of the two, and
// time afterwards for the board to handle what the server delivered.
bool settled(bool done)
{
    QTest::qWait(40);
    return done;
}

bool click(const QPoint& global, int button = 1)
{
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    return settled(xdotool::click(global, button));
}

bool dragAlong(const QVector<QPoint>& points)
{
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    return settled(xdotool::stroke(points));
}

QPoint centreOf(QWidget* widget)
{
    return widget->mapToGlobal(widget->rect().center());
}

int differingPixels(const QImage& a, const QImage& b, const QRect& area)
{
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y))
                ++count;
        }
    }
    return count;
}

} // namespace

class TestTransformE2e : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void rectangleTurnedScaledAndUndone();
    void textTypedWhereClicked();

private:
    QToolButton* toolbarButton(const QString& name) const;
    // A toolbar left at the screen's edge hides into a thin strip; resting the pointer on
    // the strip brings it back.
    bool revealToolbar();
    bool clickToolbarButton(const QString& name);
    // Opens a toolbar button's menu the way the tooltips teach it, with the right button,
    // and picks one of its entries.
    bool pickFromMenu(const QString& button, const QString& entry);

    PalloTranslator m_translator{QStringLiteral("english")};
    X11Probe m_probe;
    pallo::GraphicsView* m_view = nullptr;
    std::unique_ptr<pallo::GraphicsView> m_owner;
};

QToolButton* TestTransformE2e::toolbarButton(const QString& name) const
{
    return m_view->ctrlForm()->findChild<QToolButton*>(name);
}

bool TestTransformE2e::revealToolbar()
{
    CtrlForm* toolbar = m_view->ctrlForm();
    if (toolbar->isVisible())
        return true;
    EdgeHideDialog* strip = toolbar->edgeStrip();
    if (strip == nullptr || !strip->isVisible())
        return false;
    return settled(xdotool::run({"mousemove", QString::number(centreOf(strip).x()),
                                 QString::number(centreOf(strip).y())})) &&
           QTest::qWaitFor([toolbar] { return toolbar->isVisible(); }, 3000);
}

bool TestTransformE2e::clickToolbarButton(const QString& name)
{
    QToolButton* button = toolbarButton(name);
    return button != nullptr && revealToolbar() && click(centreOf(button));
}

bool TestTransformE2e::pickFromMenu(const QString& button, const QString& entry)
{
    QToolButton* owner = toolbarButton(button);
    if (owner == nullptr)
        return false;
    PopupClicker clicker(entry);
    if (!revealToolbar() || !click(centreOf(owner), 3))
        return false;
    return QTest::qWaitFor([&clicker] { return clicker.clicked(); }, 5000) && settled(true);
}

void TestTransformE2e::init()
{
    QCOMPARE(QGuiApplication::platformName(), QString("xcb"));
    QCoreApplication::installTranslator(&m_translator);
    // In the order the board starts its own: the look, the canvas over the whole screen
    // with the toolbar built after it, and the toolbar's start state over the canvas.
    loadApplicationStyleSheet();
    auto* form = new CtrlForm(nullptr, CtrlForm::CanvasShown::AtOnce);
    m_view = form->canvasView();
    m_owner.reset(m_view);
    form->enterChooseState();
    form->showCanvasFullScreen();
    QVERIFY(QTest::qWaitForWindowExposed(m_view));
    QCOMPARE(m_view->geometry(), QGuiApplication::primaryScreen()->geometry());
    m_view->raise();
    m_view->activateWindow();
    QTest::qWait(300);
    QCOMPARE(m_view->mapToGlobal(QPoint(0, 0)), QPoint(0, 0));
}

void TestTransformE2e::cleanup()
{
    m_owner.reset();
    m_view = nullptr;
    QCoreApplication::removeTranslator(&m_translator);
}

void TestTransformE2e::rectangleTurnedScaledAndUndone()
{
    DData* data = m_view->drawManager()->data();
    QVERIFY(clickToolbarButton("toolButton_rect"));
    QTRY_COMPARE(data->figure, QString("rect"));

    // Draw a rectangle from (600, 400) to (800, 520).
    QVERIFY(dragAlong({QPoint(600, 400), QPoint(650, 430), QPoint(750, 500), QPoint(800, 520)}));
    QTRY_COMPARE(data->records().size(), 1);
    auto* rect = qgraphicsitem_cast<CommonItem*>(data->records().first().item);
    QVERIFY(rect);
    QCOMPARE(rect->shapeRect().translated(rect->pos()), QRectF(600, 400, 200, 120));
    const QPainterPath originalPath = rect->shapePath();
    const QRect area(450, 250, 500, 420);
    QTRY_VERIFY(countReddish(m_probe.grabScreen().copy(area)) > 500);
    QTest::qWait(200);
    const QImage drawn = m_probe.grabScreen();
    keepPicture(drawn, "e2e-1-drawn");

    // "moving handwriting", the select button's second mode.
    QVERIFY(pickFromMenu("toolButton_choose", "toolButton_C_drag"));
    QTRY_VERIFY(m_view->dragMode());
    QCOMPARE(data->figure, QString("drag"));

    // Pick the rectangle by its border: the handles appear around it.
    QVERIFY(click(QPoint(700, 400)));
    QTRY_VERIFY(OperateItem::existing() && OperateItem::existing()->isAttachedTo(rect));
    OperateItem* handles = OperateItem::existing();
    QVERIFY(handles->isVisible());
    QTest::qWait(200);
    const QImage picked = m_probe.grabScreen();
    keepPicture(picked, "e2e-2-picked");
    // The rotation handle shows 20 above the middle of the top edge.
    const QRgb knob = picked.pixel(700, 380);
    QVERIFY(qBlue(knob) > 170 && qRed(knob) < 60);

    // Turn it by its handle, an eighth to the right.
    QVERIFY(dragAlong({QPoint(700, 380), QPoint(720, 382), QPoint(750, 400), QPoint(780, 380)}));
    QTRY_COMPARE(data->undoStack()->count(), 2);
    QVERIFY(rect->shapeTransform().isRotating());
    QCOMPARE(rect->pos(), QPointF(700, 460));
    QTest::qWait(200);
    const QImage turned = m_probe.grabScreen();
    keepPicture(turned, "e2e-3-turned");
    QVERIFY(differingPixels(drawn, turned, area) > 500);

    // Pull the bottom-right corner handle outward.
    const QPoint corner =
        handles->mapToScene(handles::handleCentre(handles::BottomRight, handles->frame()))
            .toPoint();
    const QRectF before = rect->shapeRect();
    QVERIFY(dragAlong({corner, corner + QPoint(10, 10), corner + QPoint(40, 30)}));
    QTRY_COMPARE(data->undoStack()->count(), 3);
    QVERIFY(rect->shapeRect().width() > before.width() + 10);
    QTest::qWait(200);
    keepPicture(m_probe.grabScreen(), "e2e-4-scaled");

    QVERIFY(clickToolbarButton("toolButton_undo"));
    QTRY_COMPARE(data->undoStack()->index(), 2);
    QVERIFY(clickToolbarButton("toolButton_undo"));
    QTRY_COMPARE(data->undoStack()->index(), 1);
    QCOMPARE(rect->shapePath(), originalPath);
    QVERIFY(!rect->shapeTransform().isRotating());

    // A click on empty canvas puts the handles away; the original rectangle is back.
    QVERIFY(click(QPoint(300, 900)));
    QTRY_VERIFY(!handles->isVisible());
    QTest::qWait(200);
    const QImage undone = m_probe.grabScreen();
    keepPicture(undone, "e2e-5-undone");
    QCOMPARE(differingPixels(drawn, undone, area), 0);
}

void TestTransformE2e::textTypedWhereClicked()
{
    DData* data = m_view->drawManager()->data();
    // The large size of the text button's menu, which also picks the text tool.
    QVERIFY(pickFromMenu("toolButton_text", "toolButton_bigFontSize"));
    QTRY_COMPARE(data->figure, QString("text"));
    QCOMPARE(m_view->drawManager()->fontSize(), 26);
    // Xvfb runs no window manager, so nothing hands the keyboard back to the canvas when
    // the menu closes; do what a desktop's window manager does on the click below.
    m_view->activateWindow();

    QVERIFY(click(QPoint(400, 600)));
    QTRY_COMPARE(data->records().size(), 1);
    auto* text = qgraphicsitem_cast<textItemchange*>(data->records().first().item);
    QVERIFY(text);
    QCOMPARE(text->pos(), QPointF(400, 600));
    QCOMPARE(text->font().pointSize(), 26);
    QVERIFY(!text->font().bold());
    QVERIFY(settled(xdotool::run({"type", "--delay", "50", "Hi"})));
    QTRY_COMPARE(text->toPlainText(), QString("Hi"));

    // Clicking elsewhere ends the edit and starts no second text; the text stays.
    QVERIFY(click(QPoint(900, 700)));
    QTRY_VERIFY(!text->hasFocus());
    QCOMPARE(data->records().size(), 1);
    QCOMPARE(text->toPlainText(), QString("Hi"));
    QVERIFY(text->isVisible());
    QTest::qWait(200);
    const QImage screen = m_probe.grabScreen();
    keepPicture(screen, "e2e-6-text");
    const QColor colour = text->defaultTextColor();
    int ink = 0;
    const QRect box = text->sceneBoundingRect().toRect();
    for (int y = box.top(); y <= box.bottom(); ++y) {
        for (int x = box.left(); x <= box.right(); ++x) {
            const QRgb p = screen.pixel(x, y);
            if (std::abs(qRed(p) - colour.red()) < 40 &&
                std::abs(qGreen(p) - colour.green()) < 40 &&
                std::abs(qBlue(p) - colour.blue()) < 40)
                ++ink;
        }
    }
    QVERIFY2(ink > 100, qPrintable(QString::number(ink)));
}

QTEST_MAIN(TestTransformE2e)
#include "test-transform-e2e.moc"
