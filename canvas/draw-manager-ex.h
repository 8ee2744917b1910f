// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "canvas/stroke-record.h"

#include <QImage>
#include <QObject>
#include <QPointF>
#include <QVector>
#include <memory>
#include <vector>

class DData;
class QGraphicsItem;
class QGraphicsView;
class textItemchange;

// Turns the canvas's "press", "move" and "release" into items, by the current tool.
class DrawManagerEx : public QObject
{
    Q_OBJECT

public:
    // The view's scene must exist; the manager is a child of the view.
    explicit DrawManagerEx(QGraphicsView* view);
    ~DrawManagerEx() override;

    DData* data() const { return m_data; }
    int fontSize() const { return m_fontSize; }
    // The item of the stroke being drawn, or null.
    QGraphicsItem* strokeItem() const { return m_stroke ? m_stroke->item : nullptr; }

signals:
    void sg_exitchoose();
    void sg_cursor(QString cursor);
    void sg_widstayontop();

public slots:
    void slot_mousestate(QString state, int x, int y);
    void slot_figure(QString name);
    void slot_color(QString name);
    void slot_width(int width);
    // Deletes the selection, or clears the canvas when nothing is selected; the Delete key
    // runs it too.
    void slot_clear();
    void slot_undo();
    void slot_redo();
    void editorLostFocus(textItemchange* item);
    void slot_changeFontSize(int size);
    // Pins a finished screenshot on the screen in a window of its own.
    void slot_screenimage(QImage screenimage);

private:
    void runFigure();
    void updateShape();
    void updateCurve();
    void updateErase();
    void createText();
    void finishStroke();
    void vanishLater(QGraphicsItem* item);

    DData* m_data;
    bool m_pressed = false;
    int m_pressX = 0;
    int m_pressY = 0;
    int m_fontSize = 14;
    QVector<QPointF> m_points;
    bool m_moved = false;
    std::unique_ptr<StrokeRecord> m_stroke;
    // Vanished strokes left the scene but stay in the history; they are kept here.
    std::vector<std::unique_ptr<QGraphicsItem>> m_vanished;
};
