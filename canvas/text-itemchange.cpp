// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/text-itemchange.h"

#include "canvas/d-data.h"

#include <QDebug>
#include <QTextCursor>

bool textItemchange::s_editing = false;

textItemchange::textItemchange(DData* data, QGraphicsItem* parent)
    : QGraphicsTextItem(parent), m_data(data)
{
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard |
                            Qt::TextEditable);
    setFlag(ItemIsSelectable, true);
    setFlag(ItemIsMovable, true);
    s_editing = true;
}

textItemchange::~textItemchange()
{
    if (m_editing)
        s_editing = false;
}

bool textItemchange::isEditing()
{
    return s_editing;
}

void textItemchange::focusInEvent(QFocusEvent* event)
{
    qDebug() << "文本获得焦点";
    s_editing = true;
    m_editing = true;
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
    qDebug() << "文本失去焦点";
    QGraphicsTextItem::focusOutEvent(event);
    if (toPlainText().isEmpty() && m_data)
        m_data->discardEmptyText();
}
