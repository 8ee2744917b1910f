// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "common/board-settings.h"
#include "app/pallo-translator.h"
#include "toolbar/font-size-menu.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QFrame>
#include <QSettings>
#include <QtTest>

class TestFontSizeMenu : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void form();
    void captionsComeFromTheLanguageFile_data();
    void captionsComeFromTheLanguageFile();
    void storedSizeType_data();
    void storedSizeType();
    void clickStoresEmitsAndHides_data();
    void clickStoresEmitsAndHides();

private:
    static void store(const QVariant& value)
    {
        QScopedPointer<QSettings> settings(openBoardSettings(nullptr));
        if (value.isValid())
            settings->setValue("font_size", value);
        else
            settings->remove("font_size");
        settings->sync();
    }
};

void TestFontSizeMenu::init()
{
    store(QVariant());
}

void TestFontSizeMenu::form()
{
    FontSizeMenu menu;
    QVERIFY(!menu.parentWidget());
    QCOMPARE(menu.windowFlags() & Qt::WindowType_Mask, Qt::Popup);
    QVERIFY(menu.windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(menu.windowFlags().testFlag(Qt::NoDropShadowWindowHint));
    QVERIFY(menu.testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(menu.findChild<QFrame*>("frame_font_size_layout"));
    QCOMPARE(menu.buttonGroup()->button(1)->objectName(), QString("toolButton_bigFontSize"));
    QCOMPARE(menu.buttonGroup()->button(2)->objectName(), QString("toolButton_midFontSize"));
    QCOMPARE(menu.buttonGroup()->button(3)->objectName(), QString("toolButton_smallFontSize"));
    QCOMPARE(menu.buttonGroup()->checkedId(), 3);
    // Nothing stored yet: large text.
    QCOMPARE(menu.sizeType(), 1);
    QCOMPARE(menu.fontSize(), 26);
}

void TestFontSizeMenu::captionsComeFromTheLanguageFile_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("captions");
    QTest::newRow("english") << "english" << QStringList{"L", "M", "S"};
    QTest::newRow("chinese") << "chinese" << QStringList{"大", "中", "小"};
}

void TestFontSizeMenu::captionsComeFromTheLanguageFile()
{
    QFETCH(QString, language);
    QFETCH(QStringList, captions);
    PalloTranslator translator(language);
    QCoreApplication::installTranslator(&translator);
    FontSizeMenu menu;
    QCoreApplication::removeTranslator(&translator);
    for (int id = 1; id <= 3; ++id)
        QCOMPARE(menu.buttonGroup()->button(id)->text(), captions.at(id - 1));
}

void TestFontSizeMenu::storedSizeType_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("points");
    QTest::newRow("absent") << QVariant() << 26;
    QTest::newRow("1") << QVariant(1) << 26;
    QTest::newRow("2") << QVariant(2) << 17;
    QTest::newRow("3") << QVariant(3) << 11;
    QTest::newRow("0") << QVariant(0) << 26;
    QTest::newRow("4") << QVariant(4) << 26;
    QTest::newRow("text") << QVariant("big") << 26;
}

void TestFontSizeMenu::storedSizeType()
{
    QFETCH(QVariant, stored);
    QFETCH(int, points);
    store(stored);
    FontSizeMenu menu;
    QCOMPARE(menu.fontSize(), points);
    // The checked entry does not follow the stored size.
    QCOMPARE(menu.buttonGroup()->checkedId(), 3);
}

void TestFontSizeMenu::clickStoresEmitsAndHides_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("points");
    QTest::newRow("big") << 1 << 26;
    QTest::newRow("mid") << 2 << 17;
    QTest::newRow("small") << 3 << 11;
}

void TestFontSizeMenu::clickStoresEmitsAndHides()
{
    QFETCH(int, id);
    QFETCH(int, points);
    FontSizeMenu menu;
    menu.setFixedSize(90, 120);
    menu.show();
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QSignalSpy spy(&menu, &FontSizeMenu::sg_fontSize);
    QTest::mouseClick(menu.buttonGroup()->button(id), Qt::LeftButton);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), points);
    QVERIFY(!menu.isVisible());
    QCOMPARE(menu.sizeType(), id);
    QCOMPARE(menu.fontSize(), points);
    QScopedPointer<QSettings> settings(openBoardSettings(nullptr));
    QCOMPARE(settings->value("font_size").toInt(), id);
    // A new menu (the next start) begins with the stored size.
    FontSizeMenu next;
    QCOMPARE(next.fontSize(), points);
}

QTEST_MAIN(TestFontSizeMenu)
#include "test-font-size-menu.moc"
