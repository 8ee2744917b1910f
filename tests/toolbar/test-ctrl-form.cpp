// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/graphics-view.h"
#include "common/board-settings.h"
#include "common/scale-factor.h"
#include "common/style-sheet-loader.h"
#include "toolbar/control-menu.h"
#include "toolbar/ctrl-form.h"
#include "toolbar/edge-hide-dialog.h"
#include "toolbar/font-size-menu.h"
#include "toolbar/pen-menu.h"
#include "toolbar/popup-menu-wdiget.h"
#include "toolbar/size-menu.h"
#include "toolbar/toolbar-geometry.h"
#include "tools/screen-shot-widget.h"
#include "tools/zoom-widget.h"

#include <QAbstractButton>
#include <QApplication>
#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QCursor>
#include <QFrame>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QToolButton>
#include <QtTest>

#include <algorithm>

// Records the toolbar's signals in the order they arrive, e.g. "test", "figure:rect".
class SignalLog : public QObject
{
public:
    explicit SignalLog(CtrlForm* form)
    {
        connect(form, &CtrlForm::sg_figure, this, [this](QString n) { log << "figure:" + n; });
        connect(form, &CtrlForm::sg_choose, this, [this] { log << "choose"; });
        connect(form, &CtrlForm::sg_test, this, [this] { log << "test"; });
        connect(form, &CtrlForm::sg_width, this,
                [this](int w) { log << QString("width:%1").arg(w); });
        connect(form, &CtrlForm::sg_color, this, [this](QString c) { log << "color:" + c; });
        connect(form, &CtrlForm::sg_undo, this, [this] { log << "undo"; });
        connect(form, &CtrlForm::sg_redo, this, [this] { log << "redo"; });
        connect(form, &CtrlForm::sg_clear, this, [this] { log << "clear"; });
        connect(form, &CtrlForm::sg_timer, this, [this] { log << "timer"; });
        connect(form, &CtrlForm::sg_changeFontSize, this,
                [this](int s) { log << QString("font:%1").arg(s); });
    }
    QStringList log;
};

namespace {
double scale()
{
    return screenScaleFactor();
}
int px(int logical)
{
    return toolbar_geometry::scaled(logical, scale());
}
void sendMouse(QWidget* w, QEvent::Type type, const QPoint& global, Qt::MouseButton button,
               Qt::MouseButtons buttons)
{
    QMouseEvent e(type, w->mapFromGlobal(global), global, button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(w, &e);
}
void sendCrossing(QWidget* w, QEvent::Type type)
{
    QEvent e(type);
    QCoreApplication::sendEvent(w, &e);
}
QStringList toolOrder(CtrlForm* form)
{
    auto* box = form->findChild<QBoxLayout*>("horizontalLayout");
    QStringList names;
    for (int i = 0; i < box->count(); ++i)
        names << box->itemAt(i)->widget()->objectName();
    return names;
}
} // namespace

class TestCtrlForm : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void widgetTree();
    void toolAndColourGroups();
    void controlsTakeNoFocus();
    void menusHangOffTheirButtons();
    void storedColourIsClickedAtStart_data();
    void storedColourIsClickedAtStart();
    void rememberedFontSizeIsSentOnce_data();
    void rememberedFontSizeIsSentOnce();
    void leavingSelectModeEmitsTestFirst();
    void chooseEmitsOnlyChoose();
    void startsOnTheTopEdgeNearTheRight();
    void canvasFirstMapsBeforeTheMenusExist();
    void dragFromControlMenu();
    void circleEditModeToggles();
    void penKinds_data();
    void penKinds();
    void steppingBand();
    void rightClickOpensMenus();
    void widths_data();
    void widths();
    void colourClickIsStored();
    void undoRedoClear();
    void closeHidesOnly();
    void showOrHide();
    void hostCommand_data();
    void hostCommand();
    void toolTypes_data();
    void toolTypes();
    void closedToolsOpenAfresh();
    void savedScreenshotGoesOnAndSelects();
    void timerFromToolsMenu();
    void finishedScreenshotSelects();
    void dragSnapsFlush();
    void foldAndUnfold();
    void foldKeepsMargin();
    void foldedImageFollowsTool_data();
    void foldedImageFollowsTool();
    void rotateTwice();
    void rotateKeepsMargin();
    void menuPlacement();
    void menuPlacementFlipsNearBottom();
    void docksAfterLeaving();
    void docksTopBeforeLeft();
    void dockCheckRestsAwayFromEdgesUntilMoved();
    void noDockingWhileMenuOpenOrFolded();
    void noDockingWhilePointerWhereAMenuWas();
    void stripBringsToolbarBack();
    void redockReusesStrip();
    void deletingToolbarDeletesView();

private:
    // A shown toolbar, floating as its own window as it does in desktop operation.
    CtrlForm* makeFloating(const QPoint& at = QPoint(400, 300));
    static void storeSetting(const char* key, const QVariant& value);
    static void press(QWidget* w, Qt::MouseButton b, const QPoint& local);

    CtrlForm* m_form = nullptr;
};

void TestCtrlForm::storeSetting(const char* key, const QVariant& value)
{
    QScopedPointer<QSettings> s(openBoardSettings(nullptr));
    if (value.isValid())
        s->setValue(key, value);
    else
        s->remove(key);
    s->sync();
}

void TestCtrlForm::press(QWidget* w, Qt::MouseButton b, const QPoint& local)
{
    QMouseEvent e(QEvent::MouseButtonPress, local, w->mapToGlobal(local), b, b, Qt::NoModifier);
    QCoreApplication::sendEvent(w, &e);
}

void TestCtrlForm::init()
{
    // Keep the real pointer out of the way; the tests send crossings themselves.
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    storeSetting("pen_color", QVariant());
    storeSetting("font_size", QVariant());
    storeSetting("pen_width", QVariant());
}

void TestCtrlForm::cleanup()
{
    delete m_form;
    m_form = nullptr;
}

CtrlForm* TestCtrlForm::makeFloating(const QPoint& at)
{
    m_form = new CtrlForm;
    m_form->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    m_form->move(at);
    m_form->show();
    if (!QTest::qWaitForWindowExposed(m_form))
        return nullptr;
    return m_form;
}

