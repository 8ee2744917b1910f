// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/text-itemchange.h"

#include "canvas/cursor-image.h"
#include "canvas/d-data.h"
#include "canvas/graphics-view.h"
#include "logging/log-categories.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QStyleOptionGraphicsItem>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <QTimer>

bool textItemchange::s_editing = false;

namespace {

constexpr int kCaretIntervalMs = 530;
const QColor kSelectionColor(0, 120, 215, 150);

const Qt::TextInteractionFlags kEditFlags =
    Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard | Qt::TextEditable;

} // namespace

textItemchange::textItemchange(DData* data, QGraphicsItem* parent)
    : QGraphicsTextItem(parent), m_data(data), m_caretTimer(new QTimer(this))
{
    setTextInteractionFlags(kEditFlags);
    setFlag(ItemIsSelectable, true);
    setFlag(ItemIsMovable, true);
    s_editing = true;

    m_caretTimer->setInterval(kCaretIntervalMs);
    connect(m_caretTimer, &QTimer::timeout, this, [this] {
        if (!hasFocus())
            return;
        m_caretVisible = !m_caretVisible;
        update();
    });
}

textItemchange::~textItemchange()
{
    restoreCursor();
    if (m_editing)
        s_editing = false;
}

bool textItemchange::isEditing()
{
    return s_editing;
}

void textItemchange::focusInEvent(QFocusEvent* event)
{
    qCDebug(lcCanvas) << "文本获得焦点";
    m_caretVisible = true;
    m_caretTimer->start();
    update();
    QGraphicsTextItem::focusInEvent(event);
}

void textItemchange::focusOutEvent(QFocusEvent* event)
{
    setTextInteractionFlags(Qt::NoTextInteraction);
    s_editing = false;
    m_editing = false;

    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    setTextCursor(cursor);
    qCDebug(lcCanvas) << "文本失去焦点";
    m_caretTimer->stop();
    m_caretVisible = false;
    update();
    QGraphicsTextItem::focusOutEvent(event);

    if (toPlainText().isEmpty() && m_data)
        m_data->discardEmptyText();
}

void textItemchange::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || s_editing) {
        event->ignore();
        return;
    }
    setTextInteractionFlags(kEditFlags);
    setFocus(Qt::MouseFocusReason);
    m_editing = true;
    s_editing = true;
    restoreCursor();
    qCDebug(lcCanvas) << "mouseDoubleClickEvent";
    QGraphicsTextItem::mouseDoubleClickEvent(event);
}

void textItemchange::hoverEnterEvent(QGraphicsSceneHoverEvent* event)
{
    if (!m_cursorShown && pallo::GraphicsView::currentFigure() != "erase" && !s_editing) {
        QApplication::setOverrideCursor(cursorFromImage(":/images/move.png", 32));
        m_cursorShown = true;
    }
    QGraphicsTextItem::hoverEnterEvent(event);
}

void textItemchange::hoverLeaveEvent(QGraphicsSceneHoverEvent* event)
{
    restoreCursor();
    QGraphicsTextItem::hoverLeaveEvent(event);
}

void textItemchange::restoreCursor()
{
    if (!m_cursorShown)
        return;
    QApplication::restoreOverrideCursor();
    m_cursorShown = false;
}

void textItemchange::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget*)
{
    const QRectF box = boundingRect();
    const bool focused = option->state & QStyle::State_HasFocus;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    // Nearly transparent, yet the whole box takes the mouse on the transparent canvas.
    painter->fillRect(box, QColor(0, 0, 0, 1));
    if (focused) {
        const QRectF frame = box.adjusted(0, 0, -1, -1);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(Qt::white, 1, Qt::SolidLine));
        painter->drawRect(frame);
        painter->setPen(QPen(Qt::black, 1, Qt::DashLine));
        painter->drawRect(frame);
    }
    paintSelection(painter);
    painter->restore();

    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, defaultTextColor());
    context.clip = box;
    painter->save();
    painter->setClipRect(box, Qt::IntersectClip);
    document()->documentLayout()->draw(painter, context);
    painter->restore();

    if (focused && m_caretVisible) {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing, false);
        paintCaret(painter);
        painter->restore();
    }
}

void textItemchange::paintSelection(QPainter* painter) const
{
    const QTextCursor cursor = textCursor();
    if (!cursor.hasSelection())
        return;
    const int start = cursor.selectionStart();
    const int end = cursor.selectionEnd();
    const qreal margin = document()->documentMargin();
    QVector<QRectF> rects;
    for (QTextBlock block = document()->findBlock(start);
         block.isValid() && block.position() <= end; block = block.next()) {
        const QTextLayout* layout = block.layout();
        const qreal top = layout->position().y();
        for (int i = 0; i < layout->lineCount(); ++i) {
            const QTextLine line = layout->lineAt(i);
            const int lineStart = block.position() + line.textStart();
            const int lineEnd = lineStart + line.textLength();
            const int from = std::max(start, lineStart);
            const int to = std::min(end, lineEnd);
            if (from >= to)
                continue;
            const qreal x1 = line.cursorToX(from - block.position());
            const qreal x2 = line.cursorToX(to - block.position());
            rects.append(QRectF(x1 + margin, top + line.y(), x2 - x1, line.height()));
        }
    }
    painter->setPen(Qt::NoPen);
    painter->setBrush(kSelectionColor);
    painter->drawRects(rects);
}

void textItemchange::paintCaret(QPainter* painter) const
{
    const QTextCursor cursor = textCursor();
    const QTextBlock block = cursor.block();
    const QTextLayout* layout = block.layout();
    if (!layout)
        return;
    const int position = cursor.positionInBlock();
    QTextLine line = layout->lineForTextPosition(position);
    if (!line.isValid()) {
        if (layout->lineCount() == 0)
            return;
        line = layout->lineAt(layout->lineCount() - 1);
    }
    const qreal x = layout->position().x() + line.cursorToX(position);
    const qreal y = layout->position().y() + line.y();
    const qreal h = line.height();
    // A black bar inside a white one shows on dark and on light backgrounds alike.
    painter->fillRect(QRectF(x - 1, y, 3, h), Qt::white);
    painter->fillRect(QRectF(x, y, 1, h), Qt::black);
}
