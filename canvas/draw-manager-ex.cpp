// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/draw-manager-ex.h"

#include "canvas/common-item.h"
#include "canvas/curve-item.h"
#include "canvas/d-data.h"
#include "canvas/erase-item.h"
#include "canvas/stroke-item.h"
#include "canvas/text-itemchange.h"
#include "canvas/tool-vocabulary.h"
#include "logging/log-categories.h"
#include "tools/pix-label.h"

#include <QApplication>
#include <QFont>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPixmap>
#include <QPointer>
#include <QTextCursor>
#include <QTimer>

namespace {

constexpr int kVanishDelayMs = 200;

} // namespace

DrawManagerEx::DrawManagerEx(QGraphicsView* view)
    : QObject(view), m_data(new DData(view->scene(), view, this))
{
}

DrawManagerEx::~DrawManagerEx() = default;

void DrawManagerEx::slot_mousestate(QString state, int x, int y)
{
    m_data->mouseState = state;
    if (state == "press") {
        m_pressed = true;
        m_pressX = x;
        m_pressY = y;
        m_points.clear();
        m_points.append(QPointF(x, y));
        if (m_data->figure == "text" && textItemchange::isEditing())
            return;
        m_stroke = std::make_unique<StrokeRecord>();
        m_stroke->figure = m_data->figure;
        m_stroke->startX = m_stroke->endX = x;
        m_stroke->startY = m_stroke->endY = y;
        m_stroke->width = m_data->width * m_data->widthFactor;
        m_stroke->color = m_data->color;
        runFigure();
    } else if (state == "move") {
        if (!m_pressed || !m_stroke || m_data->figure == "text")
            return;
        m_stroke->endX = x;
        m_stroke->endY = y;
        runFigure();
    } else if (state == "release") {
        m_pressed = false;
        if (!m_stroke)
            return;
        m_stroke->endX = x;
        m_stroke->endY = y;
        runFigure();
        m_stroke.reset();
    }
}

void DrawManagerEx::runFigure()
{
    const QString& state = m_data->mouseState;
    const QString& figure = m_stroke->figure;
    if (state == "press") {
        if (figure == "text")
            createText();
        m_moved = false;
    } else if (state == "move") {
        if (commonItemKindFor(figure) != 0)
            updateShape();
        else if (figure == "curve")
            updateCurve();
        else if (figure == "erase")
            updateErase();
        m_moved = true;
    } else if (state == "release") {
        if (m_moved)
            finishStroke();
        m_moved = false;
    }
}

void DrawManagerEx::finishStroke()
{
    const QString& figure = m_stroke->figure;
    if (commonItemKindFor(figure) != 0)
        updateShape();
    else if (figure == "erase")
        updateErase();
    else if (figure == "curve")
        updateCurve();
    else
        return;
    if (!m_stroke->item)
        return;
    if (auto* grown = dynamic_cast<StrokeItem*>(m_stroke->item))
        grown->finishGrowing();
    // The eraser's path is taken once the stroke is done; a copy held while it grows would
    // make every added segment copy the whole path.
    if (auto* eraser = qgraphicsitem_cast<EraseItem*>(m_stroke->item))
        m_stroke->path = eraser->path();
    m_data->add(*m_stroke);
    if (figure == "curve" && m_data->delayErase)
        vanishLater(m_stroke->item);
}

void DrawManagerEx::vanishLater(QGraphicsItem* item)
{
    QTimer::singleShot(kVanishDelayMs, this, [this, item] {
        if (QGraphicsScene* scene = item->scene())
            scene->removeItem(item);
        m_vanished.emplace_back(item);
    });
}

void DrawManagerEx::updateShape()
{
    StrokeRecord& s = *m_stroke;
    if (s.figure != "line")
        qCDebug(lcCanvas) << "fg" << s.startX << s.startY << s.endX << s.endY;
    auto* item = static_cast<CommonItem*>(s.item);
    if (!item) {
        item = new CommonItem(commonItemKindFor(s.figure), QPointF(s.startX, s.startY));
        m_data->scene()->addItem(item);
        connect(item, &CommonItem::signal_changeItem, m_data, &DData::slot_changeItem);
        s.item = item;
    } else {
        item->setColor(s.color);
        item->setWidth(s.width);
    }
    item->setExtent(s.endX - s.startX, s.endY - s.startY);
}

