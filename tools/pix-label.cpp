// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/pix-label.h"

#include "common/event-position.h"
#include "common/window-layering.h"
#include "tools/frame-handles.h"

#include <QAction>
#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>

PixLabel::PixLabel(QWidget* parent)
    : QWidget(parent), label(new QLabel(this)), closeAction(new QAction(this)),
      layout(new QGridLayout(this))
{
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowFlags(window_layering::overCanvasFlags());
    closeAction->setText(tr("PixLabel.Btn.Close"));
    connect(closeAction, &QAction::triggered, this, &PixLabel::slot_abelclose);
    addAction(closeAction);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    layout->addWidget(label);
    frame_handles::addShadow(label);
    setMinimumHeight(10);
}

void PixLabel::setPixmap(const QPixmap& pixmap)
{
    label->setPixmap(pixmap);
}

void PixLabel::slot_abelclose()
{
    close();
    deleteLater();
}

void PixLabel::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        dragOffset = event_position::global(event) - frameGeometry().center();
        dragging = true;
    }
    QWidget::mousePressEvent(event);
}

void PixLabel::mouseMoveEvent(QMouseEvent* event)
{
    if (dragging) {
        QRect frame = frameGeometry();
        frame.moveCenter(event_position::global(event) - dragOffset);
        setGeometry(frame);
    }
    // Handing moves to the release handler is how this window has always behaved.
    QWidget::mouseReleaseEvent(event);
}

void PixLabel::mouseReleaseEvent(QMouseEvent* event)
{
    dragging = false;
    QWidget::mouseReleaseEvent(event);
}
