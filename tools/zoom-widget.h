// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/frame-drag.h"

#include <QDialog>
#include <QImage>
#include <QPoint>
#include <QRect>

namespace Ui {
class ZoomWidget;
}

// The on-screen magnifier: a full-screen still picture of the primary screen with a
// movable, resizable lens that shows the part under its centre enlarged. Two buttons
// under the lens black out everything else and close the magnifier.
class ZoomWidget : public QDialog
{
    Q_OBJECT
public:
    explicit ZoomWidget(QWidget* parent = nullptr);
    ~ZoomWidget() override;

    QRect lensRect() const { return lens; }
    float zoom() const { return zoomFactor; }
    int currentDragMode() const { return drag.dragMode; }
    bool isLightOff() const { return lightsOff; }
    QString failure() const { return pictureFailure; }

signals:
    void sg_exit();

public slots:
    void updateImage();

private slots:
    void on_pushButton_zoom_turnoff_clicked();
    void on_pushButton_zoom_close_clicked();

protected:
    void wheelEvent(QWheelEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void placeButtons();
    void updateTurnoffToolTip();

    Ui::ZoomWidget* ui;
    FrameDrag drag;
    bool lightsOff = false;
    QImage bgImg;
    // Why there is no picture of the screen; empty while there is one.
    QString pictureFailure;
    QRect lens;
    QRect turnoffRect;
    QRect closeRect;
    int desktopHeight = 0;
    int desktopWidth = 0;
    float zoomFactor = 2.0f;
};
