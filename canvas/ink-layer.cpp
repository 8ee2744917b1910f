// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/ink-layer.h"

#include "canvas/common-item.h"
#include "canvas/curve-item.h"
#include "canvas/erase-item.h"
#include "logging/log-categories.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

namespace {

InkLayer* s_layer = nullptr;

// The picture from before a clear, for undoing the clear.
constexpr int kEarlierPictures = 1;
// Below this many items, painting them is cheaper than a picture of the whole window.
constexpr int kLeastItems = 64;
// The pixels kept for taking back the latest strokes: enough for the strokes a presenter
// undoes in a row, far less than a picture.
constexpr qint64 kMostPatchBytes = 4 * 1024 * 1024;
constexpr int kMostPatches = 64;

bool paintsLikeInk(const QGraphicsItem* item)
{
    const int type = item->type();
    if (type != CurveItem::Type && type != EraseItem::Type && type != CommonItem::Type)
        return false;
    return !item->isSelected() && !item->parentItem() && item->childItems().isEmpty() &&
           item->opacity() == 1.0 && !item->graphicsEffect();
}

bool startsWith(const QVector<QGraphicsItem*>& items, const QVector<QGraphicsItem*>& prefix)
{
    return prefix.size() <= items.size() && std::equal(prefix.begin(), prefix.end(), items.begin());
}

} // namespace

InkLayer::InkLayer(QGraphicsView* view, std::function<bool(const QGraphicsItem*)> settled)
    : m_view(view), m_settled(std::move(settled))
{
    s_layer = this;
}

InkLayer::~InkLayer()
{
    if (s_layer == this)
        s_layer = nullptr;
}

bool InkLayer::holds(const QGraphicsItem* item)
{
    if (!s_layer)
        return false;
    if (s_layer->m_suppressItems)
        return false;
    return s_layer->m_painting && s_layer->m_active && s_layer->m_current.members.contains(item);
}

void InkLayer::itemChanged(const QGraphicsItem* item, QGraphicsItem::GraphicsItemChange change)
{
    switch (change) {
    case QGraphicsItem::ItemSceneChange:
        // Taken off the scene: a later item may come to the same address.
        looksChanged(item);
        break;
    case QGraphicsItem::ItemPositionHasChanged:
    case QGraphicsItem::ItemTransformHasChanged:
    case QGraphicsItem::ItemRotationHasChanged:
    case QGraphicsItem::ItemScaleHasChanged:
    case QGraphicsItem::ItemTransformOriginPointHasChanged:
        looksChanged(item);
        break;
    case QGraphicsItem::ItemVisibleHasChanged:
    case QGraphicsItem::ItemSelectedHasChanged:
    case QGraphicsItem::ItemZValueHasChanged:
    case QGraphicsItem::ItemSceneHasChanged:
    case QGraphicsItem::ItemParentHasChanged:
    case QGraphicsItem::ItemOpacityHasChanged:
    case QGraphicsItem::ItemEnabledHasChanged:
        stackChanged();
        break;
    default:
        break;
    }
}

void InkLayer::stackChanged()
{
    if (s_layer)
        s_layer->m_stale = true;
}

void InkLayer::looksChanged(const QGraphicsItem* item)
{
    if (!s_layer)
        return;
    InkLayer& layer = *s_layer;
    if (layer.m_current.members.contains(item)) {
        layer.m_current = Picture();
        layer.m_valid = false;
        layer.m_stale = true;
    }
    for (int i = layer.m_earlier.size() - 1; i >= 0; --i) {
        if (layer.m_earlier.at(i).members.contains(item))
            layer.m_earlier.removeAt(i);
    }
}

void InkLayer::dropAll()
{
    m_current = Picture();
    m_valid = false;
    m_earlier.clear();
    m_stale = true;
}

void InkLayer::setEnabled(bool on)
{
    m_enabled = on;
    dropAll();
}

