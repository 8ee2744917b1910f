// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/board-app.h"

#include "bridge/bridge.h"
#include "canvas/graphics-view.h"
#include "host/local-holder.h"
#include "tests/host/seqpacket-server.h"
#include "toolbar/ctrl-form.h"
#include "tools/screen-shot-widget.h"
#include "tools/widgettest.h"
#include "tools/zoom-widget.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QEventLoop>
#include <QFile>
#include <QPointer>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <cstdio>
#include <memory>
#include <vector>

namespace {

const char* const printStyleOption = "--print-style-sheet-at-start";

// One board application object, made the way main makes it: the bridge up with the
// command line parsed, then BoardApp. The application object keeps a reference to argc,
// so the arguments live here as long as it does.
class BoardUnderTest
{
public:
    explicit BoardUnderTest(const QStringList& arguments)
    {
        for (const QString& argument : arguments)
            storage.push_back(argument.toLocal8Bit());
        for (QByteArray& argument : storage)
            argv.push_back(argument.data());
        argv.push_back(nullptr);
        argc = static_cast<int>(storage.size());

        bg::UninitBridge();
        bg::InitBridge(argc, argv.data());
        bg::Options& options = bg::GetBridge()->options();
        options.add("name", 'n', "namepipe name", true, bg::Value(""));
        options.add("language", 'l', "app language", false, bg::Value(""));
        options.parse(argc, argv.data());
        app = std::make_unique<BoardApp>(argc, argv.data());
    }

    ~BoardUnderTest()
    {
        app.reset();
        bg::UninitBridge();
    }

    // Runs the event loop as main does; a loop that never ends gives 99.
    int exec()
    {
        QTimer::singleShot(10000, [] { QCoreApplication::exit(99); });
        return QApplication::exec();
    }

    std::vector<QByteArray> storage;
    std::vector<char*> argv;
    int argc = 0;
    std::unique_ptr<BoardApp> app;
};

// The stylesheet scaled by another road than the board's, to compare with.
QString scaledByHand(const QString& text, double factor)
{
    if (factor <= 1.0)
        return text;
    QString result;
    const QRegularExpression size(QStringLiteral("(\\d+)px;"));
    int last = 0;
    auto matches = size.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        result += text.mid(last, match.capturedStart() - last);
        result += QString::number(match.captured(1).toInt() * factor, 'g', 6) + "px;";
        last = match.capturedEnd();
    }
    return result + text.mid(last);
}

} // namespace

// Each test makes a fresh application object of its own, as every board process does.
class TestBoardApp : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void initializeShowsToolbarAndCanvas();
    void hostMessagesReachTheToolbar_data();
    void hostMessagesReachTheToolbar();
    void showOrHideAndHide();
    void circleModeSwitchesSelectAndDrag();
    void toolRequestsOpenTheirTools();
    void hostDisconnectEndsTheLoopWithZero();
    void unopenablePipeEndsTheLoopWithMinusOne_data();
    void unopenablePipeEndsTheLoopWithMinusOne();
    void fewerThanTwoArgumentsEndsTheLoopWithMinusOne();
    void styleSheetIsScaledAtStart_data();
    void styleSheetIsScaledAtStart();
    void anyMessageFromALaterStartShowsTheToolbar_data();
    void anyMessageFromALaterStartShowsTheToolbar();
    void destructorTakesToolbarAndCanvasAway();

private:
    // Starts a board on a listening pipe and waits until it is initialised.
    bool startConnected();

    std::unique_ptr<QTemporaryDir> dir;
    std::unique_ptr<SeqpacketServer> server;
    std::unique_ptr<BoardUnderTest> board;
};

void TestBoardApp::init()
{
    dir = std::make_unique<QTemporaryDir>();
    QVERIFY(dir->isValid());
    server = std::make_unique<SeqpacketServer>(dir->filePath("pipe"));
}

void TestBoardApp::cleanup()
{
    board.reset();
    server.reset();
    dir.reset();
}

bool TestBoardApp::startConnected()
{
    if (!server->start())
        return false;
    board = std::make_unique<BoardUnderTest>(
        QStringList{"pallo-board", "--name", dir->filePath("pipe"), "--language", "english"});
    if (!QTest::qWaitFor([this] { return board->app->toolbar() != nullptr; }, 5000))
        return false;
    return server->accept();
}

