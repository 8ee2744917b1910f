// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/layout-rotation.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QPushButton>
#include <QtTest>

class TestLayoutRotation : public QObject
{
    Q_OBJECT
private slots:
    void boxesSwapDirection();
    void gridCellsAreTransposed();
    void nestedWidgetLayoutsTurn();
    void twiceRestoresEverything();
    void spacersAreTurned();
    void widgetWithoutLayout();
    void logsEachStep();

private:
    // A toolbar-like tree: frame with a row of buttons, a 1 x 80 separator and a
    // 2 x 3 grid of boxes.
    static QWidget* buildTree();
    static QStringList order(QWidget* top);
};

QWidget* TestLayoutRotation::buildTree()
{
    auto* top = new QWidget;
    auto* outer = new QGridLayout(top);
    outer->setObjectName("outer");
    auto* folder = new QPushButton("folder", top);
    folder->setObjectName("folder");
    outer->addWidget(folder, 0, 0);
    auto* frame = new QWidget(top);
    frame->setObjectName("frame");
    outer->addWidget(frame, 0, 1);

    auto* frameGrid = new QGridLayout(frame);
    frameGrid->setObjectName("frameGrid");
    auto* row = new QHBoxLayout;
    row->setObjectName("row");
    row->setSpacing(8);
    frameGrid->addLayout(row, 0, 0, 2, 2);

    auto* tools = new QHBoxLayout;
    tools->setObjectName("tools");
    tools->setSpacing(8);
    tools->setContentsMargins(6, 0, 0, 0);
    for (const char* n : {"pen", "rect", "line"}) {
        auto* b = new QPushButton(n, frame);
        b->setObjectName(n);
        tools->addWidget(b);
    }
    row->addLayout(tools);
    auto* sep = new QWidget(frame);
    sep->setObjectName("sep");
    sep->setMinimumSize(1, 80);
    sep->setMaximumSize(1, 80);
    row->addWidget(sep);
    auto* colours = new QGridLayout;
    colours->setObjectName("colours");
    colours->setHorizontalSpacing(6);
    colours->setVerticalSpacing(0);
    const char* names[2][3] = {{"black", "blue", "red"}, {"white", "green", "yellow"}};
    for (int r = 0; r < 2; ++r) {
        for (int c = 0; c < 3; ++c) {
            auto* b = new QPushButton(names[r][c], frame);
            b->setObjectName(names[r][c]);
            colours->addWidget(b, r, c);
        }
    }
    row->addLayout(colours);
    return top;
}

QStringList TestLayoutRotation::order(QWidget* top)
{
    auto* tools = top->findChild<QBoxLayout*>("tools");
    QStringList names;
    for (int i = 0; i < tools->count(); ++i)
        names << tools->itemAt(i)->widget()->objectName();
    return names;
}

void TestLayoutRotation::boxesSwapDirection()
{
    QScopedPointer<QWidget> top(buildTree());
    QVERIFY(rotateWidgetLayout(top.data()));
    auto* tools = top->findChild<QBoxLayout*>("tools");
    QVERIFY(tools);
    QVERIFY(qobject_cast<QVBoxLayout*>(tools));
    QCOMPARE(tools->spacing(), 8);
    QCOMPARE(tools->contentsMargins(), QMargins(0, 6, 0, 0));
    QVERIFY(qobject_cast<QVBoxLayout*>(top->findChild<QBoxLayout*>("row")));
    QCOMPARE(order(top.data()), QStringList({"pen", "rect", "line"}));
    auto* sep = top->findChild<QWidget*>("sep");
    QCOMPARE(sep->minimumSize(), QSize(80, 1));
    QCOMPARE(sep->maximumSize(), QSize(80, 1));
}

void TestLayoutRotation::gridCellsAreTransposed()
{
    QScopedPointer<QWidget> top(buildTree());
    QVERIFY(rotateWidgetLayout(top.data()));
    auto* colours = top->findChild<QGridLayout*>("colours");
    QVERIFY(colours);
    QCOMPARE(colours->rowCount(), 3);
    QCOMPARE(colours->columnCount(), 2);
    QCOMPARE(colours->horizontalSpacing(), 0);
    QCOMPARE(colours->verticalSpacing(), 6);
    QCOMPARE(colours->itemAtPosition(0, 1)->widget()->objectName(), QString("white"));
    QCOMPARE(colours->itemAtPosition(2, 0)->widget()->objectName(), QString("red"));
    QCOMPARE(colours->itemAtPosition(2, 1)->widget()->objectName(), QString("yellow"));
    // The folder moves from the left of the frame to above it.
    auto* outer = qobject_cast<QGridLayout*>(top->layout());
    QVERIFY(outer);
    QCOMPARE(outer->objectName(), QString("outer"));
    QCOMPARE(outer->itemAtPosition(0, 0)->widget()->objectName(), QString("folder"));
    QCOMPARE(outer->itemAtPosition(1, 0)->widget()->objectName(), QString("frame"));
}