void TestCtrlForm::widgetTree()
{
    CtrlForm form;
    const QStringList names = {
        "frame_folder",       "toolButton_folder", "frame_iback",     "toolButton_choose",
        "toolButton_pen",     "toolButton_drag",   "toolButton_rect", "toolButton_line",
        "toolButton_ellipse", "toolButton_arrow",  "toolButton_text", "toolButton_erase",
        "widget_sp1",         "toolButton_size",   "widget_sp2",      "checkBox_black",
        "checkBox_blue",      "checkBox_red",      "checkBox_white",  "checkBox_green",
        "checkBox_yellow",    "widget_sp3",        "toolButton_undo", "toolButton_redo",
        "widget_sp4",         "toolButton_clear",  "widget_3",        "toolButton_zoom",
        "toolButton_rotate",  "toolButton_close"};
    for (const QString& n : names)
        QVERIFY2(form.findChild<QWidget*>(n), qPrintable(n));
    for (const char* l : {"gridLayout_5", "gridLayout_2", "gridLayout_3", "horizontalLayout_2",
                          "horizontalLayout", "horizontalLayout_6", "gridLayout",
                          "horizontalLayout_4", "horizontalLayout_5", "horizontalLayout_7"})
        QVERIFY2(form.findChild<QLayout*>(l), l);
    QVERIFY(form.windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(form.testAttribute(Qt::WA_StyledBackground));
    QCOMPARE(form.windowTitle(), QString("Form"));
    auto* sep = form.findChild<QWidget*>("widget_sp1");
    QCOMPARE(sep->minimumSize(), sep->maximumSize());
    QVERIFY(sep->maximumHeight() > sep->maximumWidth());
    // The hidden drag button is never shown.
    QVERIFY(form.findChild<QWidget*>("toolButton_drag")->isHidden());
    QCOMPARE(form.findChild<QToolButton*>("toolButton_clear")->shortcut(), QKeySequence("Del"));
    QCOMPARE(form.findChild<QToolButton*>("toolButton_text")->toolTip(),
             QString("CtrlForm.Tips.WordTips"));
    QCOMPARE(form.findChild<QToolButton*>("toolButton_zoom")->toolTip(),
             QString("CtrlForm.Tips.ToolTips"));
    QCOMPARE(form.findChild<QToolButton*>("toolButton_close")->text(),
             QString("CtrlForm.Btn.Close"));
}

void TestCtrlForm::toolAndColourGroups()
{
    CtrlForm form;
    QButtonGroup* tools = form.figureGroup();
    QVERIFY(tools->exclusive());
    const QStringList buttons = {"toolButton_pen",     "toolButton_rect",  "toolButton_line",
                                 "toolButton_ellipse", "toolButton_text",  "toolButton_choose",
                                 "toolButton_arrow",   "toolButton_erase", "toolButton_drag"};
    const QStringList texts = {"brush",  "rect",  "line",  "ellipse", "text",
                               "choose", "arrow", "erase", "drag"};
    for (int id = 1; id <= 9; ++id) {
        QCOMPARE(tools->button(id)->objectName(), buttons.at(id - 1));
        QCOMPARE(tools->button(id)->text(), texts.at(id - 1));
    }
    QCOMPARE(tools->checkedId(), 1);

    const QStringList boxes = {"checkBox_black", "checkBox_blue",  "checkBox_red",
                               "checkBox_white", "checkBox_green", "checkBox_yellow"};
    const QStringList colours = {"#000000", "#0000ff", "#ff0000", "#ffffff", "#4df013", "#fff11d"};
    for (int id = 1; id <= 6; ++id) {
        QCOMPARE(form.colorGroup()->button(id)->objectName(), boxes.at(id - 1));
        QCOMPARE(form.colorGroup()->button(id)->text(), colours.at(id - 1));
    }
}

void TestCtrlForm::controlsTakeNoFocus()
{
    CtrlForm form;
    const QStringList names = {
        "toolButton_clear",  "toolButton_ellipse", "toolButton_line",  "toolButton_pen",
        "toolButton_rect",   "checkBox_black",     "checkBox_blue",    "checkBox_red",
        "checkBox_white",    "checkBox_green",     "checkBox_yellow",  "toolButton_redo",
        "toolButton_text",   "toolButton_undo",    "toolButton_arrow", "toolButton_erase",
        "toolButton_choose", "toolButton_zoom",    "toolButton_size",  "toolButton_rotate",
        "toolButton_folder", "toolButton_close"};
    QCOMPARE(names.size(), 22);
    for (const QString& n : names) {
        auto* w = form.findChild<QWidget*>(n);
        QCOMPARE(w->focusPolicy(), Qt::NoFocus);
        QCOMPARE(w->cursor().shape(), Qt::PointingHandCursor);
    }
}

void TestCtrlForm::menusHangOffTheirButtons()
{
    CtrlForm form;
    auto button = [&form](const char* n) { return form.findChild<QToolButton*>(n); };
    QCOMPARE(button("toolButton_zoom")->menu(), form.toolsMenu());
    QCOMPARE(button("toolButton_pen")->menu(), form.penMenu());
    QCOMPARE(button("toolButton_choose")->menu(), form.controlMenu());
    QCOMPARE(button("toolButton_text")->menu(), form.fontSizeMenu());
    for (const char* n :
         {"toolButton_zoom", "toolButton_pen", "toolButton_choose", "toolButton_text"})
        QCOMPARE(button(n)->popupMode(), QToolButton::MenuButtonPopup);
    QVERIFY(!form.toolsMenu()->parent());
    QVERIFY(!form.penMenu()->parent());
    QVERIFY(!form.controlMenu()->parent());
    QVERIFY(!form.fontSizeMenu()->parent());
    QCOMPARE(form.sizeMenu()->parentWidget(), &form);
    QVERIFY(form.canvasView());
    QCOMPARE(form.canvasView()->ctrlForm(), &form);
}

void TestCtrlForm::storedColourIsClickedAtStart_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QString>("checked");
    QTest::addColumn<QString>("storedAfter");
    QTest::newRow("absent") << QVariant() << "checkBox_red"
                            << "#ff0000";
    QTest::newRow("blue") << QVariant("#0000ff") << "checkBox_blue"
                          << "#0000ff";
    QTest::newRow("unknown") << QVariant("#123456") << QString() << "#123456";
}

void TestCtrlForm::storedColourIsClickedAtStart()
{
    QFETCH(QVariant, stored);
    QFETCH(QString, checked);
    QFETCH(QString, storedAfter);
    storeSetting("pen_color", stored);
    CtrlForm form;
    QAbstractButton* box = form.colorGroup()->checkedButton();
    QCOMPARE(box ? box->objectName() : QString(), checked);
    QScopedPointer<QSettings> s(openBoardSettings(nullptr));
    QCOMPARE(s->value("pen_color").toString(), storedAfter);
}

