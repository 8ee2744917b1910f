// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/font-fallback.h"
#include "app/pallo-translator.h"
#include "common/style-sheet-loader.h"
#include "tests/test-output.h"
#include "toolbar/ctrl-form.h"
#include "toolbar/font-size-menu.h"
#include "toolbar/popup-menu-wdiget.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QToolButton>
#include <QtTest>

// Renders the toolbar as a presenter sees it, with the board's stylesheet and texts,
// and keeps the pictures in $PALLO_TEST_OUTPUT.
class TestCtrlFormLook : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void pictures_data();
    void pictures();

private:
    static QImage shot(QWidget* w, const QString& name);
    static int inkPixels(const QImage& image);
};

void TestCtrlFormLook::initTestCase()
{
    QVERIFY(QFile::exists(":/images/qss.css"));
    QVERIFY(!QImage(":/images/pen.png").isNull());
    QVERIFY(loadApplicationStyleSheet());
    installFontFallbacks();
}

QImage TestCtrlFormLook::shot(QWidget* w, const QString& name)
{
    const QImage image = w->grab().toImage();
    keepPicture(image, name);
    return image;
}

// Pixels that are neither the white background nor transparent: pictures and lines.
int TestCtrlFormLook::inkPixels(const QImage& image)
{
    int n = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (c.alpha() > 0 && c.lightness() < 200)
                ++n;
        }
    }
    return n;
}

void TestCtrlFormLook::pictures_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("pen");
    QTest::addColumn<QString>("zoom");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("timer");
    QTest::addColumn<QString>("big");

    QTest::newRow("en") << "english"
                        << "pencil"
                        << "tool selection right-click optional"
                        << "text right-click optional size"
                        << "Timer"
                        << "L";
    QTest::newRow("zh") << "chinese"
                        << "铅笔"
                        << "工具选择,单击右键可选"
                        << "文字,单击右键可选大小"
                        << "计时器"
                        << "大";
}

void TestCtrlFormLook::pictures()
{
    QFETCH(QString, language);
    QFETCH(QString, pen);
    QFETCH(QString, zoom);
    QFETCH(QString, text);
    QFETCH(QString, timer);
    QFETCH(QString, big);
    const QString tag = QTest::currentDataTag();

    PalloTranslator translator(language);
    QCoreApplication::installTranslator(&translator);
    CtrlForm form;
    QCoreApplication::removeTranslator(&translator);
    form.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    form.move(100, 100);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));

    auto button = [&form](const char* name) { return form.findChild<QToolButton*>(name); };
    QCOMPARE(button("toolButton_pen")->toolTip(), pen);
    QCOMPARE(button("toolButton_zoom")->toolTip(), zoom);
    QCOMPARE(button("toolButton_text")->toolTip(), text);
    QCOMPARE(form.toolsMenu()->findChild<QLabel*>("label_timer_text")->text(), timer);
    QCOMPARE(form.fontSizeMenu()->buttonGroup()->button(1)->text(), big);
    // Captions are the tool names the canvas understands, whatever the language.
    QCOMPARE(button("toolButton_pen")->text(), QString("brush"));

    const QImage horizontal = shot(&form, "toolbar-horizontal-" + tag);
    QVERIFY(horizontal.width() > 4 * horizontal.height());
    QVERIFY(inkPixels(horizontal) > 500);

    auto* folder = button("toolButton_folder");
    QTest::mouseClick(folder, Qt::LeftButton);
    QVERIFY(form.isCollapsed());
    const QImage folded = shot(&form, "toolbar-folded-" + tag);
    QCOMPARE(folded.size(), folder->size());
    QCOMPARE(folded.size(), form.findChild<QFrame*>("frame_folder")->size());
    QVERIFY(inkPixels(folded) > 20);
    QTest::mouseClick(folder, Qt::LeftButton);

    QTest::mouseClick(button("toolButton_rotate"), Qt::LeftButton);
    QVERIFY(!form.isHorizontal());
    const QImage vertical = shot(&form, "toolbar-vertical-" + tag);
    QVERIFY(vertical.height() > 4 * vertical.width());
    QVERIFY(inkPixels(vertical) > 500);
    QCOMPARE(vertical.size(), horizontal.size().transposed());

    QTest::mouseClick(folder, Qt::LeftButton);
    const QImage foldedUpright = shot(&form, "toolbar-vertical-folded-" + tag);
    QCOMPARE(foldedUpright.size(), folder->size());

    // The menus as they open.
    form.toolsMenu()->setFixedSize(120, 140);
    form.toolsMenu()->show();
    QVERIFY(QTest::qWaitForWindowExposed(form.toolsMenu()));
    shot(form.toolsMenu(), "tools-menu-" + tag);
    form.toolsMenu()->hide();
    form.fontSizeMenu()->setFixedSize(90, 120);
    form.fontSizeMenu()->show();
    QVERIFY(QTest::qWaitForWindowExposed(form.fontSizeMenu()));
    shot(form.fontSizeMenu(), "font-size-menu-" + tag);
    form.fontSizeMenu()->hide();
}

int main(int argc, char** argv)
{
    // Pictures at a scale factor of 1.
    qputenv("QT_FONT_DPI", "96");
    QApplication app(argc, argv);
    TestCtrlFormLook test;
    return QTest::qExec(&test, argc, argv);
}

#include "test-ctrl-form-look.moc"
