// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QBrush>
#include <QGraphicsItem>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QRectF>
#include <QSet>
#include <QVector>

#include <functional>

class QGraphicsView;
class QPainter;

// The finished drawing as one picture. The strokes and shapes at the bottom of the stack that
// no longer change are painted into an image once, over the window's own background; a
// repaint copies the image and those items paint nothing. What is still changing (the stroke
// being drawn, selected items, texts, handles) and everything stacked above it is painted
// as usual on top. The eraser's strokes clear what lies beneath them in the image exactly
// as they do on the window, because the image starts with the window's background.
//
// Strokes added to the picture keep the pixels they covered, so that undoing the last strokes
// puts those back; the picture before a clear is kept, so that undoing the clear takes it
// again. Neither paints every item again.
class InkLayer
{
public:
    // settled tells the strokes still being drawn from finished ones.
    InkLayer(QGraphicsView* view, std::function<bool(const QGraphicsItem*)> settled);
    ~InkLayer();

    // Whether the item's pixels come from the layer in the repaint under way; its paint()
    // then paints nothing.
    static bool holds(const QGraphicsItem* item);
    // A drawn item was shown, hidden, selected, restacked, added or taken away.
    static void stackChanged();
    // A drawn item's looks changed (its path, position or transform), or it is going away:
    // no picture that holds it is used again.
    static void looksChanged(const QGraphicsItem* item);

    // What a drawn item's itemChange() hears, passed on.
    static void itemChanged(const QGraphicsItem* item, QGraphicsItem::GraphicsItemChange change);

    void dropAll();
    // Off, the view paints every item itself.
    void setEnabled(bool on);
    // How many items the picture stands for in the repaints now.
    int heldCount() const { return m_current.image.isNull() ? 0 : m_current.members.size(); }
    // Bytes of pixels held: the pictures and the patches kept to take strokes back out. The
    // window's size and the patch limits bound them, not the number of strokes.
    qint64 pixelBytes() const;

    // Called by the view before its items paint: brings the picture up to date and copies
    // its part of rect. Returns false when the items must paint the usual way.
    bool paintBackground(QPainter* painter, const QRectF& rect);
    // Brackets one repaint of the view; holds() answers only within.
    void beginPaint() { m_painting = true; }
    void endPaint()
    {
        m_painting = false;
        m_active = false;
    }

private:
    // The pixels a batch of items painted over, as they were before: putting them back takes
    // the batch out of the picture again.
    struct Patch
    {
        // How many items the picture held before the batch.
        int before = 0;
        QPoint at;
        QImage pixels;
    };

    struct Picture
    {
        QVector<QGraphicsItem*> items;
        QSet<const QGraphicsItem*> members;
        QImage image;
        // Oldest first; the last one took the newest batch.
        QVector<Patch> patches;
        qint64 patchBytes = 0;
    };

    // What the window paints beneath its items, as brushes; a change drops every picture.
    struct Background
    {
        QBrush window;
        QBrush viewport;
        QBrush view;
        QBrush scene;
        bool operator==(const Background& other) const;
    };

    Background currentBackground() const;
    QVector<QGraphicsItem*> wantedItems() const;
    bool usable() const;
    QImage background() const;
    void paintItems(QImage* image, const QVector<QGraphicsItem*>& items, int from,
                    const QRect& clip = QRect()) const;
    // Paints items from index from over the current picture, keeping what they cover.
    void paintOver(const QVector<QGraphicsItem*>& wanted, int from);
    // Takes the newest batches out of the current picture until it holds count items;
    // false when the batches do not end there.
    bool takeBack(int count);
    void bringUpToDate();
    void keep(Picture&& picture);

    QGraphicsView* m_view;
    std::function<bool(const QGraphicsItem*)> m_settled;
    Background m_background;
    Picture m_current;
    bool m_valid = false;
    QVector<Picture> m_earlier;
    bool m_stale = true;
    bool m_enabled = true;
    bool m_painting = false;
    // The picture stands for its items in the repaint under way.
    bool m_active = false;
    mutable bool m_suppressItems = false;
};