void TestCtrlForm::rememberedFontSizeIsSentOnce_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("points");
    QTest::newRow("absent") << QVariant() << 26;
    QTest::newRow("2") << QVariant(2) << 17;
    QTest::newRow("3") << QVariant(3) << 11;
    QTest::newRow("4") << QVariant(4) << 26;
}

void TestCtrlForm::rememberedFontSizeIsSentOnce()
{
    QFETCH(QVariant, stored);
    QFETCH(int, points);
    storeSetting("font_size", stored);
    CtrlForm form;
    QSignalSpy spy(&form, &CtrlForm::sg_changeFontSize);
    QVERIFY(spy.wait(1000));
    QTest::qWait(50);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), points);
}

void TestCtrlForm::leavingSelectModeEmitsTestFirst()
{
    QVERIFY(makeFloating());
    SignalLog log(m_form);
    m_form->findChild<QToolButton*>("toolButton_choose")->click();
    QVERIFY(m_form->isChooseMode());
    m_form->findChild<QToolButton*>("toolButton_rect")->click();
    QVERIFY(!m_form->isChooseMode());
    m_form->findChild<QToolButton*>("toolButton_line")->click();
    QCOMPARE(log.log, QStringList({"choose", "test", "figure:rect", "figure:line"}));
}

// The board starts in select mode, where the toolbar is a window of its own: it shows at
// its natural size on the top edge, 50 pixels from the screen's right edge.
void TestCtrlForm::startsOnTheTopEdgeNearTheRight()
{
    m_form = new CtrlForm;
    m_form->enterChooseState();
    m_form->showCanvasFullScreen();
    QVERIFY(QTest::qWaitForWindowExposed(m_form));
    QVERIFY(m_form->isWindow());
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QTRY_COMPARE(m_form->frameGeometry().size(), m_form->sizeHint());
    QTRY_COMPARE(m_form->frameGeometry().top(), screen.top());
    QTRY_COMPARE(screen.right() - m_form->frameGeometry().right(), 50);
}

namespace {
// Notes the canvas and the toolbar in the order they are first shown, and whether the pen
// menu, one of the last parts of the toolbar to be built, existed when the canvas was.
class ShowOrder : public QObject
{
public:
    ShowOrder() { qApp->installEventFilter(this); }
    ~ShowOrder() override { qApp->removeEventFilter(this); }

    QStringList shown;
    bool penMenuAtCanvasShow = false;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Show)
            return false;
        QString name;
        if (qobject_cast<pallo::GraphicsView*>(watched))
            name = QStringLiteral("canvas");
        else if (qobject_cast<CtrlForm*>(watched))
            name = QStringLiteral("toolbar");
        if (name.isEmpty() || shown.contains(name))
            return false;
        shown << name;
        if (name == QLatin1String("canvas")) {
            const QWidgetList windows = QApplication::topLevelWidgets();
            penMenuAtCanvasShow = std::any_of(windows.begin(), windows.end(), [](QWidget* w) {
                return qobject_cast<PenMenu*>(w) != nullptr;
            });
        }
        return false;
    }
};
} // namespace

// Started as the board starts it, the canvas covers the screen before the toolbar's menus
// are built; the toolbar then comes up over it just as it does when built whole.
void TestCtrlForm::canvasFirstMapsBeforeTheMenusExist()
{
    storeSetting("pen_color", "#0000ff");
    ShowOrder order;
    m_form = new CtrlForm(nullptr, CtrlForm::CanvasShown::AtOnce);
    pallo::GraphicsView* view = m_form->canvasView();
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QVERIFY(view->isVisible());
    QCOMPARE(view->geometry(), screen);
    QVERIFY(!m_form->isVisible());
    QCOMPARE(order.shown, QStringList({"canvas"}));
    QVERIFY(!order.penMenuAtCanvasShow);

    m_form->enterChooseState();
    m_form->showCanvasFullScreen();
    QCOMPARE(order.shown, QStringList({"canvas", "toolbar"}));
    QVERIFY(QTest::qWaitForWindowExposed(view));
    QVERIFY(QTest::qWaitForWindowExposed(m_form));
    QVERIFY(m_form->isWindow());
    QVERIFY(m_form->isChooseMode());
    QVERIFY(view->chooseMode());
    QCOMPARE(m_form->figureGroup()->checkedId(), 6);
    QVERIFY(m_form->findChild<QCheckBox*>("checkBox_blue")->isChecked());
    QTRY_COMPARE(m_form->frameGeometry().size(), m_form->sizeHint());
    QTRY_COMPARE(m_form->frameGeometry().top(), screen.top());
    QTRY_COMPARE(screen.right() - m_form->frameGeometry().right(), 50);
}

void TestCtrlForm::chooseEmitsOnlyChoose()
{
    QVERIFY(makeFloating());
    SignalLog log(m_form);
    emit m_form->controlMenu()->sg_controlchange("choose");
    QCOMPARE(log.log, QStringList({"choose"}));
    QCOMPARE(m_form->figureGroup()->checkedId(), 6);
}

void TestCtrlForm::dragFromControlMenu()
{
    QVERIFY(makeFloating());
    SignalLog log(m_form);
    m_form->controlMenu()->buttonGroup()->button(2)->click();
    QCOMPARE(log.log, QStringList({"figure:drag"}));
    auto* choose = m_form->findChild<QToolButton*>("toolButton_choose");
    QCOMPARE(choose->text(), QString("drag"));
    QVERIFY(choose->isChecked());
    QCOMPARE(choose->toolTip(), QString("CtrlForm.Btn.Drag"));
    QVERIFY(choose->styleSheet().contains(":/images/drag_menu.png"));
    // Back to "choose": only sg_choose, no figure.
    log.log.clear();
    m_form->controlMenu()->buttonGroup()->button(1)->click();
    QCOMPARE(log.log, QStringList({"choose"}));
    QCOMPARE(choose->toolTip(), QString("CtrlForm.Btn.Select"));
    QVERIFY(choose->styleSheet().contains(":/images/choose_menu.png"));
}

void TestCtrlForm::circleEditModeToggles()
{
    QVERIFY(makeFloating());
    SignalLog log(m_form);
    m_form->CircleEditMode();
    m_form->CircleEditMode();
    QCOMPARE(log.log, QStringList({"figure:drag", "choose"}));
}

void TestCtrlForm::penKinds_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("tooltip");
    QTest::addColumn<QString>("image");
    QTest::newRow("highlighter") << 2 << "highlighter"
                                 << "CtrlForm.Btn.MarkPen"
                                 << ":/images/pen_highlighter.png";
    QTest::newRow("delayerase") << 3 << "delayerase"
                                << "CtrlForm.Btn.MarkPen"
                                << ":/images/pen_delay_erase.png";
    QTest::newRow("brush") << 1 << "brush"
                           << "CtrlForm.Btn.Pen"
                           << ":/images/pen.png";
}

