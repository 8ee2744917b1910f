// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/bridge.h"
#include "root-pattern.h"
#include "tests/bridge/stderr-capture.h"
#include "tests/test-output.h"
#include "tool-test-support.h"
#include "tools/frame-handles.h"
#include "tools/notice-label.h"
#include "tools/screen-shot-widget.h"
#include "x-input-focus.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QGraphicsDropShadowEffect>
#include <QImageReader>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <ctime>

using namespace tool_test;
using frame_handles::scale;
using frame_handles::scaled;

namespace {
const int cell = 16;
const QString stampPattern = "^\\d{4}-\\d\\d-\\d\\d-\\d\\d-\\d\\d-\\d\\d\\.";
} // namespace

class TestScreenShotWidget : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void form();
    void startsInTheMiddle();
    void hover_data();
    void hover();
    void moveLeavingTheDesktopIsRefusedPerAxis();
    void resizeNearTheOppositeEdgeIsRefused();
    void releaseKeepsTheDragMode();
    void buttonsGoInsideAtTheScreenBottom();
    void escapeLeavesTheToolOpen();
    void everyPressIsLogged();
    void closeButtonEndsTheTool();
    void keepsActivationAfterItsPicture();
    void savingWritesCopiesAndHandsOn();
    void savingAsJpg();
    void twoSavesInOneSecondLeaveOneFile();
    void missingFolderIsCreated();
    void failedSaveIsShownAndKeepsThePicture();
    void emptyFormatEndsInADot();

private:
    static QStringList noticeTexts();
    void openActivated();
    void configure(const QString& folder, const QString& format);
    QImage save(QStringList* order = nullptr);
    QImage expectedCut() const;

    RootPattern root;
    QTemporaryDir folder;
    screenShotWidget* shot = nullptr;
    QSize desktop;
    QImage picture;
};

void TestScreenShotWidget::initTestCase()
{
    QVERIFY(root.isOpen());
    QVERIFY(folder.isValid());
    QVERIFY(bg::InitBridge(0, nullptr));
    desktop = frame_handles::desktopSize();
    picture = RootPattern::gradient(desktop, cell);
    root.show(picture);
}

void TestScreenShotWidget::cleanupTestCase()
{
    bg::UninitBridge();
}

void TestScreenShotWidget::init()
{
    QDir(folder.path()).removeRecursively();
    QDir().mkpath(folder.path());
    configure(folder.path(), "png");
    QGuiApplication::clipboard()->clear();
    shot = new screenShotWidget;
}

void TestScreenShotWidget::cleanup()
{
    // Closed before it goes, as its owner does, so that its activation ends.
    shot->close();
    delete shot;
    shot = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* notice = qobject_cast<NoticeLabel*>(window))
            delete notice;
    }
}

QStringList TestScreenShotWidget::noticeTexts()
{
    QStringList texts;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* notice = qobject_cast<NoticeLabel*>(window); notice && notice->isVisible())
            texts << notice->text();
    }
    return texts;
}

void TestScreenShotWidget::configure(const QString& path, const QString& format)
{
    bg::ConfigStore& config = bg::GetBridge()->config();
    QVERIFY(config.set("screen.shot.path", bg::Value(path.toStdString())));
    QVERIFY(config.set("screen.shot.format", bg::Value(format.toStdString())));
}

void TestScreenShotWidget::openActivated()
{
    showWithPicture(shot, shot->selectionRect(), picture.pixelColor(20, 20));
}

QImage TestScreenShotWidget::expectedCut() const
{
    return picture.copy(shot->selectionRect());
}

// Clicks save and returns the image the tool handed on; order collects the signals.
QImage TestScreenShotWidget::save(QStringList* order)
{
    QImage handedOn;
    QStringList seen;
    const auto a = connect(shot, &screenShotWidget::sg_screenimage, this, [&](QImage image) {
        handedOn = image;
        seen << "image";
    });
    const auto b = connect(shot, &screenShotWidget::sg_transtochoose, this, [&] {
        seen << (shot->isVisible() ? "choose while open" : "choose after close");
    });
    const auto c = connect(shot, &screenShotWidget::sg_screenexit, this, [&] {
        seen << (shot->isVisible() ? "exit while open" : "exit after close");
    });
    shot->findChild<QPushButton*>("pushButton_screenshot")->click();
    disconnect(a);
    disconnect(b);
    disconnect(c);
    if (order != nullptr)
        *order = seen;
    return handedOn;
}