void TestBoardApp::initializeShowsToolbarAndCanvas()
{
    QVERIFY(startConnected());
    CtrlForm* toolbar = board->app->toolbar();
    QVERIFY(board->app->localHolder() != nullptr);
    QCOMPARE(board->app->localHolder()->parent(), board->app.get());
    QVERIFY(toolbar->parentWidget() == toolbar->canvasView());
    QTRY_VERIFY(toolbar->isVisible());
    QVERIFY(toolbar->canvasView()->isVisible());
    // Over the whole screen, but not in the full-screen state that compositors back with black.
    QCOMPARE(toolbar->canvasView()->geometry(), QGuiApplication::primaryScreen()->geometry());
    QVERIFY(!toolbar->canvasView()->isFullScreen());
    // Start state: the select tool, with the canvas letting clicks through.
    QCOMPARE(toolbar->figureGroup()->checkedId(), 6);
    QVERIFY(toolbar->isChooseMode());
    QVERIFY(toolbar->canvasView()->chooseMode());
    QCOMPARE(BoardApp::ScaleFactor(),
             QGuiApplication::primaryScreen()->logicalDotsPerInch() / 96.0);
}

void TestBoardApp::hostMessagesReachTheToolbar_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<int>("count");
    QTest::newRow("undo") << QByteArray(R"({"type":"undo","data":1})")
                          << QByteArray(SIGNAL(sg_undo())) << 1;
    QTest::newRow("Undo is not undo")
        << QByteArray(R"({"type":"Undo"})") << QByteArray(SIGNAL(sg_undo())) << 0;
    QTest::newRow("redo") << QByteArray(R"({"type":"redo"})") << QByteArray(SIGNAL(sg_redo())) << 1;
    QTest::newRow("trash_can") << QByteArray(R"({"type":"trash_can"})")
                               << QByteArray(SIGNAL(sg_clear())) << 1;
    QTest::newRow("timer") << QByteArray(R"({"type":"timer"})") << QByteArray(SIGNAL(sg_timer()))
                           << 1;
    QTest::newRow("type not text")
        << QByteArray(R"({"type":[1]})") << QByteArray(SIGNAL(sg_clear())) << 0;
}

void TestBoardApp::hostMessagesReachTheToolbar()
{
    QFETCH(QByteArray, message);
    QFETCH(QByteArray, signal);
    QFETCH(int, count);
    QVERIFY(startConnected());
    QSignalSpy spy(board->app->toolbar(), signal.constData());
    QVERIFY(server->send(message));
    if (count > 0) {
        QTRY_COMPARE(spy.count(), count);
    } else {
        // A marker message behind it: once the marker is through, so is the message.
        QSignalSpy marker(board->app->toolbar(), SIGNAL(sg_redo()));
        QVERIFY(server->send(R"({"type":"redo"})"));
        QTRY_VERIFY(!marker.isEmpty());
    }
    QTest::qWait(50);
    QCOMPARE(spy.count(), count);
}

void TestBoardApp::showOrHideAndHide()
{
    QVERIFY(startConnected());
    CtrlForm* toolbar = board->app->toolbar();
    QTRY_VERIFY(toolbar->isVisible());

    QVERIFY(server->send(R"({"type":"show_or_hide"})"));
    QTRY_VERIFY(!toolbar->isVisible());
    QVERIFY(!toolbar->canvasView()->isVisible());

    QVERIFY(server->send(R"({"type":"show_or_hide"})"));
    QTRY_VERIFY(toolbar->isVisible());
    QVERIFY(toolbar->canvasView()->isVisible());

    QVERIFY(server->send(R"({"type":"hide"})"));
    QTRY_VERIFY(!toolbar->isVisible());
    QVERIFY(server->send(R"({"type":"hide"})"));
    QVERIFY(server->send(R"({"type":"hide"})"));
    QTest::qWait(100);
    QVERIFY(!toolbar->isVisible());
    QVERIFY(!toolbar->canvasView()->isVisible());
}

