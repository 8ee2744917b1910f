// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/pallo-translator.h"
#include "tests/test-output.h"
#include "tools/key-line-edit.h"
#include "tools/shadowframe-widget.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFrame>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

namespace {

const QString forbidden = "Common shortcut keys are disabled.";

// The panel's own store and the board's store beside it.
QString storedIn(bool boardStore, const QString& key)
{
    const QString name = QCoreApplication::applicationName();
    QSettings settings(QSettings::IniFormat, QSettings::UserScope, name,
                       boardStore ? name + "New" : name);
    return settings.value(key).toString();
}

void storePanelValue(const QString& key, const QVariant& value)
{
    const QString name = QCoreApplication::applicationName();
    QSettings settings(QSettings::IniFormat, QSettings::UserScope, name, name);
    if (value.isValid())
        settings.setValue(key, value);
    else
        settings.remove(key);
}

void press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent down(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, modifiers);
    QApplication::sendEvent(widget, &up);
}

void sendMouse(QWidget* target, QEvent::Type type, const QPoint& global, Qt::MouseButtons buttons)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, target->mapFromGlobal(global), global, button, buttons, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

bool isErrorInk(QRgb pixel)
{
    const QColor c = QColor::fromRgb(pixel);
    return c.red() > 180 && c.green() < 150 && c.blue() < 150;
}

int countPixels(const QImage& image, bool (*test)(QRgb))
{
    int n = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (test(image.pixel(x, y)))
                ++n;
    return n;
}

// Answers the folder dialog the panel opens, once it is up.
void answerFolderDialog(const std::function<void(QFileDialog*)>& answer)
{
    auto* poll = new QTimer;
    poll->setInterval(20);
    QObject::connect(poll, &QTimer::timeout, [poll, answer] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        poll->stop();
        poll->deleteLater();
        answer(dialog);
    });
    poll->start();
}

} // namespace

class TestShadowframeWidget : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanup();
    void formAsDesigned();
    void acceptedKeyIsHandedOn_data();
    void acceptedKeyIsHandedOn();
    void refusedKeyIsNotHandedOn_data();
    void refusedKeyIsNotHandedOn();
    void errorShowsForASecond();
    void settersFillTheEditors();
    void folderEditReportsTheFolder();
    void modifyAsksForAFolder();
    void cancelledFolderDialogChangesNothing();
    void openShowsTheStoredFolder();
    void openWithoutAFolderOpensNothing();
    void firstPlainFileWalksSubfolders();
    void formatIsStoredTrimmedInThePanelStore_data();
    void formatIsStoredTrimmedInThePanelStore();
    void closeReportsTheExit();
    void destroyedWithAFocusedEditorReportsNothing_data();
    void destroyedWithAFocusedEditorReportsNothing();
    void retranslationKeepsTheFormat();
    void dragMovesThePanel();
    void looksFinished_data();
    void looksFinished();

public:
    Q_INVOKABLE void openUrl(const QUrl& url) { openedUrls << url; }

private:
    template <typename T> static T* child(QWidget& panel, const char* name)
    {
        T* found = panel.findChild<T*>(name);
        if (!found)
            qWarning() << "no child" << name;
        return found;
    }
    bool showActive(QWidget& panel);

    PalloTranslator* english = nullptr;
    QList<QUrl> openedUrls;
};

void TestShadowframeWidget::initTestCase()
{
    english = new PalloTranslator("english", this);
    QCoreApplication::installTranslator(english);
    QDesktopServices::setUrlHandler("file", this, "openUrl");
}

void TestShadowframeWidget::init()
{
    openedUrls.clear();
    storePanelValue("picformat", QVariant());
    storePanelValue("cutdirectory", QVariant());
}

void TestShadowframeWidget::cleanup()
{
    QCoreApplication::removeTranslator(english);
    QCoreApplication::installTranslator(english);
}

bool TestShadowframeWidget::showActive(QWidget& panel)
{
    panel.show();
    QApplication::setActiveWindow(&panel);
    return QTest::qWaitForWindowActive(&panel);
}

