// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/graphics-scene.h"
#include "canvas/graphics-view.h"
#include "canvas/text-itemchange.h"

#include <QGraphicsRectItem>
#include <QtTest>

namespace {

// Collects the debug lines written while it exists, with whether the scene's signals were
// blocked at that moment.
struct DebugLines
{
    explicit DebugLines(QGraphicsScene* scene)
    {
        s_scene = scene;
        s_lines.clear();
        s_blocked.clear();
        m_previous = qInstallMessageHandler(&DebugLines::handle);
    }
    ~DebugLines() { qInstallMessageHandler(m_previous); }

    static void handle(QtMsgType, const QMessageLogContext&, const QString& message)
    {
        if (!message.startsWith("select Changed"))
            return;
        s_lines << message;
        s_blocked << s_scene->signalsBlocked();
    }

    static QStringList s_lines;
    static QList<bool> s_blocked;
    static QGraphicsScene* s_scene;
    QtMessageHandler m_previous;
};

QStringList DebugLines::s_lines;
QList<bool> DebugLines::s_blocked;
QGraphicsScene* DebugLines::s_scene = nullptr;

} // namespace

class TestGraphicsScene : public QObject
{
    Q_OBJECT

private:
    QGraphicsScene m_quietScene;

private slots:
    void canvasUsesIt();
    void selectingTextsWritesOneLineEach();
    void selectionWithoutTextsWritesStartAndEnd();
    void signalsAreBlockedOnlyInsideTheSlot();
    void destroyingTheSceneRunsNoSlot();
};

void TestGraphicsScene::canvasUsesIt()
{
    pallo::GraphicsView view(true, nullptr);
    QVERIFY(qobject_cast<GraphicsScene*>(view.scene()));
}

void TestGraphicsScene::selectingTextsWritesOneLineEach()
{
    GraphicsScene scene;
    auto* first = new textItemchange(nullptr);
    auto* second = new textItemchange(nullptr);
    auto* plain = new QGraphicsTextItem("plain");
    plain->setFlag(QGraphicsItem::ItemIsSelectable);
    auto* box = scene.addRect(0, 0, 10, 10);
    box->setFlag(QGraphicsItem::ItemIsSelectable);
    for (QGraphicsItem* item : QList<QGraphicsItem*>{first, second, plain})
        scene.addItem(item);

    DebugLines lines(&scene);
    box->setSelected(true);
    QCOMPARE(DebugLines::s_lines,
             QStringList({"select Changed slot start", "select Changed slot end"}));
    DebugLines::s_lines.clear();
    first->setSelected(true);
    QCOMPARE(DebugLines::s_lines, QStringList({"select Changed slot start", "select Changed",
                                               "select Changed slot end"}));
    DebugLines::s_lines.clear();
    second->setSelected(true);
    plain->setSelected(true);
    // After the last change three texts are selected: the two board texts and the plain one.
    QCOMPARE(DebugLines::s_lines.mid(DebugLines::s_lines.lastIndexOf("select Changed slot start")),
             QStringList({"select Changed slot start", "select Changed", "select Changed",
                          "select Changed", "select Changed slot end"}));
}

void TestGraphicsScene::selectionWithoutTextsWritesStartAndEnd()
{
    GraphicsScene scene;
    auto* box = scene.addRect(0, 0, 10, 10);
    box->setFlag(QGraphicsItem::ItemIsSelectable);
    box->setSelected(true);
    DebugLines lines(&scene);
    scene.clearSelection();
    QCOMPARE(DebugLines::s_lines,
             QStringList({"select Changed slot start", "select Changed slot end"}));
}

void TestGraphicsScene::signalsAreBlockedOnlyInsideTheSlot()
{
    GraphicsScene scene;
    auto* text = new textItemchange(nullptr);
    scene.addItem(text);
    QSignalSpy spy(&scene, &QGraphicsScene::selectionChanged);
    DebugLines lines(&scene);
    text->setSelected(true);
    QCOMPARE(DebugLines::s_blocked, QList<bool>({false, true, false}));
    QVERIFY(!scene.signalsBlocked());
    // Other receivers still hear of the change.
    QCOMPARE(spy.count(), 1);
    text->setSelected(false);
    QCOMPARE(spy.count(), 2);
}

void TestGraphicsScene::destroyingTheSceneRunsNoSlot()
{
    auto* scene = new GraphicsScene;
    auto* text = new textItemchange(nullptr);
    scene->addItem(text);
    text->setSelected(true);
    DebugLines lines(scene);
    // The handler must not touch the scene once its destruction has begun.
    DebugLines::s_scene = &m_quietScene;
    delete scene;
    QCOMPARE(DebugLines::s_lines, QStringList());
}

QTEST_MAIN(TestGraphicsScene)
#include "test-graphics-scene.moc"