void TestCtrlForm::penKinds()
{
    QFETCH(int, id);
    QFETCH(QString, name);
    QFETCH(QString, tooltip);
    QFETCH(QString, image);
    QVERIFY(makeFloating());
    m_form->findChild<QToolButton*>("toolButton_rect")->click();
    SignalLog log(m_form);
    QTest::ignoreMessage(QtDebugMsg, qPrintable(QString("\"%1\"").arg(name)));
    m_form->penMenu()->buttonGroup()->button(id)->click();
    QCOMPARE(log.log, QStringList({"figure:" + name}));
    auto* pen = m_form->findChild<QToolButton*>("toolButton_pen");
    QCOMPARE(pen->text(), name);
    QCOMPARE(pen->toolTip(), tooltip);
    QVERIFY(pen->isChecked());
    QVERIFY(pen->styleSheet().contains(QString("QToolButton#toolButton_pen{color:transparent;"
                                               "border-image:url(%1);}")
                                           .arg(image)));
}

void TestCtrlForm::steppingBand()
{
    QVERIFY(makeFloating());
    auto* pen = m_form->findChild<QToolButton*>("toolButton_pen");
    const int band = px(18);
    QVERIFY(pen->width() > band + 4 && pen->height() > band + 4);
    SignalLog log(m_form);
    // A click inside the band-free part chooses the pen again.
    QTest::mouseClick(pen, Qt::LeftButton, {}, QPoint(band + 2, band + 2));
    QCOMPARE(log.log, QStringList({"figure:brush"}));
    // In the band along the left or top edge of the checked pen button the kind steps.
    QTest::mouseClick(pen, Qt::LeftButton, {}, QPoint(band - 2, band + 2));
    QCOMPARE(log.log, QStringList({"figure:brush", "figure:highlighter"}));
    QTest::mouseClick(pen, Qt::LeftButton, {}, QPoint(band + 2, 1));
    QCOMPARE(log.log, QStringList({"figure:brush", "figure:highlighter", "figure:delayerase"}));
    // A pen button that is not the current tool is simply chosen.
    m_form->findChild<QToolButton*>("toolButton_rect")->click();
    log.log.clear();
    QTest::mouseClick(pen, Qt::LeftButton, {}, QPoint(1, 1));
    QCOMPARE(log.log, QStringList({"figure:delayerase"}));
    // The same band on the select button switches between select and drag.
    auto* choose = m_form->findChild<QToolButton*>("toolButton_choose");
    choose->click();
    log.log.clear();
    QTest::mouseClick(choose, Qt::LeftButton, {}, QPoint(1, 1));
    QCOMPARE(log.log, QStringList({"test", "figure:drag"}));
}

void TestCtrlForm::rightClickOpensMenus()
{
    QVERIFY(makeFloating());
    auto* size = m_form->findChild<QToolButton*>("toolButton_size");
    press(size, Qt::RightButton, QPoint(5, 5));
    QTRY_VERIFY(m_form->sizeMenu()->isVisible());
    m_form->sizeMenu()->hide();

    auto* pen = m_form->findChild<QToolButton*>("toolButton_pen");
    bool shown = false;
    QRect where;
    QTimer::singleShot(100, this, [&] {
        shown = m_form->penMenu()->isVisible();
        where = m_form->penMenu()->geometry();
        m_form->penMenu()->hide();
    });
    press(pen, Qt::RightButton, QPoint(5, 5));
    QTRY_VERIFY(shown);
    const QRect b(pen->mapToGlobal(QPoint(0, 0)), pen->size());
    const double s = screenScaleFactor();
    const QSize menu(toolbar_geometry::scaled(48, s), toolbar_geometry::scaled(100, s));
    QCOMPARE(where.size(), menu);
    QCOMPARE(where.topLeft(),
             toolbar_geometry::normalMenuPosition(toolbar_geometry::MenuAnchor::Beside, b, menu));
}

void TestCtrlForm::widths_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("image");
    QTest::newRow("1") << 1 << ":/images/tool_cuxi_mini.png";
    QTest::newRow("3") << 3 << ":/images/tool_cuxi_mid.png";
    QTest::newRow("6") << 6 << ":/images/tool_cuxi_big.png";
    QTest::newRow("2 keeps the image") << 2 << QString();
}

void TestCtrlForm::widths()
{
    QFETCH(int, width);
    QFETCH(QString, image);
    CtrlForm form;
    auto* size = form.findChild<QToolButton*>("toolButton_size");
    // The stored width arrives first; start from the big image.
    QSignalSpy start(&form, &CtrlForm::sg_width);
    QVERIFY(start.wait(1000));
    emit form.sizeMenu()->sg_sizeChange(6);
    const QString before = size->styleSheet();
    SignalLog log(&form);
    emit form.sizeMenu()->sg_sizeChange(width);
    QCOMPARE(log.log, QStringList({QString("width:%1").arg(width)}));
    if (image.isEmpty()) {
        QCOMPARE(size->styleSheet(), before);
    } else {
        QVERIFY(size->styleSheet().startsWith(QString("QToolButton{color:transparent;"
                                                      "border-image:url(%1);}")
                                                  .arg(image)));
        QVERIFY(size->styleSheet().contains(":/images/tool_cuxi_press.png"));
    }
}

void TestCtrlForm::colourClickIsStored()
{
    QVERIFY(makeFloating());
    SignalLog log(m_form);
    QTest::mouseClick(m_form->findChild<QCheckBox*>("checkBox_green"), Qt::LeftButton);
    QCOMPARE(log.log, QStringList({"color:#4df013"}));
    QScopedPointer<QSettings> s(openBoardSettings(nullptr));
    QCOMPARE(s->value("pen_color").toString(), QString("#4df013"));
    QCOMPARE(m_form->colorGroup()->checkedId(), 5);
}

void TestCtrlForm::undoRedoClear()
{
    QVERIFY(makeFloating());
    SignalLog log(m_form);
    QTest::mouseClick(m_form->findChild<QToolButton*>("toolButton_undo"), Qt::LeftButton);
    QTest::mouseClick(m_form->findChild<QToolButton*>("toolButton_redo"), Qt::LeftButton);
    QTest::mouseClick(m_form->findChild<QToolButton*>("toolButton_clear"), Qt::LeftButton);
    m_form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_form));
    QTest::keyClick(m_form->windowHandle(), Qt::Key_Delete);
    // A shortcut presses the button visibly first; the click follows a moment later.
    QTRY_COMPARE(log.log, QStringList({"undo", "redo", "clear", "clear"}));
}