void TestLayoutRotation::nestedWidgetLayoutsTurn()
{
    QScopedPointer<QWidget> top(buildTree());
    top->adjustSize();
    const QSize before = top->findChild<QWidget*>("frame")->sizeHint();
    QVERIFY(before.width() > before.height());
    QVERIFY(rotateWidgetLayout(top.data()));
    auto* frameGrid = qobject_cast<QGridLayout*>(top->findChild<QWidget*>("frame")->layout());
    QVERIFY(frameGrid);
    int r, c, rs, cs;
    frameGrid->getItemPosition(0, &r, &c, &rs, &cs);
    QCOMPARE(QList<int>({r, c, rs, cs}), QList<int>({0, 0, 2, 2}));
    const QSize after = top->findChild<QWidget*>("frame")->sizeHint();
    QVERIFY2(after.height() > after.width(),
             qPrintable(QString("%1x%2").arg(after.width()).arg(after.height())));
}

void TestLayoutRotation::twiceRestoresEverything()
{
    QScopedPointer<QWidget> top(buildTree());
    top->show();
    QVERIFY(QTest::qWaitForWindowExposed(top.data()));
    QHash<QString, QRect> before;
    for (QWidget* w : top->findChildren<QWidget*>())
        before.insert(w->objectName(), w->geometry());
    const QSize size = top->size();

    QVERIFY(rotateWidgetLayout(top.data()));
    QVERIFY(rotateWidgetLayout(top.data()));
    top->resize(size);
    QTRY_COMPARE(top->findChild<QWidget*>("sep")->geometry(), before.value("sep"));
    for (QWidget* w : top->findChildren<QWidget*>())
        QCOMPARE(w->geometry(), before.value(w->objectName()));
    QCOMPARE(order(top.data()), QStringList({"pen", "rect", "line"}));
    QVERIFY(qobject_cast<QHBoxLayout*>(top->findChild<QBoxLayout*>("tools")));
    QCOMPARE(top->findChild<QBoxLayout*>("tools")->contentsMargins(), QMargins(6, 0, 0, 0));
    QCOMPARE(top->findChild<QGridLayout*>("colours")->horizontalSpacing(), 6);
    // Only the current layouts remain: the replaced ones are gone.
    QCOMPARE(top->findChildren<QLayout*>().size(), 5);
}

void TestLayoutRotation::spacersAreTurned()
{
    QWidget top;
    auto* box = new QHBoxLayout(&top);
    box->addSpacing(30);
    box->addStretch(2);
    auto* b = new QPushButton("b", &top);
    box->addWidget(b, 3);
    QVERIFY(rotateWidgetLayout(&top));
    auto* turned = qobject_cast<QVBoxLayout*>(top.layout());
    QVERIFY(turned);
    QCOMPARE(turned->count(), 3);
    QCOMPARE(turned->itemAt(0)->sizeHint(), QSize(0, 30));
    QCOMPARE(turned->stretch(1), 2);
    QCOMPARE(turned->itemAt(2)->widget(), b);
    QCOMPARE(turned->stretch(2), 3);
}

void TestLayoutRotation::widgetWithoutLayout()
{
    QWidget plain;
    QVERIFY(!rotateWidgetLayout(&plain));
}

void TestLayoutRotation::logsEachStep()
{
    QScopedPointer<QWidget> top(buildTree());
    QTest::ignoreMessage(QtDebugMsg, "QGridLayout");
    QTest::ignoreMessage(QtDebugMsg, "widget    row : 0 column : 0");
    QTest::ignoreMessage(QtDebugMsg, "QGridLayout");
    QTest::ignoreMessage(QtDebugMsg, "QHBoxLayout ");
    QTest::ignoreMessage(QtDebugMsg, "QHBoxLayout ");
    QTest::ignoreMessage(QtDebugMsg, "QGridLayout");
    QTest::ignoreMessage(QtDebugMsg, "widget    row : 0 column : 0");
    QTest::ignoreMessage(QtDebugMsg, "widget    row : 1 column : 0");
    QTest::ignoreMessage(QtDebugMsg, "widget    row : 2 column : 0");
    QTest::ignoreMessage(QtDebugMsg, "widget    row : 0 column : 1");
    QTest::ignoreMessage(QtDebugMsg, "widget    row : 1 column : 1");
    QTest::ignoreMessage(QtDebugMsg, "widget    row : 2 column : 1");
    QTest::ignoreMessage(QtDebugMsg, "layout    row : 0 column : 0");
    QTest::ignoreMessage(QtDebugMsg, "widget    row : 1 column : 0");
    QVERIFY(rotateWidgetLayout(top.data()));
}

QTEST_MAIN(TestLayoutRotation)
#include "test-layout-rotation.moc"