void TestBoardApp::circleModeSwitchesSelectAndDrag()
{
    QVERIFY(startConnected());
    CtrlForm* toolbar = board->app->toolbar();
    QAbstractButton* select = toolbar->figureGroup()->button(6);
    QSignalSpy figures(toolbar, &CtrlForm::sg_figure);

    QVERIFY(server->send(R"({"type":"circle_mode"})"));
    QTRY_COMPARE(select->text(), QStringLiteral("drag"));
    QCOMPARE(figures.count(), 1);
    QCOMPARE(figures.at(0).at(0).toString(), QStringLiteral("drag"));
    QVERIFY(!toolbar->isChooseMode());

    QVERIFY(server->send(R"({"type":"circle_mode"})"));
    QTRY_COMPARE(select->text(), QStringLiteral("choose"));
    QVERIFY(toolbar->isChooseMode());
}

void TestBoardApp::toolRequestsOpenTheirTools()
{
    QVERIFY(startConnected());
    CtrlForm* toolbar = board->app->toolbar();
    QVERIFY(server->send(R"({"type":"zoom"})"));
    QTRY_VERIFY(toolbar->magnifier() && toolbar->magnifier()->isVisible());
    QCOMPARE(toolbar->magnifier()->geometry(), QGuiApplication::primaryScreen()->geometry());
    QVERIFY(server->send(R"({"type":"shut"})"));
    QTRY_VERIFY(toolbar->screenShot() && toolbar->screenShot()->isVisible());
    QCOMPARE(toolbar->screenShot()->geometry(), QGuiApplication::primaryScreen()->geometry());

    // A second request while a tool is open opens no second one.
    QPointer<ZoomWidget> magnifier = toolbar->magnifier();
    QPointer<screenShotWidget> screenShot = toolbar->screenShot();
    QVERIFY(server->send(R"({"type":"zoom"})"));
    QVERIFY(server->send(R"({"type":"shut"})"));
    QSignalSpy marker(toolbar, SIGNAL(sg_clear()));
    QVERIFY(server->send(R"({"type":"trash_can"})"));
    QTRY_COMPARE(marker.count(), 1);
    QCOMPARE(toolbar->magnifier(), magnifier.data());
    QCOMPARE(toolbar->screenShot(), screenShot.data());
    QCOMPARE(toolbar->findChildren<ZoomWidget*>().size(), 1);
    QCOMPARE(toolbar->findChildren<screenShotWidget*>().size(), 1);
    QVERIFY(toolbar->isVisible());

    // The timer toggles.
    pallo::GraphicsView* view = toolbar->canvasView();
    QVERIFY(server->send(R"({"type":"timer"})"));
    QTRY_VERIFY(view->timerWindow() && view->timerWindow()->isVisible());
    QVERIFY(server->send(R"({"type":"timer"})"));
    QTRY_VERIFY(!view->timerWindow());
    QCOMPARE(view->findChildren<Widgettest*>().size(), 0);
}

void TestBoardApp::hostDisconnectEndsTheLoopWithZero()
{
    QVERIFY(startConnected());
    QTimer::singleShot(50, [this] { server->closeConnection(); });
    QCOMPARE(board->exec(), 0);
}

void TestBoardApp::unopenablePipeEndsTheLoopWithMinusOne_data()
{
    QTest::addColumn<bool>("socketExists");
    QTest::newRow("nothing at the path") << false;
    QTest::newRow("socket refuses") << true;
}

void TestBoardApp::unopenablePipeEndsTheLoopWithMinusOne()
{
    QFETCH(bool, socketExists);
    if (socketExists)
        QVERIFY(server->bind());
    board = std::make_unique<BoardUnderTest>(
        QStringList{"pallo-board", "--name", dir->filePath("pipe")});
    QCOMPARE(board->exec(), -1);
    QVERIFY(board->app->localHolder() != nullptr);
    QVERIFY(board->app->toolbar() == nullptr);

    // The failed link still reports its loss on a later poll; that report must not
    // end anything again, least of all with 0.
    QEventLoop afterwards;
    QTimer::singleShot(200, [&afterwards] { afterwards.exit(7); });
    QCOMPARE(afterwards.exec(), 7);
    QVERIFY(board->app->toolbar() == nullptr);
}

void TestBoardApp::fewerThanTwoArgumentsEndsTheLoopWithMinusOne()
{
    board = std::make_unique<BoardUnderTest>(QStringList{"pallo-board"});
    QCOMPARE(board->exec(), -1);
    QVERIFY(board->app->localHolder() == nullptr);
    QVERIFY(board->app->toolbar() == nullptr);
}