bool InkLayer::usable() const
{
    const QWidget* viewport = m_view->viewport();
    return m_enabled && m_view->scene() && m_view->transform().isIdentity() &&
           m_view->mapFromScene(QPointF(0, 0)) == QPoint(0, 0) &&
           viewport->devicePixelRatioF() == 1.0 && !viewport->size().isEmpty();
}

QVector<QGraphicsItem*> InkLayer::wantedItems() const
{
    // The bottom of the stack up to the first item that still changes: everything above
    // that one must be painted after it.
    QVector<QGraphicsItem*> wanted;
    const QList<QGraphicsItem*> items = m_view->scene()->items(Qt::AscendingOrder);
    wanted.reserve(items.size());
    for (QGraphicsItem* item : items) {
        if (!item->isVisible())
            continue;
        if (!paintsLikeInk(item) || !m_settled(item))
            break;
        wanted.append(item);
    }
    return wanted;
}

bool InkLayer::Background::operator==(const Background& other) const
{
    return window == other.window && viewport == other.viewport && view == other.view &&
           scene == other.scene;
}

InkLayer::Background InkLayer::currentBackground() const
{
    Background background;
    const QWidget* viewport = m_view->viewport();
    if (m_view->autoFillBackground())
        background.window = m_view->palette().brush(m_view->backgroundRole());
    if (viewport->autoFillBackground())
        background.viewport = viewport->palette().brush(viewport->backgroundRole());
    background.view = m_view->backgroundBrush();
    if (background.view.style() == Qt::NoBrush)
        background.scene = m_view->scene()->backgroundBrush();
    return background;
}