void TestCtrlForm::closeHidesOnly()
{
    QVERIFY(makeFloating());
    QPointer<pallo::GraphicsView> view = m_form->canvasView();
    view->show();
    QTest::mouseClick(m_form->findChild<QToolButton*>("toolButton_close"), Qt::LeftButton);
    QVERIFY(!m_form->isVisible());
    QVERIFY(!view->isVisible());
    QVERIFY(view);
}

void TestCtrlForm::showOrHide()
{
    QVERIFY(makeFloating());
    pallo::GraphicsView* view = m_form->canvasView();
    view->show();
    m_form->ShowOrHide();
    QVERIFY(!m_form->isVisible());
    QVERIFY(!view->isVisible());
    m_form->ShowOrHide();
    QVERIFY(m_form->isVisible());
    QVERIFY(view->isVisible());
}

void TestCtrlForm::hostCommand_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<bool>("toggles");
    QTest::newRow("show_hide") << R"({"cmd":"show_hide"})" << true;
    QTest::newRow("other") << R"({"cmd":"undo"})" << false;
    QTest::newRow("number") << R"({"cmd":5})" << false;
    QTest::newRow("broken") << R"({"cmd":"show_hide")" << false;
    QTest::newRow("array") << R"(["show_hide"])" << false;
}

void TestCtrlForm::hostCommand()
{
    QFETCH(QString, command);
    QFETCH(bool, toggles);
    QVERIFY(makeFloating());
    pallo::GraphicsView* view = m_form->canvasView();
    view->show();
    m_form->slot_command(command);
    QCOMPARE(m_form->isVisible(), !toggles);
    QCOMPARE(view->isVisible(), !toggles);
    m_form->slot_command(command);
    QVERIFY(m_form->isVisible());
    QVERIFY(view->isVisible());
}

void TestCtrlForm::toolTypes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("storedType");
    QTest::addColumn<QString>("image");
    QTest::addColumn<bool>("timer");
    QTest::addColumn<bool>("magnifier");
    QTest::addColumn<bool>("screenshot");
    QTest::newRow("timer") << 2 << 2 << ":/images/tool_time_default_d.png" << true << false
                           << false;
    QTest::newRow("magnifier") << 1 << 1 << ":/images/tool_fangdajing_default_d.png" << false
                               << true << false;
    QTest::newRow("screenshot") << 3 << 3 << ":/images/tool_jieping_default_d.png" << false << false
                                << true;
    // The button keeps starting the magnifier.
    QTest::newRow("unknown") << 7 << 1 << QString() << false << true << false;
}

void TestCtrlForm::toolTypes()
{
    QFETCH(int, type);
    QFETCH(int, storedType);
    QFETCH(QString, image);
    QFETCH(bool, timer);
    QFETCH(bool, magnifier);
    QFETCH(bool, screenshot);
    QVERIFY(makeFloating());
    auto* zoom = m_form->findChild<QToolButton*>("toolButton_zoom");
    const QString before = zoom->styleSheet();
    QSignalSpy spy(m_form, &CtrlForm::sg_timer);
    emit m_form->toolsMenu()->sg_buttonType(type);
    QCOMPARE(m_form->toolType(), storedType);
    if (image.isEmpty())
        QCOMPARE(zoom->styleSheet(), before);
    else
        QVERIFY(zoom->styleSheet().contains(QString("border-image:url(%1)").arg(image)));
    // The tool starts 200 ms later, not at once.
    QCOMPARE(spy.count(), 0);
    QVERIFY(!m_form->magnifier() && !m_form->screenShot());
    QTest::qWait(400);
    QCOMPARE(spy.count(), timer ? 1 : 0);
    QCOMPARE(m_form->magnifier() != nullptr, magnifier);
    QCOMPARE(m_form->screenShot() != nullptr, screenshot);
    QWidget* tool = magnifier ? static_cast<QWidget*>(m_form->magnifier())
                              : static_cast<QWidget*>(m_form->screenShot());
    if (tool) {
        QVERIFY(tool->isVisible());
        QCOMPARE(tool->geometry(), QGuiApplication::primaryScreen()->geometry());
        // Left to no window manager's stacking rules: it lies above the canvas. Nothing
        // manages it, so nothing would act on the full-screen state, which made weston's X
        // window manager abort.
        QVERIFY(tool->windowFlags().testFlag(Qt::X11BypassWindowManagerHint));
        QVERIFY(!tool->isFullScreen());
    }
    // The zoom button itself now starts the same tool; an open one is not opened twice.
    QTest::mouseClick(zoom, Qt::LeftButton, {}, QPoint(4, 4));
    QCOMPARE(spy.count(), timer ? 2 : 0);
    QCOMPARE(m_form->findChildren<ZoomWidget*>().size(), magnifier ? 1 : 0);
    QCOMPARE(m_form->findChildren<screenShotWidget*>().size(), screenshot ? 1 : 0);
}

// Closing a tool, by its own button or otherwise, lets the next request open a new one.
void TestCtrlForm::closedToolsOpenAfresh()
{
    QVERIFY(makeFloating());
    m_form->slot_zoom();
    QPointer<ZoomWidget> magnifier = m_form->magnifier();
    QVERIFY(magnifier);
    magnifier->findChild<QPushButton*>("pushButton_zoom_close")->click();
    QVERIFY(!m_form->magnifier());
    QTRY_VERIFY(!magnifier);
    m_form->slot_zoom();
    QVERIFY(m_form->magnifier());

    m_form->slot_screen();
    QPointer<screenShotWidget> screenShot = m_form->screenShot();
    QVERIFY(screenShot);
    screenShot->findChild<QPushButton*>("pushButton_screenshot_close")->click();
    QVERIFY(!m_form->screenShot());
    QTRY_VERIFY(!screenShot);
    m_form->slot_screen();
    QVERIFY(m_form->screenShot());
}

// A saved screenshot goes on to the canvas as a picture, and the board returns to select
// mode.
void TestCtrlForm::savedScreenshotGoesOnAndSelects()
{
    QVERIFY(makeFloating());
    SignalLog log(m_form);
    QSignalSpy pictures(m_form, &CtrlForm::sg_screenimage);
    connect(m_form, &CtrlForm::sg_screenimage, &log, [&log] { log.log << "picture"; });
    m_form->slot_screen();
    QPointer<screenShotWidget> screenShot = m_form->screenShot();
    // The tool pictures the screen when it first becomes active, and saves nothing before.
    screenShot->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), screenShot.data());
    screenShot->findChild<QPushButton*>("pushButton_screenshot")->click();
    QCOMPARE(pictures.count(), 1);
    QCOMPARE(log.log, QStringList({"picture", "choose"}));
    QCOMPARE(m_form->figureGroup()->checkedId(), 6);
    QVERIFY(!m_form->screenShot());
    QTRY_VERIFY(!screenShot);
}