void TestShadowframeWidget::formAsDesigned()
{
    shadowframeWidget panel;
    QVERIFY(panel.windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(child<QLabel>(panel, "label_title")->text(), QString("setting"));
    QCOMPARE(child<QLabel>(panel, "label_hotkey")->text(), QString("shortcut setting"));
    QCOMPARE(child<QLabel>(panel, "label_zoom")->text(), QString("magnifier"));
    QCOMPARE(child<QLabel>(panel, "label_timer")->text(), QString("Timer"));
    QCOMPARE(child<QLabel>(panel, "label_screen")->text(), QString("Screenshot"));
    QCOMPARE(child<QLabel>(panel, "label_screenshot")->text(), QString("Screenshot setting"));
    QCOMPARE(child<QLabel>(panel, "label_dir")->text(), QString("Screenshot file"));
    QCOMPARE(child<QLabel>(panel, "label_format")->text(), QString("Screenshot format"));
    QCOMPARE(child<QToolButton>(panel, "toolButton_change")->text(), QString("modify"));
    QCOMPARE(child<QToolButton>(panel, "toolButton_open")->text(), QString("open"));
    QVERIFY(child<QLabel>(panel, "label_error")->text().isEmpty());
    QVERIFY(child<QPushButton>(panel, "Btn_close"));
    for (const char* name : {"lineEdit_zoom", "lineEdit_timer", "lineEdit_screen"}) {
        KeyLineEdit* editor = child<KeyLineEdit>(panel, name);
        QVERIFY(editor);
        QCOMPARE(editor->text(), QString("Press the keyboard to set"));
    }
    auto* combo = child<QComboBox>(panel, "comboBox_format");
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items << combo->itemText(i);
    QCOMPARE(items, QStringList({" PNG", " JPEG", " JPG", " BMP"}));
}

void TestShadowframeWidget::acceptedKeyIsHandedOn_data()
{
    QTest::addColumn<QString>("editor");
    QTest::addColumn<QString>("signal");
    QTest::newRow("magnifier") << "lineEdit_zoom"
                               << "zoom";
    QTest::newRow("timer") << "lineEdit_timer"
                           << "timer";
    QTest::newRow("screenshot") << "lineEdit_screen"
                                << "screen";
}

// A key accepted in one editor reaches the matching signal, with the editor's text,
// and no other.
void TestShadowframeWidget::destroyedWithAFocusedEditorReportsNothing_data()
{
    QTest::addColumn<QString>("editor");
    QTest::newRow("magnifier") << "lineEdit_zoom";
    QTest::newRow("timer") << "lineEdit_timer";
    QTest::newRow("screenshot") << "lineEdit_screen";
}

void TestShadowframeWidget::destroyedWithAFocusedEditorReportsNothing()
{
    QFETCH(QString, editor);
    auto* panel = new shadowframeWidget;
    QVERIFY(showActive(*panel));
    KeyLineEdit* edit = child<KeyLineEdit>(*panel, qPrintable(editor));
    edit->setFocus();
    QTRY_VERIFY(edit->hasFocus());
    QObject listener;
    int reports = 0;
    const auto count = [&reports] { ++reports; };
    connect(panel, &shadowframeWidget::sg_zoomkeytext, &listener, count);
    connect(panel, &shadowframeWidget::sg_timerkeytext, &listener, count);
    connect(panel, &shadowframeWidget::sg_screenkeytext, &listener, count);
    delete panel;
    QCOMPARE(reports, 0);
}

void TestShadowframeWidget::acceptedKeyIsHandedOn()
{
    QFETCH(QString, editor);
    QFETCH(QString, signal);
    shadowframeWidget panel;
    QVERIFY(showActive(panel));
    QSignalSpy zoom(&panel, &shadowframeWidget::sg_zoomkeytext);
    QSignalSpy timer(&panel, &shadowframeWidget::sg_timerkeytext);
    QSignalSpy screen(&panel, &shadowframeWidget::sg_screenkeytext);
    KeyLineEdit* edit = child<KeyLineEdit>(panel, qPrintable(editor));
    edit->setFocus();
    QTRY_VERIFY(edit->hasFocus());

    if (signal == "screen")
        QTest::ignoreMessage(QtDebugMsg, " QString str =ui->lineEdit_screen->text();");
    press(edit, Qt::Key_K, Qt::AltModifier | Qt::ShiftModifier);

    QCOMPARE(edit->text(), QString("Alt+Shift+K"));
    QCOMPARE(zoom.count(), signal == "zoom" ? 1 : 0);
    QCOMPARE(timer.count(), signal == "timer" ? 1 : 0);
    QCOMPARE(screen.count(), signal == "screen" ? 1 : 0);
    QSignalSpy& fired = signal == "zoom" ? zoom : signal == "timer" ? timer : screen;
    QCOMPARE(fired.at(0).at(0).toString(), QString("Alt+Shift+K"));
    QVERIFY(!edit->hasFocus());
}

void TestShadowframeWidget::refusedKeyIsNotHandedOn_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("message");
    QTest::newRow("ctrl+z") << int(Qt::Key_Z) << int(Qt::ControlModifier) << forbidden;
    QTest::newRow("bare K") << int(Qt::Key_K) << 0
                            << "The shortcut key does not support single numbers or letters.";
    QTest::newRow("ctrl+F5") << int(Qt::Key_F5) << int(Qt::ControlModifier)
                             << "Special keys cannot be set.";
    QTest::newRow("tab") << int(Qt::Key_Tab) << 0 << "Special keys cannot be set.";
    QTest::newRow("backspace") << int(Qt::Key_Backspace) << 0
                               << "The shortcut key has been removed. Please set the key again.";
}

