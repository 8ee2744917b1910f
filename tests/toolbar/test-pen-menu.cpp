// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/pen-menu.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QFrame>
#include <QtTest>

class TestPenMenu : public QObject
{
    Q_OBJECT
private slots:
    void form();
    void clickEmitsName_data();
    void clickEmitsName();
    void otherIdOnlyHides();
    void stepping_data();
    void stepping();
    void steppingFromDelayEraseGivesBrush();
};

void TestPenMenu::form()
{
    PenMenu menu;
    QVERIFY(!menu.parentWidget());
    QVERIFY(menu.windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(menu.windowFlags().testFlag(Qt::NoDropShadowWindowHint));
    QCOMPARE(menu.windowFlags() & Qt::WindowType_Mask, Qt::Popup);
    QVERIFY(menu.testAttribute(Qt::WA_StyledBackground));
    QVERIFY(menu.findChild<QFrame*>("frame_pensize_layout"));
    QButtonGroup* g = menu.buttonGroup();
    QCOMPARE(g->button(1)->objectName(), QString("toolButton_brush"));
    QCOMPARE(g->button(2)->objectName(), QString("toolButton_highlighter"));
    QCOMPARE(g->button(3)->objectName(), QString("toolButton_delay_erase"));
    QVERIFY(g->exclusive());
    QCOMPARE(g->checkedId(), 1);
}

void TestPenMenu::clickEmitsName_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("name");
    QTest::newRow("brush") << 1 << "brush";
    QTest::newRow("highlighter") << 2 << "highlighter";
    QTest::newRow("delayerase") << 3 << "delayerase";
}

void TestPenMenu::clickEmitsName()
{
    QFETCH(int, id);
    QFETCH(QString, name);
    PenMenu menu;
    menu.show();
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QSignalSpy spy(&menu, &PenMenu::sg_penchange);
    QTest::mouseClick(menu.buttonGroup()->button(id), Qt::LeftButton);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), name);
    QCOMPARE(menu.buttonGroup()->checkedId(), id);
    QVERIFY(!menu.isVisible());
}

void TestPenMenu::otherIdOnlyHides()
{
    PenMenu menu;
    menu.show();
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QSignalSpy spy(&menu, &PenMenu::sg_penchange);
    menu.slot_penchange(4);
    menu.slot_penchange(0);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(menu.buttonGroup()->checkedId(), 1);
    QVERIFY(!menu.isVisible());
}

void TestPenMenu::stepping_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("to");
    QTest::newRow("1 -> 2") << 1 << "highlighter" << 2;
    QTest::newRow("2 -> 3") << 2 << "delayerase" << 3;
    QTest::newRow("3 -> 1") << 3 << "brush" << 1;
}

void TestPenMenu::stepping()
{
    QFETCH(int, from);
    QFETCH(QString, name);
    QFETCH(int, to);
    PenMenu menu;
    menu.slot_penchange(from);
    QSignalSpy spy(&menu, &PenMenu::sg_penchange);
    menu.slot_buttonClicked();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), name);
    QCOMPARE(menu.buttonGroup()->checkedId(), to);
}

void TestPenMenu::steppingFromDelayEraseGivesBrush()
{
    PenMenu menu;
    QSignalSpy spy(&menu, &PenMenu::sg_penchange);
    menu.slot_buttonClicked();
    menu.slot_buttonClicked();
    menu.slot_buttonClicked();
    QCOMPARE(spy.count(), 3);
    QCOMPARE(spy.at(1).at(0).toString(), QString("delayerase"));
    QCOMPARE(spy.at(2).at(0).toString(), QString("brush"));
}

QTEST_MAIN(TestPenMenu)
#include "test-pen-menu.moc"