void TestCtrlForm::timerFromToolsMenu()
{
    QVERIFY(makeFloating());
    QSignalSpy spy(m_form, &CtrlForm::sg_timer);
    m_form->toolsMenu()->buttonGroup()->button(2)->click();
    QVERIFY(spy.wait(1000));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(m_form->toolType(), 2);
}

void TestCtrlForm::finishedScreenshotSelects()
{
    QVERIFY(makeFloating());
    SignalLog log(m_form);
    QTest::ignoreMessage(QtDebugMsg, " m_figure_group->button(6)->click();");
    QMetaObject::invokeMethod(m_form, "slot_screencutfin");
    QCOMPARE(log.log, QStringList({"choose"}));
    QCOMPARE(m_form->figureGroup()->checkedId(), 6);
}

void TestCtrlForm::dragSnapsFlush()
{
    QVERIFY(makeFloating(QPoint(400, 300)));
    const QRect start = m_form->frameGeometry();
    const QPoint grip = start.center() + QPoint(3, 2);
    sendMouse(m_form, QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
    // Ten scaled pixels from the left edge is not near enough to snap ...
    QPoint to = grip + QPoint(px(10) - start.left(), 500 - start.top());
    sendMouse(m_form, QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
    QCOMPARE(m_form->frameGeometry().topLeft(), QPoint(px(10), 500));
    sendMouse(m_form, QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
    QCOMPARE(m_form->frameGeometry().topLeft(), QPoint(px(10), 500));
    // ... one pixel closer snaps flush, at the left and at the top.
    sendMouse(m_form, QEvent::MouseButtonPress, to, Qt::LeftButton, Qt::LeftButton);
    to += QPoint(-1, px(10) - 1 - 500);
    sendMouse(m_form, QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
    sendMouse(m_form, QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
    QCOMPARE(m_form->frameGeometry().topLeft(), QPoint(0, 0));
    // At the right the toolbar ends 2*s past the edge.
    const QRect screen = m_form->screen()->geometry();
    sendMouse(m_form, QEvent::MouseButtonPress, to, Qt::LeftButton, Qt::LeftButton);
    to += QPoint(screen.width() - m_form->width() - 3, 400);
    sendMouse(m_form, QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
    sendMouse(m_form, QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
    QCOMPARE(m_form->frameGeometry().right(), screen.right() + px(2) - 1);
}

void TestCtrlForm::foldAndUnfold()
{
    QVERIFY(makeFloating(QPoint(400, 300)));
    const QSize unfolded = m_form->size();
    auto* folder = m_form->findChild<QToolButton*>("toolButton_folder");
    auto* folderFrame = m_form->findChild<QFrame*>("frame_folder");
    QTest::mouseClick(folder, Qt::LeftButton);
    QVERIFY(m_form->isCollapsed());
    QVERIFY(m_form->findChild<QFrame*>("frame_iback")->isHidden());
    QCOMPARE(m_form->size(), folderFrame->size());
    QCOMPARE(m_form->minimumSize(), m_form->maximumSize());
    QVERIFY(folder->styleSheet().contains(":/images/pen_menu.png"));
    QTest::mouseClick(folder, Qt::LeftButton);
    QVERIFY(!m_form->isCollapsed());
    QVERIFY(!m_form->findChild<QFrame*>("frame_iback")->isHidden());
    QCOMPARE(m_form->size(), unfolded);
    QVERIFY(folder->styleSheet().contains("border-image:url(:/images/tool_folder.png)"));
}

void TestCtrlForm::foldKeepsMargin()
{
    QVERIFY(makeFloating(QPoint(3, 3)));
    QTest::mouseClick(m_form->findChild<QToolButton*>("toolButton_folder"), Qt::LeftButton);
    QCOMPARE(m_form->frameGeometry().topLeft(), QPoint(px(12), px(12)));
    m_form->move(m_form->screen()->geometry().bottomRight() - QPoint(5, 5));
    QTest::mouseClick(m_form->findChild<QToolButton*>("toolButton_folder"), Qt::LeftButton);
    const QRect screen = m_form->screen()->geometry();
    QCOMPARE(m_form->frameGeometry().right(), screen.right() - px(12) + px(2) - 1);
    QCOMPARE(m_form->frameGeometry().bottom(), screen.bottom() - px(12) + px(2) - 1);
}

void TestCtrlForm::foldedImageFollowsTool_data()
{
    QTest::addColumn<QString>("tool");
    QTest::addColumn<QString>("image");
    QTest::addColumn<QString>("other");
    QTest::newRow("text rests on the highlighted picture") << "toolButton_text"
                                                           << ":/images/text_folder_hover.png"
                                                           << ":/images/text_folder.png";
    QTest::newRow("rect") << "toolButton_rect"
                          << ":/images/rect.png"
                          << ":/images/rect_hover.png";
    QTest::newRow("eraser") << "toolButton_erase"
                            << ":/images/tool_erase_default.png"
                            << ":/images/tool_erase_hover.png";
}

void TestCtrlForm::foldedImageFollowsTool()
{
    QFETCH(QString, tool);
    QFETCH(QString, image);
    QFETCH(QString, other);
    QVERIFY(!QImage(image).isNull());
    QVERIFY(!QImage(other).isNull());
    QVERIFY(makeFloating(QPoint(400, 300)));
    m_form->findChild<QToolButton*>(tool)->click();
    auto* folder = m_form->findChild<QToolButton*>("toolButton_folder");
    QTest::mouseClick(folder, Qt::LeftButton);
    QVERIFY(m_form->isCollapsed());
    QVERIFY(!folder->underMouse());
    const QImage shown = folder->grab().toImage();

    // The same button showing a given picture, all else equal.
    auto showing = [folder](const QString& picture) {
        folder->setStyleSheet(
            QString("QToolButton#toolButton_folder{border-image:url(%1);}").arg(picture));
        return folder->grab().toImage();
    };
    const QImage want = showing(image);
    QVERIFY(want != showing(other));
    QCOMPARE(shown, want);
}

void TestCtrlForm::rotateTwice()
{
    QVERIFY(makeFloating(QPoint(300, 300)));
    const QSize horizontal = m_form->size();
    QHash<QString, QRect> before;
    for (QWidget* w : m_form->findChildren<QWidget*>(QRegularExpression("^(toolButton|checkBox)")))
        before.insert(w->objectName(), w->geometry());
    const QStringList order = toolOrder(m_form);
    auto* rotate = m_form->findChild<QToolButton*>("toolButton_rotate");
    auto* folder = m_form->findChild<QToolButton*>("toolButton_folder");

    QTest::mouseClick(rotate, Qt::LeftButton);
    QVERIFY(!m_form->isHorizontal());
    QTRY_VERIFY(m_form->height() > m_form->width());
    QVERIFY(folder->styleSheet().contains("border-image:url(:/images/tool_folder_up.png)"));
    QCOMPARE(toolOrder(m_form), order);
    auto* pen = m_form->findChild<QWidget*>("toolButton_pen");
    auto* rect = m_form->findChild<QWidget*>("toolButton_rect");
    QTRY_VERIFY(rect->y() > pen->y());
    QCOMPARE(rect->x(), pen->x());
    QVERIFY(folder->y() < pen->y());

    QTest::mouseClick(rotate, Qt::LeftButton);
    QVERIFY(m_form->isHorizontal());
    QTRY_COMPARE(m_form->size(), horizontal);
    QCOMPARE(toolOrder(m_form), order);
    QVERIFY(folder->styleSheet().contains("border-image:url(:/images/tool_folder.png)"));
    for (QWidget* w : m_form->findChildren<QWidget*>(QRegularExpression("^(toolButton|checkBox)")))
        QCOMPARE(w->geometry(), before.value(w->objectName()));
}

void TestCtrlForm::rotateKeepsMargin()
{
    QVERIFY(makeFloating(QPoint(3, 3)));
    QTest::mouseClick(m_form->findChild<QToolButton*>("toolButton_rotate"), Qt::LeftButton);
    QVERIFY(!m_form->isHorizontal());
    QCOMPARE(m_form->x(), px(12));
    // At this scale the upright toolbar is taller than the screen; the bottom rule
    // then decides its top.
    const QRect screen = m_form->screen()->geometry();
    QCOMPARE(m_form->pos(), toolbar_geometry::keepOnScreen(QRect(QPoint(3, 3), m_form->size()),
                                                           screen, false, scale())
                                .topLeft());
}

void TestCtrlForm::menuPlacement()
{
    QVERIFY(makeFloating(QPoint(300, 300)));
    using toolbar_geometry::MenuAnchor;
    auto globalRect = [this](const char* name) {
        auto* b = m_form->findChild<QWidget*>(name);
        return QRect(b->mapToGlobal(QPoint(0, 0)), b->size());
    };
    const QSize penSize(px(48), px(100));
    const QSize centreSize(px(90), px(120));
    const QSize toolsSize(px(120), px(140));

    m_form->penMenuShow();
    QCOMPARE(m_form->penMenu()->size(), penSize);
    QCOMPARE(m_form->penMenu()->pos(),
             toolbar_geometry::normalMenuPosition(MenuAnchor::Beside, globalRect("toolButton_pen"),
                                                  penSize));
    // The control menu opens where the pen menu does, not at the select button.
    m_form->ControlMenuShow();
    QCOMPARE(m_form->controlMenu()->size(), penSize);
    QCOMPARE(m_form->controlMenu()->pos(), m_form->penMenu()->pos());

    m_form->fontSizeMenuShow();
    QCOMPARE(m_form->fontSizeMenu()->size(), centreSize);
    QCOMPARE(m_form->fontSizeMenu()->pos(),
             toolbar_geometry::normalMenuPosition(MenuAnchor::Centre, globalRect("toolButton_text"),
                                                  centreSize));
    m_form->toolmenuShow();
    QCOMPARE(m_form->toolsMenu()->size(), toolsSize);
    QCOMPARE(m_form->toolsMenu()->pos(),
             toolbar_geometry::normalMenuPosition(MenuAnchor::Centre, globalRect("toolButton_zoom"),
                                                  toolsSize));
    press(m_form->findChild<QWidget*>("toolButton_size"), Qt::RightButton, QPoint(3, 3));
    QTRY_VERIFY(m_form->sizeMenu()->isVisible());
    QCOMPARE(m_form->sizeMenu()->size(), centreSize);
    QCOMPARE(m_form->sizeMenu()->pos(),
             toolbar_geometry::normalMenuPosition(MenuAnchor::Centre, globalRect("toolButton_size"),
                                                  centreSize));
    QVERIFY(m_form->sizeMenu()->y() > globalRect("toolButton_size").bottom());
}

void TestCtrlForm::menuPlacementFlipsNearBottom()
{
    QVERIFY(makeFloating(QPoint(300, 300)));
    const QRect screen = m_form->screen()->geometry();
    m_form->move(300, screen.bottom() - m_form->height() - px(20));
    auto* size = m_form->findChild<QWidget*>("toolButton_size");
    const QRect b(size->mapToGlobal(QPoint(0, 0)), size->size());
    press(size, Qt::RightButton, QPoint(3, 3));
    QTRY_VERIFY(m_form->sizeMenu()->isVisible());
    QCOMPARE(m_form->sizeMenu()->geometry().bottom(), b.top() - 4 - 1);
    QCOMPARE(m_form->sizeMenu()->x(), toolbar_geometry::topCentre(b).x() - px(90) / 4);

    auto* pen = m_form->findChild<QWidget*>("toolButton_pen");
    const QRect p(pen->mapToGlobal(QPoint(0, 0)), pen->size());
    m_form->penMenuShow();
    const QPoint anchor = p.topLeft() + p.topRight() / 2;
    QCOMPARE(m_form->penMenu()->pos(), QPoint(anchor.x() + px(48) / 2, anchor.y() - 4 - px(100)));
}

void TestCtrlForm::docksAfterLeaving()
{
    QVERIFY(makeFloating(QPoint(500, 0)));
    QVERIFY(!m_form->isDockTimerRunning());
    sendCrossing(m_form, QEvent::Leave);
    QVERIFY(m_form->isDockTimerRunning());
    const QRect g = m_form->frameGeometry();
    QTRY_VERIFY(!m_form->isVisible());
    QVERIFY(m_form->edgeStrip());
    QVERIFY(m_form->edgeStrip()->isVisible());
    QCOMPARE(m_form->edgeStrip()->side(), 1);
    QCOMPARE(m_form->dockSide(), 1);
    QCOMPARE(m_form->edgeStrip()->geometry(), toolbar_geometry::stripRect(g, 1, scale()));
    QCOMPARE(m_form->edgeStrip()->parentWidget(), m_form);
}

void TestCtrlForm::docksTopBeforeLeft()
{
    QVERIFY(makeFloating(QPoint(3, 3)));
    sendCrossing(m_form, QEvent::Leave);
    QTRY_VERIFY(!m_form->isVisible());
    QCOMPARE(m_form->edgeStrip()->side(), 1);
}

void TestCtrlForm::dockCheckRestsAwayFromEdgesUntilMoved()
{
    QVERIFY(makeFloating(QPoint(500, 500)));
    sendCrossing(m_form, QEvent::Leave);
    QVERIFY(m_form->isDockTimerRunning());
    // Away from the edges there is nothing to do until the toolbar moves.
    QTRY_VERIFY(!m_form->isDockTimerRunning());
    QVERIFY(m_form->isVisible());
    QVERIFY(!m_form->edgeStrip());
    m_form->move(500, 0);
    QTRY_VERIFY(!m_form->isVisible());
    QVERIFY(m_form->edgeStrip()->isVisible());
    QCOMPARE(m_form->edgeStrip()->side(), 1);
    QVERIFY(!m_form->isDockTimerRunning());
    // Brought back by its strip, it docks again once the pointer has gone.
    sendCrossing(m_form->edgeStrip(), QEvent::Enter);
    QTRY_VERIFY(m_form->isVisible());
    QTRY_VERIFY(!m_form->isVisible());
    QVERIFY(m_form->edgeStrip()->isVisible());
}

void TestCtrlForm::noDockingWhileMenuOpenOrFolded()
{
    QVERIFY(makeFloating(QPoint(500, 0)));
    press(m_form->findChild<QWidget*>("toolButton_size"), Qt::RightButton, QPoint(3, 3));
    QTRY_VERIFY(m_form->sizeMenu()->isVisible());
    m_form->move(500, 0);
    sendCrossing(m_form, QEvent::Leave);
    QTest::qWait(1200);
    QVERIFY(m_form->isVisible());
    m_form->sizeMenu()->hide();

    QTest::mouseClick(m_form->findChild<QToolButton*>("toolButton_folder"), Qt::LeftButton);
    QVERIFY(m_form->isCollapsed());
    m_form->move(500, 0);
    sendCrossing(m_form, QEvent::Leave);
    QTest::qWait(1200);
    QVERIFY(m_form->isVisible());
    QVERIFY(!m_form->edgeStrip());
    // Unfolded again it docks.
    QTest::mouseClick(m_form->findChild<QToolButton*>("toolButton_folder"), Qt::LeftButton);
    m_form->move(500, 0);
    QTRY_VERIFY(!m_form->isVisible());
}

void TestCtrlForm::noDockingWhilePointerWhereAMenuWas()
{
    QVERIFY(makeFloating(QPoint(500, 0)));
    press(m_form->findChild<QWidget*>("toolButton_size"), Qt::RightButton, QPoint(3, 3));
    QTRY_VERIFY(m_form->sizeMenu()->isVisible());
    const QRect menu = m_form->sizeMenu()->geometry();
    m_form->sizeMenu()->hide();
    // An entry was chosen: the pointer rests where the menu was, below the toolbar.
    QCursor::setPos(menu.center());
    sendCrossing(m_form, QEvent::Leave);
    QTest::qWait(1200);
    QVERIFY(m_form->isVisible());
    // Once it moves away the toolbar docks.
    QCursor::setPos(menu.bottomRight() + QPoint(200, 200));
    QTRY_VERIFY(!m_form->isVisible());
    QCOMPARE(m_form->dockSide(), 1);
}

void TestCtrlForm::stripBringsToolbarBack()
{
    QVERIFY(makeFloating(QPoint(500, 0)));
    sendCrossing(m_form, QEvent::Leave);
    QTRY_VERIFY(!m_form->isVisible());
    EdgeHideDialog* strip = m_form->edgeStrip();
    // Passing over quickly does nothing.
    sendCrossing(strip, QEvent::Enter);
    QTest::qWait(50);
    sendCrossing(strip, QEvent::Leave);
    QTest::qWait(400);
    QVERIFY(!m_form->isVisible());
    // Resting brings the toolbar back and hides the strip.
    sendCrossing(strip, QEvent::Enter);
    QTRY_VERIFY(m_form->isVisible());
    QVERIFY(!strip->isVisible());
}

void TestCtrlForm::redockReusesStrip()
{
    QVERIFY(makeFloating(QPoint(500, 0)));
    sendCrossing(m_form, QEvent::Leave);
    QTRY_VERIFY(!m_form->isVisible());
    QPointer<EdgeHideDialog> strip = m_form->edgeStrip();
    sendCrossing(strip, QEvent::Enter);
    QTRY_VERIFY(m_form->isVisible());
    sendCrossing(m_form, QEvent::Enter);
    QVERIFY(!m_form->isDockTimerRunning());

    m_form->move(0, 500);
    const QRect g = m_form->frameGeometry();
    sendCrossing(m_form, QEvent::Leave);
    QTRY_VERIFY(!m_form->isVisible());
    QCOMPARE(m_form->edgeStrip(), strip.data());
    QCOMPARE(m_form->findChildren<EdgeHideDialog*>().size(), 1);
    QCOMPARE(strip->side(), 3);
    QCOMPARE(strip->geometry(), toolbar_geometry::stripRect(g, 3, scale()));
    QVERIFY(strip->isVisible());
}

void TestCtrlForm::deletingToolbarDeletesView()
{
    auto* form = new CtrlForm;
    QPointer<pallo::GraphicsView> view = form->canvasView();
    delete form;
    QVERIFY(!view);

    QPointer<CtrlForm> hosted = new CtrlForm;
    delete hosted->canvasView();
    QVERIFY(!hosted);
}

int main(int argc, char** argv)
{
    // Run the real toolbar at a scale factor of 1.5.
    qputenv("QT_FONT_DPI", "144");
    QApplication app(argc, argv);
    // Square buttons of a fixed size and no menu arrows, as the board's own stylesheet
    // makes them, scaled the same way; the pictures do not matter here.
    app.setStyleSheet(
        scaleStyleSheet("CtrlForm QToolButton{color:transparent;border:none;padding:0px;margin:4px;"
                        "min-width:32px;max-width:32px;min-height:32px;max-height:32px;}"
                        "CtrlForm QToolButton::menu-button{width:0px;border:none;}"
                        "CtrlForm QToolButton::menu-indicator{image:none;width:0px;}"
                        "CtrlForm QCheckBox{color:transparent;min-width:20px;max-width:20px;"
                        "min-height:20px;max-height:20px;}",
                        screenScaleFactor()));
    TestCtrlForm test;
    return QTest::qExec(&test, argc, argv);
}

#include "test-ctrl-form.moc"
