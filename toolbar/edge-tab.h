// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "toolbar/enter-event.h"

#include <QWidget>

// A small tab that hangs from the middle of the edge strip into the screen. The strip
// alone is two pixels thin; the tab shows a presenter where the toolbar went and gives
// the mouse something to rest on (or click) to bring it back.
class EdgeTab : public QWidget
{
    Q_OBJECT
public:
    explicit EdgeTab(QWidget* parent = nullptr);

    // 1 top, 2 bottom, 3 left, 4 right: the edge the tab hangs from.
    void setSide(int side);
    int side() const { return m_side; }

signals:
    void entered();
    void left();
    void clicked();

protected:
    void enterEvent(EnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int m_side = 0;
};
