// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas-test-support.h"
#include "canvas/cursor-image.h"
#include "canvas/d-data.h"
#include "canvas/draw-manager-ex.h"
#include "canvas/graphics-scene.h"
#include "canvas/graphics-view.h"
#include "canvas/text-itemchange.h"

#include <QApplication>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <QTimer>
#include <QUndoStack>
#include <QtTest>
#include <memory>

namespace {

const QColor kSelection(0, 120, 215);

struct Ink
{
    int pixels = 0;
    QRect box;
};

// Pixels of about the given colour, fully opaque, and the rectangle they fill.
Ink inkOf(const QImage& image, const QColor& color, const QRect& area)
{
    Ink ink;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb p = image.pixel(x, y);
            if (qAlpha(p) < 200)
                continue;
            if (std::abs(qRed(p) - color.red()) > 60 || std::abs(qGreen(p) - color.green()) > 60 ||
                std::abs(qBlue(p) - color.blue()) > 60)
                continue;
            ++ink.pixels;
            ink.box |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

Ink referenceInk(const QString& text, const QFont& font, const QColor& color)
{
    QImage image(400, 200, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(QPointF(20, 100), text);
    painter.end();
    return inkOf(image, color, image.rect());
}

bool isSelectionBlue(QRgb pixel)
{
    // The picture holds premultiplied pixels.
    const QColor c = QColor::fromRgba(qUnpremultiply(pixel));
    return c.alpha() >= 149 && c.alpha() <= 152 && std::abs(c.red() - kSelection.red()) <= 3 &&
           std::abs(c.green() - kSelection.green()) <= 3 &&
           std::abs(c.blue() - kSelection.blue()) <= 3;
}

QGraphicsSceneMouseEvent* doubleClickAt(const QPointF& scenePos)
{
    auto* event = new QGraphicsSceneMouseEvent(QEvent::GraphicsSceneMouseDoubleClick);
    event->setButton(Qt::LeftButton);
    event->setButtons(Qt::LeftButton);
    event->setScenePos(scenePos);
    event->setPos(scenePos);
    return event;
}

void hover(QGraphicsScene* scene, QGraphicsItem* item, QEvent::Type type)
{
    QGraphicsSceneHoverEvent event(type);
    event.setScenePos(item->sceneBoundingRect().center());
    event.setPos(item->boundingRect().center());
    scene->sendEvent(item, &event);
}

} // namespace

class TestTextItemchange : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void castsToItsType();
    void editableOnCreationAndFlagFollowsEditing();
    void frameAndCaretOnlyWithFocus();
    void caretBlinksOnlyWithFocus();
    void selectionIsTranslucentBlue();
    void typedTextInChosenColourAndSize();
    void clickingAwayFromEmptyTextLeavesNothing();
    void doubleClickEditsAgain();
    void whileEditingDoubleClickOnAnotherDoesNothing();
    void whileEditingHoverKeepsCursor();
    void hoverShowsMoveCursorExceptWithEraser();

private:
    textItemchange* addText(const QString& content, const QPointF& pos);
    QImage render() const { return renderScene(m_view->scene(), QSize(400, 300)); }
    void focusOn(QGraphicsItem* item);

    std::unique_ptr<pallo::GraphicsView> m_view;
    DData* m_data = nullptr;
};

void TestTextItemchange::init()
{
    m_view = std::make_unique<pallo::GraphicsView>(true, nullptr);
    m_view->setWindowState(Qt::WindowNoState);
    m_view->resize(400, 300);
    m_view->show();
    m_view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    m_data = m_view->drawManager()->data();
}

void TestTextItemchange::cleanup()
{
    m_view.reset();
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(!textItemchange::isEditing());
}

textItemchange* TestTextItemchange::addText(const QString& content, const QPointF& pos)
{
    auto* text = new textItemchange(m_data);
    text->setDefaultTextColor(QColor("#ff0000"));
    QFont font = text->font();
    font.setPointSize(22);
    font.setWeight(QFont::Bold);
    text->setFont(font);
    text->setPlainText(content);
    m_view->scene()->addItem(text);
    text->setPos(pos);
    return text;
}

void TestTextItemchange::focusOn(QGraphicsItem* item)
{
    m_view->scene()->setFocus(Qt::MouseFocusReason);
    item->setFocus(Qt::MouseFocusReason);
    QVERIFY(item->hasFocus());
}

void TestTextItemchange::castsToItsType()
{
    textItemchange text(nullptr);
    QGraphicsItem* item = &text;
    QCOMPARE(item->type(), int(QGraphicsItem::UserType + 5));
    QCOMPARE(qgraphicsitem_cast<textItemchange*>(item), &text);
    QVERIFY(!qgraphicsitem_cast<QGraphicsTextItem*>(item));
    QVERIFY(dynamic_cast<QGraphicsTextItem*>(item));
}

void TestTextItemchange::editableOnCreationAndFlagFollowsEditing()
{
    textItemchange* text = addText("kept", QPointF(20, 20));
    QVERIFY(textItemchange::isEditing());
    QCOMPARE(text->textInteractionFlags(),
             Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard | Qt::TextEditable);
    QVERIFY(text->flags().testFlag(QGraphicsItem::ItemIsMovable));
    QVERIFY(text->flags().testFlag(QGraphicsItem::ItemIsSelectable));
    focusOn(text);
    m_view->scene()->setFocusItem(nullptr);
    QVERIFY(!textItemchange::isEditing());
    QCOMPARE(text->textInteractionFlags(), Qt::NoTextInteraction);
    // A text with content loses focus without touching the history.
    QCOMPARE(m_data->undoStack()->count(), 0);
    // Focus alone does not start editing again; a double-click does.
    text->setFocus();
    QVERIFY(!textItemchange::isEditing());
    delete text;
    QVERIFY(!textItemchange::isEditing());
}

void TestTextItemchange::frameAndCaretOnlyWithFocus()
{
    textItemchange* text = addText("Hi ", QPointF(40, 40));
    const QRect box = text->sceneBoundingRect().toRect();
    focusOn(text);
    QTextCursor cursor = text->textCursor();
    cursor.setPosition(0);
    text->setTextCursor(cursor);
    QVERIFY(text->caretVisible());
    QImage image = render();
    keepPicture(image, "text-focused");

    // The frame: a dashed black line over a solid white one along every edge.
    int black = 0;
    int white = 0;
    for (int x = box.left(); x < box.right(); ++x) {
        const QRgb p = image.pixel(x, box.top());
        QCOMPARE(qAlpha(p), 255);
        if (p == qRgb(0, 0, 0))
            ++black;
        else if (p == qRgb(255, 255, 255))
            ++white;
    }
    QVERIFY(black > 5);
    QVERIFY(white > 5);
    QCOMPARE(qAlpha(image.pixel(box.left(), box.center().y())), 255);
    QCOMPARE(qAlpha(image.pixel(box.left() + 1, box.center().y())), 1);
    const int right = qFloor(text->sceneBoundingRect().right()) - 1;
    QCOMPARE(qAlpha(image.pixel(right, box.center().y())), 255);
    QCOMPARE(qAlpha(image.pixel(right - 1, box.center().y())), 1);

    // The caret at the start of the text: a black bar inside a white one, after the margin.
    const int caretX = box.left() + 4;
    const int middle = box.center().y();
    QCOMPARE(image.pixel(caretX, middle), qRgb(0, 0, 0));
    QCOMPARE(image.pixel(caretX - 1, middle), qRgb(255, 255, 255));
    QCOMPARE(image.pixel(caretX + 1, middle), qRgb(255, 255, 255));

    m_view->scene()->setFocusItem(nullptr);
    QVERIFY(!text->caretVisible());
    image = render();
    keepPicture(image, "text-unfocused");
    // No frame, no caret: only the fill that lets the box take the mouse.
    QCOMPARE(qAlpha(image.pixel(box.left() + 10, box.top())), 1);
    QCOMPARE(qAlpha(image.pixel(caretX, middle)), 1);
    QCOMPARE(qAlpha(image.pixel(box.left() - 1, box.top())), 0);
}

void TestTextItemchange::caretBlinksOnlyWithFocus()
{
    textItemchange* text = addText("Hi ", QPointF(40, 40));
    QTimer* timer = text->caretTimer();
    QCOMPARE(timer->interval(), 530);
    QVERIFY(!timer->isActive());
    focusOn(text);
    QVERIFY(timer->isActive());
    // The caret sits after the trailing blank, clear of the glyphs.
    QTextCursor cursor = text->textCursor();
    cursor.movePosition(QTextCursor::End);
    text->setTextCursor(cursor);
    const QTextLine line = text->document()->firstBlock().layout()->lineAt(0);
    const QPoint caret =
        text->mapToScene(QPointF(4 + line.cursorToX(3), 4 + line.height() / 2)).toPoint();

    QSignalSpy ticks(timer, &QTimer::timeout);
    QCOMPARE(render().pixel(caret), qRgb(0, 0, 0));
    QVERIFY(ticks.wait(2000));
    QVERIFY(!text->caretVisible());
    QCOMPARE(qAlpha(render().pixel(caret)), 1);
    QVERIFY(ticks.wait(2000));
    QVERIFY(text->caretVisible());
    QCOMPARE(render().pixel(caret), qRgb(0, 0, 0));

    m_view->scene()->setFocusItem(nullptr);
    QVERIFY(!timer->isActive());
    // Even a stray tick does not show the caret of an item without focus.
    QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
    QVERIFY(!text->caretVisible());
    QCOMPARE(qAlpha(render().pixel(caret)), 1);
}

void TestTextItemchange::selectionIsTranslucentBlue()
{
    textItemchange* text = addText("Hello world", QPointF(40, 40));
    focusOn(text);
    const QRect box = text->sceneBoundingRect().toRect();
    const QTextLine line = text->document()->firstBlock().layout()->lineAt(0);
    const int top = box.top() + 4 + 1;
    QImage image = render();
    QCOMPARE(qAlpha(image.pixel(box.left() + 20, top)), 1);

    // Select "world": from the x of its first letter to the end of the line.
    QTextCursor cursor = text->textCursor();
    cursor.setPosition(6);
    cursor.setPosition(11, QTextCursor::KeepAnchor);
    text->setTextCursor(cursor);
    image = render();
    keepPicture(image, "text-selection");
    const int from = box.left() + 4 + qRound(line.cursorToX(6));
    const int to = box.left() + 4 + qRound(line.cursorToX(11));
    QVERIFY(isSelectionBlue(image.pixel(from + 1, top)));
    QVERIFY(isSelectionBlue(image.pixel(to - 2, top)));
    QVERIFY(!isSelectionBlue(image.pixel(from - 2, top)));
    QCOMPARE(qAlpha(image.pixel(from - 2, top)), 1);
    QVERIFY(!isSelectionBlue(image.pixel(to + 2, top)));
    // The text stays red on top of the selection.
    const Ink red = inkOf(image, QColor(255, 0, 0), box);
    QVERIFY(red.pixels > 50);

    // Losing focus clears the selection.
    m_view->scene()->setFocusItem(nullptr);
    QVERIFY(!text->textCursor().hasSelection());
    QCOMPARE(qAlpha(render().pixel(from + 1, top)), 1);
}

void TestTextItemchange::typedTextInChosenColourAndSize()
{
    DrawManagerEx* manager = m_view->drawManager();
    manager->slot_color("#00a000");
    manager->slot_changeFontSize(22);
    manager->slot_figure("text");
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(40, 60));
    QCOMPARE(m_data->records().size(), 1);
    auto* text = qgraphicsitem_cast<textItemchange*>(m_data->records().first().item);
    QVERIFY(text);
    QVERIFY(text->hasFocus());
    QTest::keyClicks(m_view.get(), "Hello");
    QCOMPARE(text->toPlainText(), QString("Hello"));
    QCOMPARE(text->font().pointSize(), 22);
    QVERIFY(text->font().bold());