void TestScreenShotWidget::form()
{
    QCOMPARE(shot->objectName(), QString("screenShotWidget"));
    QCOMPARE(shot->windowTitle(), QString("screenShotWidget"));
    auto* save = shot->findChild<QPushButton*>("pushButton_screenshot");
    auto* close = shot->findChild<QPushButton*>("pushButton_screenshot_close");
    QVERIFY(save != nullptr && close != nullptr);
    QVERIFY(shot->testAttribute(Qt::WA_MouseTracking));
    for (QPushButton* button : {save, close}) {
        QCOMPARE(button->text(), QString());
        QCOMPARE(button->styleSheet(), QString());
        QCOMPARE(button->minimumSize(), QSize(44, 44));
        QCOMPARE(button->font().family(), QString::fromUtf8("微软雅黑"));
        QCOMPARE(button->font().pointSize(), 10);
        QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        QVERIFY(hasHalo(button));
    }
}

void TestScreenShotWidget::startsInTheMiddle()
{
    const double s = scale();
    const QRect selection = shot->selectionRect();
    QCOMPARE(selection.size(), QSize(scaled(300, s), scaled(300, s)));
    QCOMPARE(selection.center(), QPoint(desktop.width() / 2, desktop.height() / 2));
    const int b = scaled(44, s);
    const frame_handles::ButtonPair under = frame_handles::buttonsUnder(selection, b, s);
    QCOMPARE(shot->findChild<QPushButton*>("pushButton_screenshot")->geometry(), under.left);
    QCOMPARE(shot->findChild<QPushButton*>("pushButton_screenshot_close")->geometry(), under.right);
    QCOMPARE(shot->currentDragMode(), 4);
    if (qFuzzyCompare(s, 1.0)) {
        QCOMPARE(selection.size(), QSize(300, 300));
        QCOMPARE(b, 44);
    }
    openActivated();
    // Nothing outside the selection is dimmed; the handles are white squares.
    const QImage seen = grabScreen();
    QCOMPARE(seen.pixelColor(selection.left() - 30, selection.center().y()),
             picture.pixelColor(selection.left() - 30, selection.center().y()));
    QCOMPARE(seen.pixelColor(selection.center()), picture.pixelColor(selection.center()));
    for (int corner = 0; corner < 4; ++corner) {
        const QRect handle = frame_handles::handleRect(selection, corner, s);
        QCOMPARE(handle.size(), QSize(scaled(10, s), scaled(10, s)));
        QCOMPARE(seen.pixelColor(handle.center()), QColor(Qt::white));
    }
    const QColor edge = seen.pixelColor(selection.center().x(), selection.top());
    QVERIFY2(sameColour(edge, QColor("#F5A623"), 60), qPrintable(edge.name()));
    keepPicture(seen, "screen-shot-widget");
}

void TestScreenShotWidget::hover_data()
{
    QTest::addColumn<int>("corner");
    QTest::addColumn<Qt::CursorShape>("shape");
    QTest::newRow("top-left") << 0 << Qt::SizeFDiagCursor;
    QTest::newRow("bottom-left") << 1 << Qt::SizeBDiagCursor;
    QTest::newRow("bottom-right") << 2 << Qt::SizeFDiagCursor;
    QTest::newRow("top-right") << 3 << Qt::SizeBDiagCursor;
    QTest::newRow("inside") << 4 << Qt::ArrowCursor;
}

void TestScreenShotWidget::hover()
{
    QFETCH(int, corner);
    QFETCH(Qt::CursorShape, shape);
    const QRect r = shot->selectionRect();
    const QPoint points[] = {r.topLeft(), r.bottomLeft(), r.bottomRight(), r.topRight(),
                             r.center()};
    const int t = scaled(4, scale());
    sendMouse(shot, QEvent::MouseMove, points[corner] + QPoint(-t, t), Qt::NoButton, Qt::NoButton);
    QCOMPARE(shot->currentDragMode(), corner);
    QCOMPARE(shot->cursor().shape(), shape);
    QCOMPARE(shot->selectionRect(), r);
}

void TestScreenShotWidget::moveLeavingTheDesktopIsRefusedPerAxis()
{
    const QRect r = shot->selectionRect();
    const int half = r.width() / 2;
    sendMouse(shot, QEvent::MouseButtonPress, r.center(), Qt::LeftButton, Qt::LeftButton);
    sendMouse(shot, QEvent::MouseMove, QPoint(half, 500), Qt::NoButton, Qt::LeftButton);
    QCOMPARE(shot->selectionRect().center(), QPoint(half, 500));
    // One pixel further left would put part of it off the desktop: x stays, y follows.
    sendMouse(shot, QEvent::MouseMove, QPoint(half - 1, 520), Qt::NoButton, Qt::LeftButton);
    QCOMPARE(shot->selectionRect().center(), QPoint(half, 520));
    sendMouse(shot, QEvent::MouseMove, QPoint(700, desktop.height() - half + 1), Qt::NoButton,
              Qt::LeftButton);
    QCOMPARE(shot->selectionRect().center(), QPoint(700, 520));
    QCOMPARE(shot->selectionRect().size(), r.size());
}