void TestBoardApp::styleSheetIsScaledAtStart_data()
{
    QTest::addColumn<QByteArray>("dpi");
    QTest::addColumn<double>("factor");
    QTest::newRow("96 dpi, byte for byte") << QByteArray("96") << 1.0;
    QTest::newRow("144 dpi, one and a half") << QByteArray("144") << 1.5;
}

void TestBoardApp::styleSheetIsScaledAtStart()
{
    QFETCH(QByteArray, dpi);
    QFETCH(double, factor);
    // The screen's DPI is fixed for the life of the process, so the board starts in a
    // fresh copy of this program. Between boards there is no application object, and
    // QProcess needs one.
    int argc = 1;
    char name[] = "test-board-app";
    char* argv[] = {name, nullptr};
    QCoreApplication core(argc, argv);
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_FONT_DPI"), QString::fromLatin1(dpi));
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(printStyleOption)});
    QVERIFY(child.waitForFinished(30000));
    QCOMPARE(child.exitCode(), 0);
    const QByteArray output = child.readAllStandardOutput();
    const int newline = output.indexOf('\n');
    QCOMPARE(output.left(newline).toDouble(), factor);
    const QString applied = QString::fromUtf8(output.mid(newline + 1));

    QFile file(QStringLiteral(":/images/qss.css"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString original = QString::fromUtf8(file.readAll());
    QVERIFY(original.contains(QRegularExpression(QStringLiteral("\\d+px;"))));
    QCOMPARE(applied, scaledByHand(original, factor));
    if (factor > 1.0)
        QVERIFY(applied != original);
}

void TestBoardApp::anyMessageFromALaterStartShowsTheToolbar_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<bool>("minimised");
    QTest::newRow("show, hidden") << QByteArray("show") << false;
    QTest::newRow("other text, hidden") << QByteArray("something else") << false;
    QTest::newRow("show, minimised") << QByteArray("show") << true;
}

void TestBoardApp::anyMessageFromALaterStartShowsTheToolbar()
{
    QFETCH(QByteArray, message);
    QFETCH(bool, minimised);
    QVERIFY(startConnected());
    CtrlForm* toolbar = board->app->toolbar();
    QTRY_VERIFY(toolbar->isVisible());
    if (minimised) {
        toolbar->showMinimized();
        QTRY_VERIFY(toolbar->isMinimized());
    } else {
        board->app->HideBoard();
        QVERIFY(!toolbar->isVisible());
    }

    emit board->app->receivedMessage(1, message);
    QVERIFY(toolbar->isVisible());
    QVERIFY(!toolbar->isMinimized());
}

void TestBoardApp::destructorTakesToolbarAndCanvasAway()
{
    QVERIFY(startConnected());
    QPointer<CtrlForm> toolbar = board->app->toolbar();
    QPointer<pallo::GraphicsView> canvas = toolbar->canvasView();
    QPointer<LocalHolder> holder = board->app->localHolder();
    board.reset();
    QVERIFY(toolbar.isNull());
    QVERIFY(canvas.isNull());
    QVERIFY(holder.isNull());
}

// Started with printStyleOption: brings a board up and prints its scale factor on one
// line and then the application stylesheet it set.
int printStyleSheetAtStart()
{
    QTemporaryDir dir;
    SeqpacketServer server(dir.filePath("pipe"));
    if (!dir.isValid() || !server.start())
        return 1;
    BoardUnderTest board(QStringList{"pallo-board", "--name", dir.filePath("pipe")});
    if (!QTest::qWaitFor([&board] { return board.app->toolbar() != nullptr; }, 10000))
        return 1;
    const QByteArray text =
        QByteArray::number(BoardApp::ScaleFactor(), 'g', 6) + '\n' + qApp->styleSheet().toUtf8();
    std::fwrite(text.constData(), 1, static_cast<size_t>(text.size()), stdout);
    return 0;
}

int main(int argc, char* argv[])
{
    if (argc == 2 && qstrcmp(argv[1], printStyleOption) == 0)
        return printStyleSheetAtStart();
    TestBoardApp test;
    return QTest::qExec(&test, argc, argv);
}
#include "test-board-app.moc"