    const QImage image = render();
    keepPicture(image, "text-typed");
    const Ink ink = inkOf(image, QColor(0, 160, 0), text->sceneBoundingRect().toRect());
    QFont bold = text->font();
    QFont normal = bold;
    normal.setWeight(QFont::Normal);
    const Ink boldRef = referenceInk("Hello", bold, QColor(0, 160, 0));
    const Ink normalRef = referenceInk("Hello", normal, QColor(0, 160, 0));
    QVERIFY2(
        std::abs(ink.pixels - boldRef.pixels) < std::abs(ink.pixels - normalRef.pixels),
        qPrintable(QString("%1 %2 %3").arg(ink.pixels).arg(boldRef.pixels).arg(normalRef.pixels)));
    QVERIFY(std::abs(ink.box.height() - boldRef.box.height()) <= 2);
    QVERIFY(std::abs(ink.box.width() - boldRef.box.width()) <= 3);
    // Nothing else of the text is drawn in another strong colour but the frame and caret.
    QCOMPARE(inkOf(image, QColor(255, 0, 0), image.rect()).pixels, 0);
}

void TestTextItemchange::clickingAwayFromEmptyTextLeavesNothing()
{
    m_view->drawManager()->slot_figure("text");
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(50, 50));
    QCOMPARE(m_data->records().size(), 1);
    QUndoStack* stack = m_data->undoStack();
    QCOMPARE(stack->count(), 1);
    QVERIFY(textItemchange::isEditing());

    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(250, 200));
    QVERIFY(m_data->records().isEmpty());
    QVERIFY(!stack->canRedo());
    QVERIFY(!textItemchange::isEditing());
    for (QGraphicsItem* item : m_view->scene()->items()) {
        if (qgraphicsitem_cast<textItemchange*>(item))
            QVERIFY(!item->isVisible());
    }
    // Nothing is left on the screen where the text was.
    QCOMPARE(alphaAt(render(), 52, 52), 0);
    stack->redo();
    QVERIFY(m_data->records().isEmpty());
    // The next click places a new text.
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(250, 200));
    QCOMPARE(m_data->records().size(), 1);
    QVERIFY(m_data->records().first().item->isVisible());
}

