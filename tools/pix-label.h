// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QWidget>

class QAction;
class QGridLayout;
class QLabel;
class QPixmap;

// A captured picture pinned on the screen: frameless, above other windows, dragged with
// the left button and closed (and deleted) from its context menu.
class PixLabel : public QWidget
{
    Q_OBJECT
public:
    explicit PixLabel(QWidget* parent = nullptr);

    void setPixmap(const QPixmap& pixmap);

public slots:
    void slot_abelclose();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QPoint dragOffset;
    bool dragging = false;
    QLabel* label;
    QAction* closeAction;
    QGridLayout* layout;
};
