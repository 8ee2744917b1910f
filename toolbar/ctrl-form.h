// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

class QButtonGroup;

namespace pallo {
class GraphicsView;
}

// The floating toolbar. It creates the canvas view and hands itself to it; the view then
// owns the toolbar, so the view is what its creator deletes.
class CtrlForm : public QWidget
{
    Q_OBJECT

public:
    explicit CtrlForm(QWidget* parent = nullptr);
    ~CtrlForm() override;

    // The exclusive group of the tool buttons; id 5 is the text tool.
    QButtonGroup* figureGroup() const { return m_figure_group; }
    pallo::GraphicsView* canvasView() const { return m_view; }

signals:
    void sg_figure(QString name);
    void sg_width(int width);
    void sg_color(QString name);
    void sg_changeFontSize(int size);
    void sg_pen();
    void sg_undo();
    void sg_redo();
    void sg_clear();
    void sg_choose();
    void sg_test();
    void sg_timer();
    void sg_short();
    void sg_showmin();
    void sg_screenimage(QImage screenimage);

private:
    QButtonGroup* m_figure_group;
    pallo::GraphicsView* m_view;
};
