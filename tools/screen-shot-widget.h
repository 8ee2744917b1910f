// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/frame-drag.h"

#include <QDialog>
#include <QImage>
#include <QPoint>
#include <QRect>

namespace Ui {
class screenShotWidget;
}

// The screenshot tool: a full-screen still picture of the primary screen with a movable,
// resizable selection. Saving writes the selected part to the configured folder, puts it
// on the clipboard, hands it on and closes the tool.
class screenShotWidget : public QDialog
{
    Q_OBJECT
public:
    explicit screenShotWidget(QWidget* parent = nullptr);
    ~screenShotWidget() override;

    QRect selectionRect() const { return selection; }
    int currentDragMode() const { return drag.dragMode; }
    QString failure() const { return pictureFailure; }

signals:
    void sg_screenexit();
    void sg_screenimage(QImage screenimage);
    void sg_transtochoose();

private slots:
    void on_pushButton_screenshot_clicked();
    void on_pushButton_screenshot_close_clicked();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void placeButtons();
    void takePicture();

    Ui::screenShotWidget* ui;
    FrameDrag drag;
    QImage bgImg;
    // Why there is no picture of the screen; empty while there is one.
    QString pictureFailure;
    QImage cutImg;
    QRect selection;
    int desktopWidth = 0;
    int desktopHeight = 0;
    QRect saveRect;
    QRect closeRect;
};
