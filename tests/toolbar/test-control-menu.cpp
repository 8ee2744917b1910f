// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/control-menu.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QFrame>
#include <QtTest>

class TestControlMenu : public QObject
{
    Q_OBJECT
private slots:
    void form();
    void clickEmitsName_data();
    void clickEmitsName();
    void otherIdOnlyHides();
    void steppingToggles();
};

void TestControlMenu::form()
{
    ControlMenu menu;
    QVERIFY(!menu.parentWidget());
    QCOMPARE(menu.windowFlags() & Qt::WindowType_Mask, Qt::Popup);
    QVERIFY(menu.windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(menu.windowFlags().testFlag(Qt::NoDropShadowWindowHint));
    QVERIFY(menu.testAttribute(Qt::WA_StyledBackground));
    QVERIFY(menu.findChild<QFrame*>("frame_control_layout"));
    QCOMPARE(menu.buttonGroup()->button(1)->objectName(), QString("toolButton_C_choose"));
    QCOMPARE(menu.buttonGroup()->button(2)->objectName(), QString("toolButton_C_drag"));
    QCOMPARE(menu.buttonGroup()->buttons().size(), 2);
    QCOMPARE(menu.buttonGroup()->checkedId(), 1);
}

void TestControlMenu::clickEmitsName_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("name");
    QTest::newRow("choose") << 1 << "choose";
    QTest::newRow("drag") << 2 << "drag";
}

void TestControlMenu::clickEmitsName()
{
    QFETCH(int, id);
    QFETCH(QString, name);
    ControlMenu menu;
    menu.show();
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QSignalSpy spy(&menu, &ControlMenu::sg_controlchange);
    QTest::mouseClick(menu.buttonGroup()->button(id), Qt::LeftButton);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), name);
    QCOMPARE(menu.buttonGroup()->checkedId(), id);
    QVERIFY(!menu.isVisible());
}

void TestControlMenu::otherIdOnlyHides()
{
    ControlMenu menu;
    menu.show();
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QSignalSpy spy(&menu, &ControlMenu::sg_controlchange);
    menu.slot_controlchange(3);
    QCOMPARE(spy.count(), 0);
    QVERIFY(!menu.isVisible());
}

void TestControlMenu::steppingToggles()
{
    ControlMenu menu;
    QSignalSpy spy(&menu, &ControlMenu::sg_controlchange);
    menu.slot_buttonClicked();
    menu.slot_buttonClicked();
    menu.slot_buttonClicked();
    QCOMPARE(spy.count(), 3);
    QCOMPARE(spy.at(0).at(0).toString(), QString("drag"));
    QCOMPARE(spy.at(1).at(0).toString(), QString("choose"));
    QCOMPARE(spy.at(2).at(0).toString(), QString("drag"));
    QCOMPARE(menu.buttonGroup()->checkedId(), 2);
}

QTEST_MAIN(TestControlMenu)
#include "test-control-menu.moc"