void TestShadowframeWidget::refusedKeyIsNotHandedOn()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, message);
    shadowframeWidget panel;
    panel.setTimerKeyText("Ctrl+M");
    QVERIFY(showActive(panel));
    QSignalSpy timer(&panel, &shadowframeWidget::sg_timerkeytext);
    KeyLineEdit* edit = child<KeyLineEdit>(panel, "lineEdit_timer");
    edit->setFocus();
    QTRY_VERIFY(edit->hasFocus());

    press(edit, key, Qt::KeyboardModifiers(modifiers));

    QCOMPARE(child<QLabel>(panel, "label_error")->text(), message);
    QCOMPARE(timer.count(), 0);
    QVERIFY(edit->hasFocus());
    QCOMPARE(edit->text(), key == Qt::Key_Backspace ? QString() : QString("Ctrl+M"));
}

// The message is visible in the panel, in red, and gone again a second later.
void TestShadowframeWidget::errorShowsForASecond()
{
    shadowframeWidget panel;
    QVERIFY(showActive(panel));
    auto* label = child<QLabel>(panel, "label_error");
    KeyLineEdit* edit = child<KeyLineEdit>(panel, "lineEdit_zoom");
    edit->setFocus();
    QTRY_VERIFY(edit->hasFocus());
    QVERIFY(countPixels(label->grab().toImage(), isErrorInk) == 0);

    QElapsedTimer clock;
    clock.start();
    press(edit, Qt::Key_S, Qt::ControlModifier);

    QCOMPARE(label->text(), forbidden);
    QVERIFY(countPixels(label->grab().toImage(), isErrorInk) > 50);
    QTRY_VERIFY_WITH_TIMEOUT(label->text().isEmpty(), 3000);
    QVERIFY2(clock.elapsed() >= 900, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(countPixels(label->grab().toImage(), isErrorInk), 0);
}

void TestShadowframeWidget::settersFillTheEditors()
{
    shadowframeWidget panel;
    QSignalSpy zoom(&panel, &shadowframeWidget::sg_zoomkeytext);
    panel.setZoomKeyText("Ctrl+B");
    panel.setTimerKeyText("Ctrl+M");
    panel.setScreenKeyText("Alt+S");
    panel.setDirectory("/srv/shots");
    panel.setFormatText(" BMP");
    QCOMPARE(child<KeyLineEdit>(panel, "lineEdit_zoom")->text(), QString("Ctrl+B"));
    QCOMPARE(child<KeyLineEdit>(panel, "lineEdit_zoom")->key(), int(Qt::Key_B));
    QCOMPARE(child<KeyLineEdit>(panel, "lineEdit_timer")->text(), QString("Ctrl+M"));
    QCOMPARE(child<KeyLineEdit>(panel, "lineEdit_screen")->text(), QString("Alt+S"));
    QCOMPARE(child<QLineEdit>(panel, "lineEdit_dir")->text(), QString("/srv/shots"));
    QCOMPARE(child<QComboBox>(panel, "comboBox_format")->currentText(), QString(" BMP"));
    // Filling the editors is not an edit.
    QCOMPARE(zoom.count(), 0);

    panel.setFormatText("jpeg");
    QCOMPARE(child<QComboBox>(panel, "comboBox_format")->currentText(), QString(" JPEG"));
    panel.setFormatText("TIFF");
    QCOMPARE(child<QComboBox>(panel, "comboBox_format")->currentText(), QString(" JPEG"));
}

void TestShadowframeWidget::folderEditReportsTheFolder()
{
    shadowframeWidget panel;
    QSignalSpy dir(&panel, &shadowframeWidget::sg_dirchanged);
    panel.setDirectory("/srv/shots");
    QCOMPARE(dir.count(), 1);
    QCOMPARE(dir.at(0).at(0).toString(), QString("/srv/shots"));
}

void TestShadowframeWidget::modifyAsksForAFolder()
{
    QTemporaryDir chosen;
    QVERIFY(chosen.isValid());
    shadowframeWidget panel;
    QVERIFY(showActive(panel));
    QSignalSpy dir(&panel, &shadowframeWidget::sg_dirchanged);
    QString title;
    QString start;
    bool dirsOnly = false;
    bool keepsLinks = false;
    answerFolderDialog([&](QFileDialog* dialog) {
        title = dialog->windowTitle();
        start = dialog->directory().absolutePath();
        dirsOnly = dialog->testOption(QFileDialog::ShowDirsOnly);
        keepsLinks = dialog->testOption(QFileDialog::DontResolveSymlinks);
        dialog->setDirectory(chosen.path());
        static_cast<QDialog*>(dialog)->accept();
    });

    QTest::mouseClick(child<QToolButton>(panel, "toolButton_change"), Qt::LeftButton);

    QCOMPARE(title, QString("Choose where to store pictures"));
    if (QFileInfo("/home").isDir())
        QCOMPARE(start, QString("/home"));
    QVERIFY(dirsOnly);
    QVERIFY(keepsLinks);
    QCOMPARE(dir.count(), 1);
    QCOMPARE(dir.at(0).at(0).toString(), chosen.path());
    QCOMPARE(child<QLineEdit>(panel, "lineEdit_dir")->text(), chosen.path());
}

void TestShadowframeWidget::cancelledFolderDialogChangesNothing()
{
    shadowframeWidget panel;
    panel.setDirectory("/srv/shots");
    QVERIFY(showActive(panel));
    QSignalSpy dir(&panel, &shadowframeWidget::sg_dirchanged);
    bool answered = false;
    answerFolderDialog([&](QFileDialog* dialog) {
        answered = true;
        dialog->reject();
    });

    QTest::mouseClick(child<QToolButton>(panel, "toolButton_change"), Qt::LeftButton);

    QVERIFY(answered);
    QCOMPARE(dir.count(), 0);
    QCOMPARE(child<QLineEdit>(panel, "lineEdit_dir")->text(), QString("/srv/shots"));
}

// "open" takes its folder from the panel's own store, not from the folder shown.
void TestShadowframeWidget::openShowsTheStoredFolder()
{
    QTemporaryDir shots;
    QVERIFY(shots.isValid());
    QVERIFY(QDir(shots.path()).mkpath("2026/11"));
    QFile file(shots.path() + "/2026/11/one.png");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    storePanelValue("cutdirectory", shots.path().toUtf8());

    shadowframeWidget panel;
    panel.setDirectory("/srv/elsewhere");
    QVERIFY(showActive(panel));
    QTest::mouseClick(child<QToolButton>(panel, "toolButton_open"), Qt::LeftButton);

    QCOMPARE(openedUrls, QList<QUrl>({QUrl::fromLocalFile(shots.path())}));
}

void TestShadowframeWidget::openWithoutAFolderOpensNothing()
{
    shadowframeWidget panel;
    panel.setDirectory(QDir::tempPath());
    QVERIFY(showActive(panel));
    QTest::mouseClick(child<QToolButton>(panel, "toolButton_open"), Qt::LeftButton);
    storePanelValue("cutdirectory", QByteArray("/no/such/folder/anywhere"));
    QTest::mouseClick(child<QToolButton>(panel, "toolButton_open"), Qt::LeftButton);
    QVERIFY(openedUrls.isEmpty());
}

void TestShadowframeWidget::firstPlainFileWalksSubfolders()
{
    QTemporaryDir root;
    QVERIFY(root.isValid());
    QCOMPARE(firstPlainFile(root.path()), QString());
    QVERIFY(QDir(root.path()).mkpath("a/b"));
    QCOMPARE(firstPlainFile(root.path()), QString());
    QFile file(root.path() + "/a/b/shot.png");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QCOMPARE(firstPlainFile(root.path()), root.path() + "/a/b/shot.png");
    QCOMPARE(firstPlainFile(root.path() + "/missing"), QString());
    QCOMPARE(firstPlainFile(QString()), QString());
}

void TestShadowframeWidget::formatIsStoredTrimmedInThePanelStore_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("stored");
    QTest::newRow("JPEG") << 1 << "JPEG";
    QTest::newRow("JPG") << 2 << "JPG";
    QTest::newRow("BMP") << 3 << "BMP";
}

