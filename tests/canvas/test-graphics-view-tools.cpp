// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/graphics-view.h"
#include "toolbar/ctrl-form.h"
#include "tools/key-line-edit.h"
#include "tools/pix-label.h"
#include "tools/shadowframe-widget.h"
#include "tools/widgettest.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

class TestGraphicsViewTools : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void toolbarEntryTogglesTheTimerWindow();
    void quittingTheTimerWindowForgetsIt();
    void settingsPanelShowsTheStoredValues();
    void settingsPanelOpensOnce();
    void hotkeyChangesAreRefusedAndNotStored_data();
    void hotkeyChangesAreRefusedAndNotStored();
    void chosenFolderIsStoredApartFromTheScreenshotFolder();
    void closingTheSettingsPanelForgetsIt();
    void screenshotIsPinnedAtTwoHundred();

private:
    QList<PixLabel*> pinned() const;

    std::unique_ptr<CtrlForm> m_form;
    pallo::GraphicsView* m_view = nullptr;
};

void TestGraphicsViewTools::init()
{
    m_form = std::make_unique<CtrlForm>();
    m_view = m_form->canvasView();
}

void TestGraphicsViewTools::cleanup()
{
    qDeleteAll(pinned());
    m_form.reset();
    m_view = nullptr;
}

QList<PixLabel*> TestGraphicsViewTools::pinned() const
{
    QList<PixLabel*> labels;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* label = qobject_cast<PixLabel*>(window))
            labels << label;
    }
    return labels;
}

void TestGraphicsViewTools::toolbarEntryTogglesTheTimerWindow()
{
    QTest::ignoreMessage(QtDebugMsg, "接收到定时器信号");
    emit m_form->sg_timer();
    QPointer<Widgettest> timer = m_view->timerWindow();
    QVERIFY(timer);
    QVERIFY(QTest::qWaitForWindowExposed(timer));
    QCOMPARE(timer->parentWidget(), m_view);

    QTest::ignoreMessage(QtDebugMsg, "接收到定时器信号");
    emit m_form->sg_timer();
    QVERIFY(!timer);
    QVERIFY(!m_view->timerWindow());

    QTest::ignoreMessage(QtDebugMsg, "接收到定时器信号");
    m_view->slot_timer();
    QVERIFY(m_view->timerWindow());
    QCOMPARE(m_view->findChildren<Widgettest*>().size(), 1);
}

void TestGraphicsViewTools::quittingTheTimerWindowForgetsIt()
{
    m_view->slot_timer();
    QPointer<Widgettest> timer = m_view->timerWindow();
    QVERIFY(QTest::qWaitForWindowExposed(timer));
    timer->findChild<QPushButton*>("pushButton_timer_quit")->click();
    QVERIFY(!m_view->timerWindow());
    QTRY_VERIFY(!timer);
    // The next request opens a fresh window rather than closing one.
    m_view->slot_timer();
    QVERIFY(m_view->timerWindow());
    QVERIFY(m_view->timerWindow()->isVisible());
}

void TestGraphicsViewTools::settingsPanelShowsTheStoredValues()
{
    m_view->settings()->setValue("zoom", "Ctrl+Shift+Z");
    m_view->settings()->setValue("picformat", "JPG");
    m_view->settings()->setValue("cutdirectory", "/srv/pictures");
    emit m_form->sg_short();
    shadowframeWidget* panel = m_view->settingsPanel();
    QVERIFY(panel);
    QVERIFY(QTest::qWaitForWindowExposed(panel));
    QCOMPARE(panel->findChild<KeyLineEdit*>("lineEdit_zoom")->text(), QString("Ctrl+Shift+Z"));
    QCOMPARE(panel->findChild<KeyLineEdit*>("lineEdit_timer")->text(), QString("Ctrl+M"));
    QCOMPARE(panel->findChild<KeyLineEdit*>("lineEdit_screen")->text(), QString("Alt+S"));
    QCOMPARE(panel->findChild<QLineEdit*>("lineEdit_dir")->text(), QString("/srv/pictures"));
    QCOMPARE(panel->findChild<QComboBox*>("comboBox_format")->currentText(), QString(" JPG"));
}