void TestScreenShotWidget::resizeNearTheOppositeEdgeIsRefused()
{
    const QRect r = shot->selectionRect();
    const int near = static_cast<int>(10 * scale());
    sendMouse(shot, QEvent::MouseMove, r.bottomRight(), Qt::NoButton, Qt::NoButton);
    sendMouse(shot, QEvent::MouseButtonPress, r.bottomRight(), Qt::LeftButton, Qt::LeftButton);
    sendMouse(shot, QEvent::MouseMove, r.bottomRight() + QPoint(50, 40), Qt::NoButton,
              Qt::LeftButton);
    QCOMPARE(shot->selectionRect(), QRect(r.topLeft(), r.bottomRight() + QPoint(50, 40)));
    // Within 10*s of the fixed left and top edges, and past them: unchanged.
    const QRect grown = shot->selectionRect();
    sendMouse(shot, QEvent::MouseMove, r.topLeft() + QPoint(near, near), Qt::NoButton,
              Qt::LeftButton);
    QCOMPARE(shot->selectionRect(), grown);
    sendMouse(shot, QEvent::MouseMove, r.topLeft() - QPoint(40, 40), Qt::NoButton, Qt::LeftButton);
    QCOMPARE(shot->selectionRect(), grown);
    // Past on one axis only: the other one follows.
    sendMouse(shot, QEvent::MouseMove, QPoint(r.left() - 40, r.top() + 100), Qt::NoButton,
              Qt::LeftButton);
    QCOMPARE(shot->selectionRect(), QRect(r.topLeft(), QPoint(grown.right(), r.top() + 100)));
}

void TestScreenShotWidget::releaseKeepsTheDragMode()
{
    const QRect r = shot->selectionRect();
    sendMouse(shot, QEvent::MouseMove, r.bottomRight(), Qt::NoButton, Qt::NoButton);
    sendMouse(shot, QEvent::MouseButtonPress, r.bottomRight(), Qt::LeftButton, Qt::LeftButton);
    sendMouse(shot, QEvent::MouseButtonRelease, r.bottomRight(), Qt::LeftButton, Qt::NoButton);
    QCOMPARE(shot->currentDragMode(), 2);
    // The next press resizes again.
    sendMouse(shot, QEvent::MouseButtonPress, r.bottomRight(), Qt::LeftButton, Qt::LeftButton);
    sendMouse(shot, QEvent::MouseMove, r.bottomRight() + QPoint(30, 20), Qt::NoButton,
              Qt::LeftButton);
    QCOMPARE(shot->selectionRect(), QRect(r.topLeft(), r.bottomRight() + QPoint(30, 20)));
}

void TestScreenShotWidget::buttonsGoInsideAtTheScreenBottom()
{
    const QRect r = shot->selectionRect();
    sendMouse(shot, QEvent::MouseButtonPress, r.center(), Qt::LeftButton, Qt::LeftButton);
    sendMouse(shot, QEvent::MouseMove, QPoint(r.center().x(), desktop.height()), Qt::NoButton,
              Qt::LeftButton);
    sendMouse(shot, QEvent::MouseMove, QPoint(r.center().x(), desktop.height() - r.height() / 2),
              Qt::NoButton, Qt::LeftButton);
    const QRect low = shot->selectionRect();
    QVERIFY2(low.bottom() >= desktop.height() - 1, qPrintable(QString::number(low.bottom())));
    for (const char* name : {"pushButton_screenshot", "pushButton_screenshot_close"}) {
        const QRect button = shot->findChild<QPushButton*>(name)->geometry();
        QVERIFY(low.contains(button));
        QCOMPARE(low.bottom() - button.bottom(), 7);
    }
    // What the user sees: the buttons drawn inside the selection, above its bottom edge.
    openActivated();
    const QImage seen = grabScreen();
    const QRect save = shot->findChild<QPushButton*>("pushButton_screenshot")->geometry();
    QVERIFY(seen.pixelColor(save.center()) != picture.pixelColor(save.center()));
}