void TestShadowframeWidget::formatIsStoredTrimmedInThePanelStore()
{
    QFETCH(int, index);
    QFETCH(QString, stored);
    const QString boardBefore = storedIn(true, "picformat");
    shadowframeWidget panel;
    QVERIFY(showActive(panel));
    auto* combo = child<QComboBox>(panel, "comboBox_format");
    combo->setFocus();
    QTRY_VERIFY(combo->hasFocus());

    QTest::ignoreMessage(QtDebugMsg, qPrintable("str = str.simplified \"" + stored + "\""));
    for (int i = 0; i < index; ++i)
        QTest::keyClick(combo, Qt::Key_Down);

    QCOMPARE(combo->currentText(), " " + stored);
    QCOMPARE(storedIn(false, "picformat"), stored);
    QCOMPARE(storedIn(true, "picformat"), boardBefore);
}

void TestShadowframeWidget::closeReportsTheExit()
{
    shadowframeWidget panel;
    QVERIFY(showActive(panel));
    QSignalSpy exit(&panel, &shadowframeWidget::sg_shortexit);
    QTest::mouseClick(child<QPushButton>(panel, "Btn_close"), Qt::LeftButton);
    QCOMPARE(exit.count(), 1);
    QVERIFY(!panel.isVisible());
}

