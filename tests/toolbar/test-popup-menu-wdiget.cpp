// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/popup-menu-wdiget.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QFrame>
#include <QLabel>
#include <QtTest>

class TestPopupMenuWdiget : public QObject
{
    Q_OBJECT
private slots:
    void form();
    void clickEmitsOnceAndHides_data();
    void clickEmitsOnceAndHides();
    void hoverLightsEntry_data();
    void hoverLightsEntry();
    void otherEventsLeaveStyle();

private:
    static QColor captionColour(QLabel* label)
    {
        label->ensurePolished();
        return label->palette().color(QPalette::WindowText);
    }
};

void TestPopupMenuWdiget::form()
{
    PopupMenuWdiget menu;
    QVERIFY(!menu.parentWidget());
    QCOMPARE(menu.windowFlags() & Qt::WindowType_Mask, Qt::Popup);
    QVERIFY(menu.windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(menu.windowFlags().testFlag(Qt::NoDropShadowWindowHint));
    QVERIFY(menu.testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(menu.findChild<QFrame*>("frame_popmenu"));
    const char* buttons[] = {"toolButton_menu_zoom", "toolButton_menu_timer",
                             "toolButton_menu_screenshot"};
    for (int id = 1; id <= 3; ++id)
        QCOMPARE(menu.buttonGroup()->button(id)->objectName(), QString(buttons[id - 1]));
    auto* caption = menu.findChild<QLabel*>("label_timer_text");
    QVERIFY(caption);
    QCOMPARE(caption->parentWidget()->objectName(), QString("toolButton_menu_timer"));
    QCOMPARE(caption->text(), QString("PopupMenuWidget.Btn.Clock"));
    QCOMPARE(caption->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QVERIFY(menu.findChild<QLabel*>("label_zoom_icon"));
    QVERIFY(menu.findChild<QLabel*>("label_screenshot_icon"));
    QCOMPARE(menu.findChild<QLabel*>("label_screenshot_text")->text(),
             QString("PopupMenuWidget.Btn.ScreenShot"));
}

void TestPopupMenuWdiget::clickEmitsOnceAndHides_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("magnifier") << 1;
    QTest::newRow("timer") << 2;
    QTest::newRow("screenshot") << 3;
}

void TestPopupMenuWdiget::clickEmitsOnceAndHides()
{
    QFETCH(int, id);
    PopupMenuWdiget menu;
    menu.setFixedSize(120, 140);
    // Qt 6 lights the entry under the pointer when the menu appears: keep it away.
    QCursor::setPos(menu.geometry().bottomRight() + QPoint(300, 300));
    menu.show();
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QSignalSpy spy(&menu, &PopupMenuWdiget::sg_buttonType);
    QTest::mouseClick(menu.buttonGroup()->button(id), Qt::LeftButton);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), id);
    QVERIFY(!menu.isVisible());
    QTest::qWait(50);
    QCOMPARE(spy.count(), 1);
}

void TestPopupMenuWdiget::hoverLightsEntry_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("hoverIcon");
    QTest::newRow("zoom") << "toolButton_menu_zoom"
                          << "label_zoom"
                          << ":/images/tool_menu_magnifier_hover.png";
    QTest::newRow("timer") << "toolButton_menu_timer"
                           << "label_timer"
                           << ":/images/tool_menu_timer_hover.png";
    QTest::newRow("screenshot") << "toolButton_menu_screenshot"
                                << "label_screenshot"
                                << ":/images/tool_menu_cut_hover.png";
}

void TestPopupMenuWdiget::hoverLightsEntry()
{
    QFETCH(QString, button);
    QFETCH(QString, prefix);
    QFETCH(QString, hoverIcon);
    PopupMenuWdiget menu;
    menu.setFixedSize(120, 140);
    menu.show();
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    auto* b = menu.findChild<QWidget*>(button);
    auto* caption = menu.findChild<QLabel*>(prefix + "_text");
    const QColor grey("#808EA0"), blue("#1D92FD");
    QCOMPARE(captionColour(caption), grey);
    QVERIFY(!b->styleSheet().contains(hoverIcon));

    QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QCoreApplication::sendEvent(b, &enter);
    QCOMPARE(captionColour(caption), blue);
    QVERIFY(b->styleSheet().contains(
        QString("QLabel#%1_icon{border-image:url(%2);}").arg(prefix, hoverIcon)));
    // The other entries stay grey.
    for (QLabel* other : menu.findChildren<QLabel*>(QRegularExpression("_text$"))) {
        if (other != caption)
            QCOMPARE(captionColour(other), grey);
    }

    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(b, &leave);
    QCOMPARE(captionColour(caption), grey);
    QVERIFY(!b->styleSheet().contains(hoverIcon));
}

void TestPopupMenuWdiget::otherEventsLeaveStyle()
{
    PopupMenuWdiget menu;
    auto* b = menu.findChild<QWidget*>("toolButton_menu_zoom");
    const QString before = b->styleSheet();
    // Qt 6 reads the pointer's position from a hover event: send a real one.
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QHoverEvent e(QEvent::HoverMove, QPointF(2, 2), QPointF(1, 1));
    QT_WARNING_POP
    QCoreApplication::sendEvent(b, &e);
    QCOMPARE(b->styleSheet(), before);
}

QTEST_MAIN(TestPopupMenuWdiget)
#include "test-popup-menu-wdiget.moc"
