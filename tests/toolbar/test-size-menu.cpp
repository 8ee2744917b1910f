// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/board-settings.h"
#include "toolbar/size-menu.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QFrame>
#include <QSettings>
#include <QtTest>

class TestSizeMenu : public QObject
{
    Q_OBJECT
private slots:
    void form();
    void storedWidthReachesCanvasAtStart_data();
    void storedWidthReachesCanvasAtStart();
    void clickStoresIdEmitsWidthAndHides_data();
    void clickStoresIdEmitsWidthAndHides();

private:
    static void store(const QVariant& value)
    {
        QScopedPointer<QSettings> settings(openBoardSettings(nullptr));
        if (value.isValid())
            settings->setValue("pen_width", value);
        else
            settings->remove("pen_width");
        settings->sync();
    }
};

void TestSizeMenu::form()
{
    QWidget toolbar;
    SizeMenu menu(&toolbar);
    QCOMPARE(menu.parentWidget(), &toolbar);
    QCOMPARE(menu.windowFlags() & Qt::WindowType_Mask, Qt::Popup);
    QVERIFY(menu.windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(menu.windowFlags().testFlag(Qt::NoDropShadowWindowHint));
    QVERIFY(menu.testAttribute(Qt::WA_StyledBackground));
    QVERIFY(menu.findChild<QFrame*>("frame_sizemenu_layout"));
    QCOMPARE(menu.buttonGroup()->button(1)->objectName(), QString("pushButton_big"));
    QCOMPARE(menu.buttonGroup()->button(2)->objectName(), QString("pushButton_mid"));
    QCOMPARE(menu.buttonGroup()->button(3)->objectName(), QString("pushButton_small"));
}

void TestSizeMenu::storedWidthReachesCanvasAtStart_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("storedAfter");
    QTest::newRow("1 is big") << QVariant(1) << 6 << 1;
    QTest::newRow("2 is middle") << QVariant(2) << 3 << 2;
    QTest::newRow("3 is small") << QVariant(3) << 1 << 3;
    QTest::newRow("7 is small") << QVariant(7) << 1 << 7;
    QTest::newRow("0 is small") << QVariant(0) << 1 << 0;
    QTest::newRow("absent means 3") << QVariant() << 1 << 3;
}

void TestSizeMenu::storedWidthReachesCanvasAtStart()
{
    QFETCH(QVariant, stored);
    QFETCH(int, width);
    QFETCH(int, storedAfter);
    store(stored);
    SizeMenu menu;
    QSignalSpy spy(&menu, &SizeMenu::sg_sizeChange);
    // Sent from the event loop, after whoever created the menu has connected to it.
    QCOMPARE(spy.count(), 0);
    QVERIFY(spy.wait(1000));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), width);
    // The checked entry stays the small one whatever was stored.
    QCOMPARE(menu.buttonGroup()->checkedId(), 3);
    QScopedPointer<QSettings> settings(openBoardSettings(nullptr));
    QCOMPARE(settings->value("pen_width").toInt(), storedAfter);
}

void TestSizeMenu::clickStoresIdEmitsWidthAndHides_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("width");
    QTest::newRow("big") << 1 << 6;
    QTest::newRow("mid") << 2 << 3;
    QTest::newRow("small") << 3 << 1;
}

void TestSizeMenu::clickStoresIdEmitsWidthAndHides()
{
    QFETCH(int, id);
    QFETCH(int, width);
    store(QVariant());
    SizeMenu menu;
    QSignalSpy spy(&menu, &SizeMenu::sg_sizeChange);
    QVERIFY(spy.wait(1000));
    menu.setFixedSize(90, 120);
    menu.show();
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QTest::mouseClick(menu.buttonGroup()->button(id), Qt::LeftButton);
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(1).at(0).toInt(), width);
    QVERIFY(!menu.isVisible());
    QScopedPointer<QSettings> settings(openBoardSettings(nullptr));
    QCOMPARE(settings->value("pen_width").toInt(), id);
}

QTEST_MAIN(TestSizeMenu)
#include "test-size-menu.moc"