void TestShadowframeWidget::retranslationKeepsTheFormat()
{
    shadowframeWidget panel;
    panel.setFormatText(" JPG");
    storePanelValue("picformat", QVariant());
    auto* combo = child<QComboBox>(panel, "comboBox_format");
    QSignalSpy changes(combo, &QComboBox::currentTextChanged);

    PalloTranslator chinese("chinese");
    QCoreApplication::removeTranslator(english);
    QCoreApplication::installTranslator(&chinese);
    QTRY_COMPARE(child<QLabel>(panel, "label_title")->text(), QString("设置"));
    QCOMPARE(child<QLabel>(panel, "label_timer")->text(), QString("定时器"));
    QCOMPARE(child<QToolButton>(panel, "toolButton_change")->text(), QString("修改"));
    QCOMPARE(combo->count(), 4);
    QCOMPARE(combo->currentText(), QString(" JPG"));
    QCOMPARE(changes.count(), 0);
    QCOMPARE(storedIn(false, "picformat"), QString());

    QCoreApplication::removeTranslator(&chinese);
    QCoreApplication::installTranslator(english);
    QTRY_COMPARE(child<QLabel>(panel, "label_title")->text(), QString("setting"));
    QCOMPARE(combo->currentText(), QString(" JPG"));
}

// Grabbed anywhere but on an editor or a button, the panel follows the pointer.
void TestShadowframeWidget::dragMovesThePanel()
{
    shadowframeWidget panel;
    QVERIFY(showActive(panel));
    panel.move(200, 150);
    QTRY_COMPARE(panel.pos(), QPoint(200, 150));
    auto* title = child<QLabel>(panel, "label_title");
    const QPoint grip = title->mapToGlobal(title->rect().center());

    sendMouse(title, QEvent::MouseButtonPress, grip, Qt::LeftButton);
    sendMouse(title, QEvent::MouseMove, grip + QPoint(40, 30), Qt::LeftButton);
    QTRY_COMPARE(panel.pos(), QPoint(240, 180));
    sendMouse(title, QEvent::MouseMove, grip + QPoint(-60, 10), Qt::LeftButton);
    QTRY_COMPARE(panel.pos(), QPoint(140, 160));
    sendMouse(title, QEvent::MouseButtonRelease, grip + QPoint(-60, 10), Qt::NoButton);
    sendMouse(title, QEvent::MouseMove, grip + QPoint(100, 100), Qt::NoButton);
    QTest::qWait(50);
    QCOMPARE(panel.pos(), QPoint(140, 160));
}

