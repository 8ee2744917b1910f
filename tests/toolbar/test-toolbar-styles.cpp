// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "toolbar/toolbar-styles.h"

#include <QtTest>

using namespace toolbar_styles;

class TestToolbarStyles : public QObject
{
    Q_OBJECT
private slots:
    void pen_data();
    void pen();
    void choose_data();
    void choose();
    void zoom_data();
    void zoom();
    void size_data();
    void size();
    void folder_data();
    void folder();
};

// The stylesheet rule that a button shows in a state, e.g. "QToolButton#x:hover".
static QString imageOf(const QString& css, const QString& selector)
{
    const QRegularExpression re(QRegularExpression::escape(selector) +
                                "\\{[^}]*border-image:url\\(([^)]*)\\);\\}");
    const QRegularExpressionMatch m = re.match(css);
    return m.hasMatch() ? m.captured(1) : QString();
}

void TestToolbarStyles::pen_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("normal");
    QTest::addColumn<QString>("active");
    QTest::addColumn<QString>("tooltip");
    QTest::newRow("brush") << "brush"
                           << ":/images/pen.png"
                           << ":/images/pen_hover.png"
                           << "CtrlForm.Btn.Pen";
    QTest::newRow("highlighter") << "highlighter"
                                 << ":/images/pen_highlighter.png"
                                 << ":/images/pen_highlighter_hover.png"
                                 << "CtrlForm.Btn.MarkPen";
    QTest::newRow("delayerase") << "delayerase"
                                << ":/images/pen_delay_erase.png"
                                << ":/images/pen_delay_erase_selected.png"
                                << "CtrlForm.Btn.MarkPen";
    QTest::newRow("unknown") << "rect" << QString() << QString() << QString();
}

void TestToolbarStyles::pen()
{
    QFETCH(QString, kind);
    QFETCH(QString, normal);
    QFETCH(QString, active);
    QFETCH(QString, tooltip);
    const QString css = penStyle(kind);
    QCOMPARE(QString(penTooltipKey(kind)), tooltip);
    if (normal.isEmpty()) {
        QVERIFY(css.isNull());
        return;
    }
    const QString sel = "QToolButton#toolButton_pen";
    QCOMPARE(imageOf(css, sel), normal);
    QVERIFY(css.contains(sel + "{color:transparent;"));
    for (const char* state : {":hover", ":pressed", ":checked"})
        QCOMPARE(imageOf(css, sel + state), active);
}

void TestToolbarStyles::choose_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("normal");
    QTest::addColumn<QString>("active");
    QTest::newRow("choose") << "choose"
                            << ":/images/choose_menu.png"
                            << ":/images/choose_hover_menu.png";
    QTest::newRow("drag") << "drag"
                          << ":/images/drag_menu.png"
                          << ":/images/drag_hover_menu.png";
    QTest::newRow("other") << "move"
                           << ":/images/drag_menu.png"
                           << ":/images/drag_hover_menu.png";
}

void TestToolbarStyles::choose()
{
    QFETCH(QString, mode);
    QFETCH(QString, normal);
    QFETCH(QString, active);
    const QString css = chooseStyle(mode);
    const QString sel = "QToolButton#toolButton_choose";
    QCOMPARE(imageOf(css, sel), normal);
    for (const char* state : {":hover", ":pressed", ":checked"})
        QCOMPARE(imageOf(css, sel + state), active);
}

void TestToolbarStyles::zoom_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("normal");
    QTest::addColumn<QString>("active");
    QTest::newRow("magnifier") << 1 << ":/images/tool_fangdajing_default_d.png"
                               << ":/images/tool_fangdajing_press_p.png";
    QTest::newRow("timer") << 2 << ":/images/tool_time_default_d.png"
                           << ":/images/tool_time_press_p.png";
    QTest::newRow("screenshot") << 3 << ":/images/tool_jieping_default_d.png"
                                << ":/images/tool_jieping_press_p.png";
    QTest::newRow("unknown") << 4 << QString() << QString();
}

void TestToolbarStyles::zoom()
{
    QFETCH(int, type);
    QFETCH(QString, normal);
    QFETCH(QString, active);
    const QString css = zoomStyle(type);
    if (normal.isEmpty()) {
        QVERIFY(css.isNull());
        return;
    }
    const QString sel = "QToolButton#toolButton_zoom";
    QCOMPARE(imageOf(css, sel), normal);
    QCOMPARE(imageOf(css, sel + ":hover"), active);
    QCOMPARE(imageOf(css, sel + ":pressed"), active);
    QVERIFY(!css.contains(":checked"));
}

