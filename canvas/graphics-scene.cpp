// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/graphics-scene.h"

#include "logging/log-categories.h"

#include <QGraphicsTextItem>

GraphicsScene::GraphicsScene(QObject* parent) : QGraphicsScene(parent)
{
    connect(this, &QGraphicsScene::selectionChanged, this, &GraphicsScene::slot_selectionChanged);
}

GraphicsScene::~GraphicsScene()
{
    // QGraphicsScene's own destructor removes the items, and with them the selection;
    // by then this class is gone, so its slot must not run.
    disconnect(this, &QGraphicsScene::selectionChanged, this,
               &GraphicsScene::slot_selectionChanged);
}

void GraphicsScene::slot_selectionChanged()
{
    qCDebug(lcCanvas) << "select Changed slot start";
    // Whatever is done to the selection here must not start this slot again.
    const bool blocked = blockSignals(true);
    const QList<QGraphicsItem*> selected = selectedItems();
    for (QGraphicsItem* item : selected) {
        if (dynamic_cast<QGraphicsTextItem*>(item))
            qCDebug(lcCanvas) << "select Changed";
    }
    blockSignals(blocked);
    qCDebug(lcCanvas) << "select Changed slot end";
}