void TestScreenShotWidget::escapeLeavesTheToolOpen()
{
    openActivated();
    QSignalSpy exits(shot, &screenShotWidget::sg_screenexit);
    sendKey(shot, Qt::Key_Escape);
    QTest::keyClick(shot, Qt::Key_Escape);
    QVERIFY(shot->isVisible());
    QCOMPARE(exits.count(), 0);
}

void TestScreenShotWidget::everyPressIsLogged()
{
    DebugLog log;
    const QPoint at = shot->selectionRect().center();
    sendMouse(shot, QEvent::MouseButtonPress, at, Qt::RightButton, Qt::RightButton);
    sendMouse(shot, QEvent::MouseButtonRelease, at, Qt::RightButton, Qt::NoButton);
    sendMouse(shot, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(log.count(QString::fromUtf8("鼠标事件")), 2);
}

void TestScreenShotWidget::closeButtonEndsTheTool()
{
    openActivated();
    QSignalSpy exits(shot, &screenShotWidget::sg_screenexit);
    QSignalSpy images(shot, &screenShotWidget::sg_screenimage);
    QSignalSpy chooses(shot, &screenShotWidget::sg_transtochoose);
    shot->findChild<QPushButton*>("pushButton_screenshot_close")->click();
    QVERIFY(!shot->isVisible());
    QCOMPARE(exits.count(), 1);
    QCOMPARE(images.count(), 0);
    QCOMPARE(chooses.count(), 0);
    QVERIFY(QDir(folder.path()).isEmpty());
}

void TestScreenShotWidget::savingWritesCopiesAndHandsOn()
{
    openActivated();
    // A selection of its own size and place, so that the cut is told apart.
    const QRect r = shot->selectionRect();
    sendMouse(shot, QEvent::MouseMove, r.topLeft(), Qt::NoButton, Qt::NoButton);
    sendMouse(shot, QEvent::MouseButtonPress, r.topLeft(), Qt::LeftButton, Qt::LeftButton);
    sendMouse(shot, QEvent::MouseMove, r.topLeft() + QPoint(37, -51), Qt::NoButton, Qt::LeftButton);
    sendMouse(shot, QEvent::MouseButtonRelease, r.topLeft() + QPoint(37, -51), Qt::LeftButton,
              Qt::NoButton);
    const QImage expected = expectedCut();
    QCOMPARE(expected.size(), QSize(r.width() - 37, r.height() + 51));

    DebugLog log;
    const std::time_t before = std::time(nullptr);
    QStringList order;
    const QImage handedOn = save(&order);
    const std::time_t after = std::time(nullptr);
    QCOMPARE(order, (QStringList{"image", "choose while open", "exit after close"}));
    QVERIFY(!shot->isVisible());

    const QStringList files = QDir(folder.path()).entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    QVERIFY2(QRegularExpression(stampPattern + "png$").match(files.first()).hasMatch(),
             qPrintable(files.first()));
    QStringList stamps;
    for (std::time_t t = before; t <= after; ++t) {
        char text[32];
        std::strftime(text, sizeof text, "%Y-%m-%d-%H-%M-%S", std::localtime(&t));
        stamps << QString(text) + ".png";
    }
    QVERIFY2(stamps.contains(files.first()), qPrintable(files.first()));

    const QImage written(folder.filePath(files.first()));
    QCOMPARE(written.convertToFormat(QImage::Format_RGB32), expected);
    QCOMPARE(handedOn.convertToFormat(QImage::Format_RGB32), expected);
    QCOMPARE(QGuiApplication::clipboard()
                 ->image(QClipboard::Clipboard)
                 .convertToFormat(QImage::Format_RGB32),
             expected);

    QCOMPARE(log.lines().first(), QString("------------------------------screen"));
    QVERIFY(log.lines().contains(folder.filePath(files.first())));
}

void TestScreenShotWidget::savingAsJpg()
{
    configure(folder.path(), " jpg ");
    openActivated();
    const QImage expected = expectedCut();
    save();
    const QStringList files = QDir(folder.path()).entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    QVERIFY2(QRegularExpression(stampPattern + "jpg$").match(files.first()).hasMatch(),
             qPrintable(files.first()));
    QImageReader reader(folder.filePath(files.first()));
    QCOMPARE(reader.format(), QByteArray("jpeg"));
    const QImage written = reader.read();
    QCOMPARE(written.size(), expected.size());
    const QPoint middle(expected.width() / 2 + 8, expected.height() / 2 + 8);
    QVERIFY(sameColour(written.pixelColor(middle), expected.pixelColor(middle), 40));
}

void TestScreenShotWidget::twoSavesInOneSecondLeaveOneFile()
{
    // Both saves must fall in one second; a try that straddles a second is repeated, and
    // each starts just after a second begins.
    for (int attempt = 0; attempt < 10; ++attempt) {
        QDir(folder.path()).removeRecursively();
        QDir().mkpath(folder.path());
        openActivated();
        const std::time_t before = std::time(nullptr);
        QTRY_VERIFY_WITH_TIMEOUT(std::time(nullptr) != before, 2000);
        const std::time_t start = std::time(nullptr);
        save();
        delete shot;
        shot = new screenShotWidget;
        openActivated();
        // The second capture is a different part of the screen.
        const QRect r = shot->selectionRect();
        sendMouse(shot, QEvent::MouseButtonPress, r.center(), Qt::LeftButton, Qt::LeftButton);
        sendMouse(shot, QEvent::MouseMove, r.center() - QPoint(200, 100), Qt::NoButton,
                  Qt::LeftButton);
        sendMouse(shot, QEvent::MouseButtonRelease, r.center() - QPoint(200, 100), Qt::LeftButton,
                  Qt::NoButton);
        const QImage second = expectedCut();
        save();
        if (std::time(nullptr) != start)
            continue;
        const QStringList files = QDir(folder.path()).entryList(QDir::Files);
        QCOMPARE(files.size(), 1);
        QCOMPARE(QImage(folder.filePath(files.first())).convertToFormat(QImage::Format_RGB32),
                 second);
        return;
    }
    QFAIL("no two saves fell within one second");
}

void TestScreenShotWidget::missingFolderIsCreated()
{
    const QString missing = folder.filePath("not/there");
    configure(missing, "png");
    openActivated();
    const QImage expected = expectedCut();
    save();
    const QStringList files = QDir(missing).entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    QCOMPARE(QImage(QDir(missing).filePath(files.first())).convertToFormat(QImage::Format_RGB32),
             expected);
    QVERIFY(noticeTexts().isEmpty());
}

void TestScreenShotWidget::failedSaveIsShownAndKeepsThePicture()
{
    // A plain file where the folder should be: no folder can be made there, even by root.
    const QString blocker = folder.filePath("blocker");
    {
        QFile file(blocker);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    const QString target = blocker + "/shots";
    configure(target, "png");
    openActivated();
    const QImage expected = expectedCut();
    QStringList order;
    StderrCapture capture;
    const QImage handedOn = save(&order);
    const QByteArray errors = capture.finish();
    QCOMPARE(order, (QStringList{"image", "choose while open", "exit after close"}));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList{"blocker"});
    QCOMPARE(handedOn.convertToFormat(QImage::Format_RGB32), expected);
    QCOMPARE(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), expected);
    QVERIFY2(errors.contains("[E] screenshot not saved to " + QFile::encodeName(target) + "/"),
             errors.constData());
    const QStringList notices = noticeTexts();
    QCOMPARE(notices.size(), 1);
    QVERIFY2(notices.first().contains(target + "/"), qPrintable(notices.first()));
}