void TestToolbarStyles::size_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("normal");
    QTest::newRow("1") << 1 << ":/images/tool_cuxi_mini.png";
    QTest::newRow("3") << 3 << ":/images/tool_cuxi_mid.png";
    QTest::newRow("6") << 6 << ":/images/tool_cuxi_big.png";
    QTest::newRow("2 keeps the image") << 2 << QString();
    QTest::newRow("0 keeps the image") << 0 << QString();
}

void TestToolbarStyles::size()
{
    QFETCH(int, width);
    QFETCH(QString, normal);
    const QString css = sizeStyle(width);
    if (normal.isEmpty()) {
        QVERIFY(css.isNull());
        return;
    }
    QVERIFY(css.startsWith("QToolButton{"));
    QCOMPARE(imageOf(css, "QToolButton"), normal);
    QCOMPARE(imageOf(css, "QToolButton:hover"), QString(":/images/tool_cuxi_press.png"));
    QCOMPARE(imageOf(css, "QToolButton:pressed"), QString(":/images/tool_cuxi_press.png"));
}

void TestToolbarStyles::folder_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<QString>("pen");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("normal");
    QTest::addColumn<QString>("active");

    QTest::newRow("0 horizontal") << 0 << true << "brush"
                                  << "choose"
                                  << ":/images/tool_folder.png"
                                  << ":/images/tool_folder_hover.png";
    QTest::newRow("0 vertical") << 0 << false << "brush"
                                << "choose"
                                << ":/images/tool_folder_up.png"
                                << ":/images/tool_folder_up_hover.png";
    QTest::newRow("1 brush") << 1 << true << "brush"
                             << "choose"
                             << ":/images/pen_menu.png"
                             << ":/images/pen_menu_hover.png";
    QTest::newRow("1 highlighter") << 1 << true << "highlighter"
                                   << "choose"
                                   << ":/images/pen_highlighter_menu.png"
                                   << ":/images/pen_highlighter_menu_hover.png";
    QTest::newRow("1 delayerase") << 1 << false << "delayerase"
                                  << "choose"
                                  << ":/images/pen_delay_erase.png"
                                  << ":/images/pen_delay_erase_selected.png";
    QTest::newRow("2") << 2 << true << "brush"
                       << "choose"
                       << ":/images/rect.png"
                       << ":/images/rect_hover.png";
    QTest::newRow("3") << 3 << true << "brush"
                       << "choose"
                       << ":/images/line.png"
                       << ":/images/line_hover.png";
    QTest::newRow("4") << 4 << true << "brush"
                       << "choose"
                       << ":/images/ellipse.png"
                       << ":/images/ellipse_hover.png";
    QTest::newRow("5 swapped") << 5 << true << "brush"
                               << "choose"
                               << ":/images/text_folder_hover.png"
                               << ":/images/text_folder.png";
    QTest::newRow("6 choose") << 6 << true << "brush"
                              << "choose"
                              << ":/images/choose.png"
                              << ":/images/choose_hover.png";
    QTest::newRow("6 drag") << 6 << true << "brush"
                            << "drag"
                            << ":/images/tool_drag.png"
                            << ":/images/tool_drag_hover.png";
    QTest::newRow("7") << 7 << true << "brush"
                       << "choose"
                       << ":/images/tool_arrow_default.png"
                       << ":/images/tool_arrow_hover.png";
    QTest::newRow("8") << 8 << true << "brush"
                       << "choose"
                       << ":/images/tool_erase_default.png"
                       << ":/images/tool_erase_hover.png";
    QTest::newRow("9 changes nothing") << 9 << true << "brush"
                                       << "choose" << QString() << QString();
    QTest::newRow("none checked") << -1 << true << "brush"
                                  << "choose" << QString() << QString();
}

void TestToolbarStyles::folder()
{
    QFETCH(int, id);
    QFETCH(bool, horizontal);
    QFETCH(QString, pen);
    QFETCH(QString, mode);
    QFETCH(QString, normal);
    QFETCH(QString, active);
    const QString css = folderStyle(id, horizontal, pen, mode);
    if (normal.isEmpty()) {
        QVERIFY(css.isNull());
        return;
    }
    const QString sel = "QToolButton#toolButton_folder";
    QCOMPARE(imageOf(css, sel), normal);
    QCOMPARE(imageOf(css, sel + ":hover"), active);
    QCOMPARE(imageOf(css, sel + ":pressed"), active);
    // Tool pictures keep the text colour; only the plain folder hides it.
    QCOMPARE(css.contains("color:transparent"), id == 0);
}

QTEST_APPLESS_MAIN(TestToolbarStyles)
#include "test-toolbar-styles.moc"