void TestTextItemchange::doubleClickEditsAgain()
{
    m_view->drawManager()->slot_figure("drag");
    textItemchange* text = addText("abc", QPointF(60, 60));
    focusOn(text);
    m_view->scene()->setFocusItem(nullptr);
    QVERIFY(!textItemchange::isEditing());
    QCOMPARE(text->textInteractionFlags(), Qt::NoTextInteraction);

    const QPoint inside = m_view->mapFromScene(text->sceneBoundingRect().center());
    QTest::ignoreMessage(QtDebugMsg, "mouseDoubleClickEvent");
    QTest::mouseDClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, inside);
    QVERIFY(text->hasFocus());
    QVERIFY(textItemchange::isEditing());
    QCOMPARE(text->textInteractionFlags(),
             Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard | Qt::TextEditable);
    QTextCursor cursor = text->textCursor();
    cursor.movePosition(QTextCursor::End);
    text->setTextCursor(cursor);
    QTest::keyClicks(m_view.get(), "d");
    QCOMPARE(text->toPlainText(), QString("abcd"));
}

void TestTextItemchange::whileEditingDoubleClickOnAnotherDoesNothing()
{
    textItemchange* other = addText("other", QPointF(200, 150));
    focusOn(other);
    m_view->scene()->setFocusItem(nullptr);
    textItemchange* editing = addText("", QPointF(20, 20));
    editing->setPlainText("edited");
    focusOn(editing);
    QVERIFY(textItemchange::isEditing());

    std::unique_ptr<QGraphicsSceneMouseEvent> event(
        doubleClickAt(other->sceneBoundingRect().center()));
    m_view->scene()->sendEvent(other, event.get());
    QVERIFY(!other->hasFocus());
    QCOMPARE(other->textInteractionFlags(), Qt::NoTextInteraction);
    QVERIFY(editing->hasFocus());
    QVERIFY(textItemchange::isEditing());

    // Once the edit has ended, the same double-click edits the other text.
    m_view->scene()->setFocusItem(nullptr);
    m_view->scene()->sendEvent(other, event.get());
    QVERIFY(other->hasFocus());
    QVERIFY(textItemchange::isEditing());
}