void TestScreenShotWidget::emptyFormatEndsInADot()
{
    configure(folder.path(), "");
    openActivated();
    DebugLog log;
    QStringList order;
    save(&order);
    QCOMPARE(order.size(), 3);
    const QRegularExpression named(QRegularExpression::escape(folder.path() + "/") +
                                   stampPattern.mid(1) + "$");
    bool found = false;
    for (const QString& line : log.lines())
        found = found || named.match(line).hasMatch();
    QVERIFY2(found, qPrintable(log.lines().join('\n')));
    // No writer knows a picture type without a suffix: nothing lands in the folder.
    QVERIFY(QDir(folder.path()).isEmpty());
}

void TestScreenShotWidget::keepsActivationAfterItsPicture()
{
    showLikeItsOwner(shot);
    QTRY_VERIFY(grabScreen().pixelColor(20, 20) == picture.pixelColor(20, 20));
    // Hiding for the picture takes the X server's focus away, and the server says so only
    // after the tool is back. It must come out of that active and holding the focus, or
    // the next click on it would take another picture instead of reaching its button.
    QTest::qWait(1000);
    QCOMPARE(QApplication::activeWindow(), static_cast<QWidget*>(shot));
    QCOMPARE(xInputFocus(), static_cast<unsigned long>(shot->winId()));
}

QTEST_MAIN(TestScreenShotWidget)
#include "test-screen-shot-widget.moc"
