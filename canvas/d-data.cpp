// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/d-data.h"

#include "canvas/add-item.h"
#include "canvas/chg-item.h"
#include "canvas/chg-pos.h"
#include "canvas/clear-item.h"
#include "canvas/common-item.h"
#include "canvas/del-item.h"
#include "canvas/empty-item.h"
#include "canvas/erase-item.h"
#include "canvas/ink-layer.h"
#include "canvas/manger-info.h"
#include "canvas/operate-item.h"

#include <QGraphicsPathItem>
#include <QGraphicsScene>
#include <QUndoStack>

DData::DData(QGraphicsScene* scene, QGraphicsView* view, QObject* parent)
    : QObject(parent), m_scene(scene), m_view(view), m_undoStack(new QUndoStack(this)),
      m_indexFit(scene)
{
}

DData::~DData()
{
    // The commands refer to the records; they go first.
    delete m_undoStack;
}

int DData::indexOfItem(const QGraphicsItem* item) const
{
    if (!m_recorded.contains(item))
        return -1;
    for (int i = m_records.size() - 1; i >= 0; --i) {
        if (m_records.at(i).item == item)
            return i;
    }
    return -1;
}

void DData::appendRecord(const ItemRecord& record)
{
    m_records.append(record);
    m_recorded.insert(record.item);
    m_indexFit.itemCountIs(m_records.size());
}

void DData::insertRecord(int index, const ItemRecord& record)
{
    m_records.insert(index, record);
    m_recorded.insert(record.item);
    m_indexFit.itemCountIs(m_records.size());
}

void DData::removeRecordAt(int index)
{
    // An item has one record at most: the commands never list it twice.
    m_recorded.remove(m_records.at(index).item);
    m_records.removeAt(index);
}

void DData::add(const StrokeRecord& stroke)
{
    ItemRecord record(stroke);
    if (record.item) {
        record.pos = record.item->pos();
        if (auto* info = dynamic_cast<MangerInfo*>(record.item)) {
            record.path = info->shapePath();
            record.transform = info->shapeTransform();
        }
    }
    m_undoStack->push(new AddItem(this, record));
    // The finished stroke joins the picture of the finished drawing.
    InkLayer::stackChanged();
}

void DData::remove(const ItemRecord& record)
{
    m_undoStack->push(new DelItem(this, record));
}

bool DData::clearOrDelete()
{
    const QList<QGraphicsItem*> selected = m_scene->selectedItems();
    int erasers = 0;
    for (QGraphicsItem* item : selected) {
        if (qgraphicsitem_cast<EraseItem*>(item))
            ++erasers;
    }
    if (selected.size() > erasers) {
        OperateItem* handles = OperateItem::existing();
        if (!handles || !handles->isSelected()) {
            for (QGraphicsItem* item : selected) {
                if (qgraphicsitem_cast<EraseItem*>(item))
                    continue;
                const int index = indexOfItem(item);
                if (index >= 0)
                    remove(m_records.at(index));
            }
        } else {
            const int index = indexOfItem(handles->target());
            if (index >= 0)
                remove(m_records.at(index));
        }
        return false;
    }
    m_undoStack->push(new ClearItem(this));
    return true;
}

void DData::discardEmptyText()
{
    m_undoStack->undo();
    m_undoStack->push(new EmptyItem);
}

void DData::deselectAll()
{
    const QList<QGraphicsItem*> selected = m_scene->selectedItems();
    for (QGraphicsItem* item : selected) {
        if (m_recorded.contains(item))
            item->setSelected(false);
    }
    m_scene->setFocusItem(nullptr, Qt::OtherFocusReason);
}

void DData::undo()
{
    m_undoStack->undo();
}

void DData::redo()
{
    m_undoStack->redo();
}

void DData::slot_changeItem(QPainterPath path, QPointF pos, QTransform transform,
                            QGraphicsItem* item)
{
    const int index = indexOfItem(item);
    if (index < 0)
        return;
    m_undoStack->push(new ChgItem(this, m_records.at(index), path, pos, transform));
}

void DData::slot_changePos(QPointF pos, QGraphicsPathItem* item)
{
    const int index = indexOfItem(item);
    if (index < 0)
        return;
    m_undoStack->push(new ChgPos(this, m_records.at(index), pos));
}
