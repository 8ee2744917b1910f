// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/pallo-translator.h"
#include "tool-test-support.h"
#include "tools/pix-label.h"

#include <QAction>
#include <QApplication>
#include <QGraphicsDropShadowEffect>
#include <QLabel>
#include <QPointer>
#include <QtTest>

namespace {
QImage picture()
{
    QImage image(120, 80, QImage::Format_RGB32);
    image.fill(QColor("#2080ff"));
    return image;
}
void sendMouse(QWidget* w, QEvent::Type type, const QPoint& global, Qt::MouseButton button,
               Qt::MouseButtons buttons)
{
    QMouseEvent e(type, w->mapFromGlobal(global), global, button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(w, &e);
}
} // namespace

class TestPixLabel : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void framelessAndOnTop();
    void showsThePicture();
    void closeFromTheContextMenuDeletes();
    void leftDragMovesIt();
    void rightDragDoesNot();

private:
    PixLabel* shown();
    PalloTranslator* translator = nullptr;
};

void TestPixLabel::initTestCase()
{
    translator = new PalloTranslator("english", this);
    QCoreApplication::installTranslator(translator);
}

PixLabel* TestPixLabel::shown()
{
    auto* label = new PixLabel;
    label->setPixmap(QPixmap::fromImage(picture()));
    label->show();
    label->move(200, 200);
    return label;
}

void TestPixLabel::framelessAndOnTop()
{
    PixLabel label;
    const Qt::WindowFlags flags = label.windowFlags();
    QVERIFY(flags.testFlag(Qt::Tool));
    QVERIFY(flags.testFlag(Qt::FramelessWindowHint));
    QVERIFY(flags.testFlag(Qt::WindowStaysOnTopHint));
    // Never stacked beneath the canvas by a window manager that raises what is clicked.
    QVERIFY(flags.testFlag(Qt::X11BypassWindowManagerHint));
    QVERIFY(label.testAttribute(Qt::WA_TranslucentBackground));
    QCOMPARE(label.minimumHeight(), 10);
}

void TestPixLabel::showsThePicture()
{
    QScopedPointer<PixLabel> label(shown());
    QVERIFY(QTest::qWaitForWindowExposed(label.data()));
    QCOMPARE(label->pos(), QPoint(200, 200));
    auto* inner = label->findChild<QLabel*>();
    QVERIFY(inner != nullptr);
    QVERIFY(tool_test::hasHalo(inner));
    QVERIFY(label->width() >= 120 && label->height() >= 80);
    // What the window shows: the picture in the middle, nothing opaque at the edge.
    const QImage seen = label->grab().toImage();
    QCOMPARE(seen.pixelColor(seen.width() / 2, seen.height() / 2), QColor("#2080ff"));
    QVERIFY(qAlpha(seen.pixel(0, 0)) < 255);
}

void TestPixLabel::closeFromTheContextMenuDeletes()
{
    QPointer<PixLabel> label(shown());
    QVERIFY(QTest::qWaitForWindowExposed(label.data()));
    QCOMPARE(label->contextMenuPolicy(), Qt::ActionsContextMenu);
    const QList<QAction*> actions = label->actions();
    QCOMPARE(actions.size(), 1);
    QCOMPARE(actions.first()->text(), QString("close"));
    actions.first()->trigger();
    QVERIFY(!label->isVisible());
    QTRY_VERIFY(label.isNull());
}

void TestPixLabel::leftDragMovesIt()
{
    QScopedPointer<PixLabel> label(shown());
    QVERIFY(QTest::qWaitForWindowExposed(label.data()));
    const QPoint start = label->frameGeometry().center() + QPoint(5, 3);
    sendMouse(label.data(), QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton);
    sendMouse(label.data(), QEvent::MouseMove, start + QPoint(150, 60), Qt::NoButton,
              Qt::LeftButton);
    QCOMPARE(label->pos(), QPoint(350, 260));
    sendMouse(label.data(), QEvent::MouseButtonRelease, start + QPoint(150, 60), Qt::LeftButton,
              Qt::NoButton);
    sendMouse(label.data(), QEvent::MouseMove, start + QPoint(400, 400), Qt::NoButton,
              Qt::NoButton);
    QCOMPARE(label->pos(), QPoint(350, 260));
}

void TestPixLabel::rightDragDoesNot()
{
    QScopedPointer<PixLabel> label(shown());
    QVERIFY(QTest::qWaitForWindowExposed(label.data()));
    const QPoint start = label->frameGeometry().center();
    sendMouse(label.data(), QEvent::MouseButtonPress, start, Qt::RightButton, Qt::RightButton);
    sendMouse(label.data(), QEvent::MouseMove, start + QPoint(150, 60), Qt::NoButton,
              Qt::RightButton);
    QCOMPARE(label->pos(), QPoint(200, 200));
}

QTEST_MAIN(TestPixLabel)
#include "test-pix-label.moc"
