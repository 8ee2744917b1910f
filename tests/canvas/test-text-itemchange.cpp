// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/d-data.h"
#include "canvas/text-itemchange.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QUndoStack>
#include <QtTest>

class TestTextItemchange : public QObject
{
    Q_OBJECT

private slots:
    void castsToItsType();
    void editableOnCreationAndFlagFollowsFocus();
};

void TestTextItemchange::castsToItsType()
{
    textItemchange text(nullptr);
    QGraphicsItem* item = &text;
    QCOMPARE(item->type(), int(QGraphicsItem::UserType + 5));
    QCOMPARE(qgraphicsitem_cast<textItemchange*>(item), &text);
    QVERIFY(!qgraphicsitem_cast<QGraphicsTextItem*>(item));
    QVERIFY(dynamic_cast<QGraphicsTextItem*>(item));
}

void TestTextItemchange::editableOnCreationAndFlagFollowsFocus()
{
    QGraphicsScene scene;
    QGraphicsView view(&scene);
    view.show();
    view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&view));
    DData data(&scene, &view);

    auto* text = new textItemchange(&data);
    QVERIFY(textItemchange::isEditing());
    QCOMPARE(text->textInteractionFlags(),
             Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard | Qt::TextEditable);
    QVERIFY(text->flags().testFlag(QGraphicsItem::ItemIsMovable));
    QVERIFY(text->flags().testFlag(QGraphicsItem::ItemIsSelectable));
    text->setPlainText("kept");
    scene.addItem(text);
    text->setFocus();
    QVERIFY(text->hasFocus());
    scene.setFocusItem(nullptr);
    QVERIFY(!textItemchange::isEditing());
    QCOMPARE(text->textInteractionFlags(), Qt::NoTextInteraction);
    // A text with content loses focus without touching the history.
    QCOMPARE(data.undoStack()->count(), 0);

    // Editing again (as a double-click does) and then removing the item ends the editing.
    text->setTextInteractionFlags(Qt::TextEditable);
    text->setFocus();
    QVERIFY(textItemchange::isEditing());
    delete text;
    QVERIFY(!textItemchange::isEditing());
}

QTEST_MAIN(TestTextItemchange)
#include "test-text-itemchange.moc"