void TestGraphicsViewTools::settingsPanelOpensOnce()
{
    m_view->slot_shortcut();
    QPointer<shadowframeWidget> panel = m_view->settingsPanel();
    m_view->slot_shortcut();
    QCOMPARE(m_view->settingsPanel(), panel.data());
    QCOMPARE(m_view->findChildren<shadowframeWidget*>().size(), 1);
}

void TestGraphicsViewTools::hotkeyChangesAreRefusedAndNotStored_data()
{
    QTest::addColumn<QString>("editor");
    QTest::addColumn<QString>("key");
    QTest::newRow("magnifier") << "lineEdit_zoom"
                               << "zoom";
    QTest::newRow("timer") << "lineEdit_timer"
                           << "timer";
    QTest::newRow("screenshot") << "lineEdit_screen"
                                << "screen";
}

// The board registers no hotkey with the system, so every change is refused: it is
// logged and the stored combination stays.
void TestGraphicsViewTools::hotkeyChangesAreRefusedAndNotStored()
{
    QFETCH(QString, editor);
    QFETCH(QString, key);
    const QString before = m_view->settings()->value(key).toString();
    QVERIFY(!before.isEmpty());
    m_view->slot_shortcut();
    shadowframeWidget* panel = m_view->settingsPanel();
    QVERIFY(QTest::qWaitForWindowExposed(panel));
    auto* field = panel->findChild<KeyLineEdit*>(editor);
    panel->activateWindow();
    field->setFocus();
    QTRY_VERIFY(field->hasFocus());
    QTest::ignoreMessage(QtDebugMsg, "快捷键已占用");
    if (key == "screen") {
        QTest::ignoreMessage(QtDebugMsg, " QString str =ui->lineEdit_screen->text();");
        QTest::ignoreMessage(QtDebugMsg, "screen快捷键");
    }
    QTest::keyClick(field, Qt::Key_K, Qt::AltModifier | Qt::ShiftModifier);
    QCOMPARE(field->text(), QString("Alt+Shift+K"));
    QVERIFY(!field->hasFocus());
    QCOMPARE(m_view->settings()->value(key).toString(), before);
}

void TestGraphicsViewTools::chosenFolderIsStoredApartFromTheScreenshotFolder()
{
    m_view->slot_shortcut();
    shadowframeWidget* panel = m_view->settingsPanel();
    panel->findChild<QLineEdit*>("lineEdit_dir")->setText("/srv/elsewhere");
    QCOMPARE(m_view->settings()->value("cutdirectory").toString(), QString("/srv/elsewhere"));
    QVERIFY(!m_view->settings()->contains("screen.shot.path"));
}

void TestGraphicsViewTools::closingTheSettingsPanelForgetsIt()
{
    m_view->slot_shortcut();
    QPointer<shadowframeWidget> panel = m_view->settingsPanel();
    QVERIFY(QTest::qWaitForWindowExposed(panel));
    panel->findChild<QPushButton*>("Btn_close")->click();
    QVERIFY(!m_view->settingsPanel());
    QTRY_VERIFY(!panel);
    m_view->slot_shortcut();
    QVERIFY(m_view->settingsPanel());
}

void TestGraphicsViewTools::screenshotIsPinnedAtTwoHundred()
{
    QImage picture(120, 80, QImage::Format_ARGB32);
    picture.fill(QColor("#3366cc"));
    emit m_form->sg_screenimage(picture);
    emit m_form->sg_screenimage(picture);
    const QList<PixLabel*> labels = pinned();
    // Every capture gets a window of its own.
    QCOMPARE(labels.size(), 2);
    for (PixLabel* label : labels) {
        QVERIFY(label->isVisible());
        QVERIFY(!label->parentWidget());
        QCOMPARE(label->pos(), QPoint(200, 200));
        const QPixmap shown = label->findChild<QLabel*>()->pixmap(Qt::ReturnByValue);
        QCOMPARE(shown.toImage().convertToFormat(QImage::Format_ARGB32), picture);
    }
}

QTEST_MAIN(TestGraphicsViewTools)
#include "test-graphics-view-tools.moc"