void DrawManagerEx::updateCurve()
{
    StrokeRecord& s = *m_stroke;
    auto* item = static_cast<CurveItem*>(s.item);
    if (!item) {
        QColor color = s.color;
        color.setAlpha(m_data->alpha);
        item = new CurveItem(color, s.width);
        QPainterPath path;
        path.moveTo(s.startX, s.startY);
        item->setPath(path);
        m_data->scene()->addItem(item);
        item->setMoveReceiver(m_data);
        s.item = item;
    } else {
        item->lineTo(QPointF(s.endX, s.endY));
    }
}

void DrawManagerEx::updateErase()
{
    StrokeRecord& s = *m_stroke;
    const QPointF previous = m_points.last();
    const QPointF end(s.endX, s.endY);
    m_points.append(end);

    // One item holds every segment of the stroke. It grows in place: taking it off the scene
    // and making it anew would repaint the whole stroke on every move, and the new item would
    // land at the same place in the stacking order anyway, on top.
    auto* item = static_cast<EraseItem*>(s.item);
    if (!item) {
        item = new EraseItem(s.path, QPen(QColor(0, 0, 0, 1), EraseItem::PenWidth));
        m_data->scene()->addItem(item);
        s.item = item;
    }
    item->addSegment(previous, end);
    emit sg_widstayontop();
}

void DrawManagerEx::createText()
{
    StrokeRecord& s = *m_stroke;
    auto* text = new textItemchange(m_data);
    text->setDefaultTextColor(s.color);
    QFont font = text->font();
    font.setPointSize(m_fontSize);
    font.setWeight(m_fontSize == 22 ? QFont::Bold : QFont::Normal);
    text->setFont(font);
    m_data->scene()->addItem(text);
    text->setPos(s.startX, s.startY);
    s.item = text;
    m_data->add(s);
    // The view keeps its focus to itself; the scene needs it for the text to be edited.
    m_data->scene()->setFocus(Qt::MouseFocusReason);
    text->setFocus(Qt::MouseFocusReason);
}

void DrawManagerEx::slot_figure(QString name)
{
    const ToolSettings tool = toolSettingsFor(name);
    emit sg_cursor(tool.cursor);
    m_data->widthFactor = tool.widthFactor;
    m_data->alpha = tool.alpha;
    m_data->delayErase = tool.delayErase;
    m_data->figure = tool.figure;
}

void DrawManagerEx::slot_color(QString name)
{
    m_data->deselectAll();
    m_data->color.setNamedColor(name);
}

void DrawManagerEx::slot_width(int width)
{
    m_data->deselectAll();
    m_data->width = width;
}

void DrawManagerEx::slot_clear()
{
    QApplication::restoreOverrideCursor();
    m_data->clearOrDelete();
}

void DrawManagerEx::slot_undo()
{
    m_data->undo();
}

void DrawManagerEx::slot_redo()
{
    m_data->redo();
}

void DrawManagerEx::editorLostFocus(textItemchange* item)
{
    QTextCursor cursor = item->textCursor();
    cursor.clearSelection();
    item->setTextCursor(cursor);
    if (item->toPlainText().isEmpty()) {
        if (QGraphicsScene* scene = item->scene())
            scene->removeItem(item);
        item->deleteLater();
    }
}

void DrawManagerEx::slot_changeFontSize(int size)
{
    m_fontSize = size;
}

void DrawManagerEx::slot_screenimage(QImage screenimage)
{
    // Each picture lives in its own window until its "close" action deletes it.
    auto* label = new PixLabel;
    label->setPixmap(QPixmap::fromImage(screenimage));
    label->show();
    label->move(200, 200);
}
