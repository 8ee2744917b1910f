// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/item-record.h"
#include "canvas/scene-index-fit.h"

#include <QColor>
#include <QList>
#include <QObject>
#include <QSet>
#include <QString>

class QGraphicsPathItem;
class QGraphicsScene;
class QGraphicsView;
class QUndoStack;

// The drawing data of the canvas: the current tool and pen, the records of the drawn items
// and the one undo stack every change goes through.
class DData : public QObject
{
    Q_OBJECT

public:
    DData(QGraphicsScene* scene, QGraphicsView* view, QObject* parent = nullptr);
    ~DData() override;

    QGraphicsScene* scene() const { return m_scene; }
    QGraphicsView* view() const { return m_view; }
    QUndoStack* undoStack() const { return m_undoStack; }

    QString figure;
    QString mouseState;
    int width = 3;
    int widthFactor = 1;
    int alpha = 255;
    QColor color = QColor(255, 0, 0);
    bool delayErase = false;

    const QList<ItemRecord>& records() const { return m_records; }
    // Index of the record of item, or -1. Answers at once for an item without a record and
    // for the latest records, which undo and redo touch most.
    int indexOfItem(const QGraphicsItem* item) const;
    void appendRecord(const ItemRecord& record);
    void insertRecord(int index, const ItemRecord& record);
    void removeRecordAt(int index);
    // For changing where a recorded item stands and its shape; its item stays the same.
    ItemRecord& recordAt(int index) { return m_records[index]; }

    // Records a finished stroke's item as one undoable step.
    void add(const StrokeRecord& stroke);
    // Deletes the item of a record as one undoable step.
    void remove(const ItemRecord& record);
    // Deletes the selected items when some are selected (eraser strokes aside), otherwise
    // hides everything. Returns true when the whole canvas was cleared.
    bool clearOrDelete();
    // Removes the text just added, leaving no way to redo it.
    void discardEmptyText();
    // Deselects every drawn item and takes the focus from the scene.
    void deselectAll();

    void undo();
    void redo();

public slots:
    void slot_changeItem(QPainterPath path, QPointF pos, QTransform transform, QGraphicsItem* item);
    void slot_changePos(QPointF pos, QGraphicsPathItem* item);

private:
    QGraphicsScene* m_scene;
    QGraphicsView* m_view;
    QList<ItemRecord> m_records;
    // The items of m_records, so that finding a record does not cost more as drawing grows.
    QSet<const QGraphicsItem*> m_recorded;
    QUndoStack* m_undoStack;
    SceneIndexFit m_indexFit;
};
