// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsTextItem>

class DData;
class QTimer;

// Editable text placed on the canvas by the text tool. It draws its own frame, selection and
// caret: on the transparent canvas the standard look would not show, and the empty parts of
// the box would not take the mouse.
class textItemchange : public QGraphicsTextItem
{
    Q_OBJECT

public:
    enum
    {
        Type = UserType + 5
    };

    explicit textItemchange(DData* data, QGraphicsItem* parent = nullptr);
    ~textItemchange() override;

    int type() const override { return Type; }

    // Some text item of the process is being edited.
    static bool isEditing();

    bool caretVisible() const { return m_caretVisible; }
    QTimer* caretTimer() const { return m_caretTimer; }
    // This item installed the move cursor while hovered.
    bool cursorShown() const { return m_cursorShown; }

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;

private:
    void paintSelection(QPainter* painter) const;
    void paintCaret(QPainter* painter) const;
    void restoreCursor();

    DData* m_data;
    bool m_caretVisible = false;
    QTimer* m_caretTimer;
    bool m_cursorShown = false;
    bool m_editing = true;
    static bool s_editing;
};