void TestShadowframeWidget::looksFinished_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("en") << "english";
    QTest::newRow("zh") << "chinese";
}

// The panel as a presenter sees it: a white card with a soft shadow on the desktop,
// every text whole, and the longest message fitting in the error line.
void TestShadowframeWidget::looksFinished()
{
    QFETCH(QString, language);
    PalloTranslator translator(language);
    QCoreApplication::removeTranslator(english);
    QCoreApplication::installTranslator(&translator);

    shadowframeWidget panel;
    panel.setZoomKeyText("Ctrl+B");
    panel.setTimerKeyText("Ctrl+M");
    panel.setScreenKeyText("Alt+S");
    panel.setDirectory(QDir::homePath() + "/Desktop");
    panel.setFormatText(" PNG");
    QVERIFY(showActive(panel));

    const QList<QWidget*> texts = panel.findChildren<QWidget*>();
    for (QWidget* w : texts) {
        QString text;
        int room = 0;
        if (auto* label = qobject_cast<QLabel*>(w)) {
            if (label->wordWrap())
                continue;
            text = label->text();
            room = label->contentsRect().width();
        } else if (auto* button = qobject_cast<QToolButton*>(w)) {
            text = button->text();
            room = button->width() - 2 * 8;
        } else if (auto* edit = qobject_cast<KeyLineEdit*>(w)) {
            text = edit->text();
            room = edit->width() - 2 * 9;
        } else if (auto* combo = qobject_cast<QComboBox*>(w)) {
            text = combo->currentText();
            room = combo->width() - 20 - 2 * 9;
        }
        if (text.isEmpty())
            continue;
        const int needed = w->fontMetrics().horizontalAdvance(text);
        QVERIFY2(needed <= room, qPrintable(QString("%1 \"%2\" needs %3 px, has %4")
                                                .arg(w->objectName(), text)
                                                .arg(needed)
                                                .arg(room)));
    }

    auto* error = child<QLabel>(panel, "label_error");
    for (const char* key :
         {"KeyLineEdit.Error.HotKeyErased", "KeyLineEdit.Error.NotSupportSingleNumOrWord",
          "KeyLineEdit.Error.UnknownKey", "KeyLineEdit.Error.SpecialKey",
          "KeyLineEdit.Error.HotkeyForbid"}) {
        const QString message = QCoreApplication::translate("KeyLineEdit", key);
        const QRect needed =
            error->fontMetrics().boundingRect(error->contentsRect(), Qt::TextWordWrap, message);
        QVERIFY2(needed.width() <= error->contentsRect().width() &&
                     needed.height() <= error->contentsRect().height(),
                 qPrintable(QString("%1: %2x%3 in %4x%5")
                                .arg(message)
                                .arg(needed.width())
                                .arg(needed.height())
                                .arg(error->contentsRect().width())
                                .arg(error->contentsRect().height())));
    }

    const QSize before = panel.size();
    panel.sl_error(QCoreApplication::translate("KeyLineEdit", "KeyLineEdit.Error.HotKeyErased"));
    QCOMPARE(panel.size(), before);

    const QImage shot = panel.grab().toImage().convertToFormat(QImage::Format_ARGB32);
    QImage desk(shot.size(), QImage::Format_ARGB32);
    desk.fill(QColor("#dde3ea"));
    QPainter(&desk).drawImage(0, 0, shot);
    QVERIFY(keepPicture(desk, QString("settings-panel-") + QTest::currentDataTag()));

    // White card, transparent corners, and a soft shadow just below the card's edge.
    auto* frame = child<QFrame>(panel, "frame_main");
    const QRect card = frame->geometry();
    QCOMPARE(QColor(shot.pixel(card.left() + 6, card.center().y())), QColor("#ffffff"));
    QCOMPARE(qAlpha(shot.pixel(1, 1)), 0);
    const int shadowAlpha = qAlpha(shot.pixel(card.center().x(), card.bottom() + 4));
    QVERIFY2(shadowAlpha > 5 && shadowAlpha < 160, qPrintable(QString::number(shadowAlpha)));
    QVERIFY(countPixels(shot, isErrorInk) > 50);

    QCoreApplication::removeTranslator(&translator);
    QCoreApplication::installTranslator(english);
}

QTEST_MAIN(TestShadowframeWidget)
#include "test-shadowframe-widget.moc"