void TestTextItemchange::whileEditingHoverKeepsCursor()
{
    textItemchange* other = addText("other", QPointF(200, 150));
    focusOn(other);
    m_view->scene()->setFocusItem(nullptr);
    textItemchange* editing = addText("edited", QPointF(20, 20));
    focusOn(editing);
    QVERIFY(textItemchange::isEditing());
    hover(m_view->scene(), other, QEvent::GraphicsSceneHoverEnter);
    QVERIFY(!QApplication::overrideCursor());
    hover(m_view->scene(), editing, QEvent::GraphicsSceneHoverEnter);
    QVERIFY(!QApplication::overrideCursor());
    hover(m_view->scene(), other, QEvent::GraphicsSceneHoverLeave);
    hover(m_view->scene(), editing, QEvent::GraphicsSceneHoverLeave);
    QVERIFY(!QApplication::overrideCursor());
}

void TestTextItemchange::hoverShowsMoveCursorExceptWithEraser()
{
    textItemchange* text = addText("moved", QPointF(200, 150));
    focusOn(text);
    m_view->scene()->setFocusItem(nullptr);
    m_view->drawManager()->slot_figure("drag");
    hover(m_view->scene(), text, QEvent::GraphicsSceneHoverEnter);
    QVERIFY(text->cursorShown());
    QVERIFY(QApplication::overrideCursor());
    QCOMPARE(QApplication::overrideCursor()->pixmap().toImage(),
             cursorFromImage(":/images/move.png", 32).pixmap().toImage());
    // A second enter does not stack a second cursor.
    hover(m_view->scene(), text, QEvent::GraphicsSceneHoverEnter);
    hover(m_view->scene(), text, QEvent::GraphicsSceneHoverLeave);
    QVERIFY(!text->cursorShown());
    QVERIFY(!QApplication::overrideCursor());

    m_view->drawManager()->slot_figure("erase");
    hover(m_view->scene(), text, QEvent::GraphicsSceneHoverEnter);
    QVERIFY(!QApplication::overrideCursor());
    hover(m_view->scene(), text, QEvent::GraphicsSceneHoverLeave);
}

QTEST_MAIN(TestTextItemchange)
#include "test-text-itemchange.moc"