QImage InkLayer::background() const
{
    // What the window paints beneath its items: its own fill, the viewport's, then the view's
    // or the scene's background.
    QImage image(m_view->viewport()->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    for (const QBrush& brush :
         {m_background.window, m_background.viewport, m_background.view, m_background.scene}) {
        if (brush.style() != Qt::NoBrush)
            painter.fillRect(image.rect(), brush);
    }
    return image;
}

qint64 InkLayer::pixelBytes() const
{
    qint64 bytes = 0;
    const auto add = [&bytes](const Picture& picture) {
        bytes += picture.image.sizeInBytes();
        for (const Patch& patch : picture.patches)
            bytes += patch.pixels.sizeInBytes();
    };
    add(m_current);
    for (const Picture& earlier : m_earlier)
        add(earlier);
    return bytes;
}

void InkLayer::paintItems(QImage* image, const QVector<QGraphicsItem*>& items, int from,
                          const QRect& clip) const
{
    QPainter painter(image);
    painter.setRenderHints(m_view->renderHints());
    if (!clip.isNull())
        painter.setClipRect(clip);
    m_suppressItems = true;
    for (int i = from; i < items.size(); ++i) {
        QGraphicsItem* item = items.at(i);
        QStyleOptionGraphicsItem option;
        option.state = item->isEnabled() ? QStyle::State_Enabled : QStyle::State_None;
        option.exposedRect = item->boundingRect();
        painter.save();
        painter.setWorldTransform(item->sceneTransform());
        item->paint(&painter, &option, m_view->viewport());
        painter.restore();
    }
    m_suppressItems = false;
}

void InkLayer::keep(Picture&& picture)
{
    if (picture.image.isNull())
        return;
    picture.patches.clear();
    picture.patchBytes = 0;
    m_earlier.prepend(std::move(picture));
    while (m_earlier.size() > kEarlierPictures)
        m_earlier.removeLast();
}

void InkLayer::paintOver(const QVector<QGraphicsItem*>& wanted, int from)
{
    Picture& picture = m_current;
    QRectF covered;
    for (int i = from; i < wanted.size(); ++i)
        covered |= wanted.at(i)->sceneBoundingRect();
    // One more pixel for antialiasing at the edge of the bounds.
    const QRect area = covered.toAlignedRect().adjusted(-1, -1, 1, 1) & picture.image.rect();

    Patch patch;
    patch.before = from;
    patch.at = area.topLeft();
    const qint64 bytes = qint64(area.width()) * area.height() * 4;
    if (from > 0 && bytes <= kMostPatchBytes)
        patch.pixels = picture.image.copy(area);
    if (patch.pixels.isNull()) {
        // Without this batch's pixels, no older batch can be taken back either.
        picture.patches.clear();
        picture.patchBytes = 0;
    } else {
        picture.patchBytes += patch.pixels.sizeInBytes();
        picture.patches.append(std::move(patch));
        while (picture.patchBytes > kMostPatchBytes || picture.patches.size() > kMostPatches) {
            const QImage& oldest = picture.patches.first().pixels;
            picture.patchBytes -= oldest.sizeInBytes();
            picture.patches.removeFirst();
        }
    }

    if (!area.isEmpty())
        paintItems(&picture.image, wanted, from, area);
    for (int i = from; i < wanted.size(); ++i)
        picture.members.insert(wanted.at(i));
    picture.items = wanted;
}

bool InkLayer::takeBack(int count)
{
    Picture& picture = m_current;
    int first = picture.patches.size();
    while (first > 0 && picture.patches.at(first - 1).before > count)
        --first;
    if (first == 0 || picture.patches.at(first - 1).before != count)
        return false;
    --first;

    QPainter painter(&picture.image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (int i = picture.patches.size() - 1; i >= first; --i) {
        const Patch& patch = picture.patches.at(i);
        painter.drawImage(patch.at, patch.pixels);
        picture.patchBytes -= patch.pixels.sizeInBytes();
    }
    painter.end();
    picture.patches.resize(first);
    for (int i = count; i < picture.items.size(); ++i)
        picture.members.remove(picture.items.at(i));
    picture.items.resize(count);
    qCDebug(lcCanvas) << "ink layer took back strokes down to" << count;
    return true;
}

void InkLayer::bringUpToDate()
{
    m_stale = false;
    QVector<QGraphicsItem*> wanted = wantedItems();
    if (m_valid && m_current.items == wanted)
        return;

    if (wanted.size() < kLeastItems) {
        Picture next;
        next.items = std::move(wanted);
        if (m_valid)
            keep(std::move(m_current));
        m_current = std::move(next);
        m_valid = true;
        return;
    }

    // More strokes over the picture, or the latest ones taken back: the picture changes in
    // place.
    if (m_valid && !m_current.image.isNull()) {
        if (startsWith(wanted, m_current.items)) {
            paintOver(wanted, m_current.items.size());
            return;
        }
        if (startsWith(m_current.items, wanted) && takeBack(wanted.size()))
            return;
    }

    // Otherwise the kept picture that holds the longest first part of what is wanted, or a
    // new one.
    int best = -1;
    int bestSize = -1;
    for (int i = 0; i < m_earlier.size(); ++i) {
        const Picture& earlier = m_earlier.at(i);
        if (earlier.items.size() > bestSize && startsWith(wanted, earlier.items)) {
            best = i;
            bestSize = earlier.items.size();
        }
    }
    Picture next;
    if (best >= 0) {
        next = m_earlier.takeAt(best);
    } else {
        next.image = background();
    }
    if (m_valid)
        keep(std::move(m_current));
    m_current = std::move(next);
    m_valid = true;
    if (m_current.items.size() < wanted.size())
        paintOver(wanted, m_current.items.size());
}

bool InkLayer::paintBackground(QPainter* painter, const QRectF& rect)
{
    m_active = false;
    if (m_suppressItems || !usable())
        return false;
    const Background background = currentBackground();
    if (!(background == m_background) ||
        (!m_current.image.isNull() && m_current.image.size() != m_view->viewport()->size())) {
        dropAll();
        m_background = background;
    }
    if (m_stale || !m_valid)
        bringUpToDate();
    if (m_current.image.isNull())
        return false;
    m_active = true;
    const QRect area = rect.toAlignedRect() & m_current.image.rect();
    painter->save();
    painter->setCompositionMode(QPainter::CompositionMode_Source);
    painter->drawImage(area.topLeft(), m_current.image, area);
    painter->restore();
    return true;
}
