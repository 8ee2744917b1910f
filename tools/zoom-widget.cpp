// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/zoom-widget.h"

#include "common/event-position.h"
#include "tools/activation-grab.h"
#include "tools/frame-handles.h"
#include "tools/lens-geometry.h"
#include "tools/screen-grabber.h"
#include "ui_zoom-widget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

namespace {
// One picture per activation for every magnifier of the process.
ActivationPicture zoomPictureTaken;
} // namespace

using namespace frame_handles;

ZoomWidget::ZoomWidget(QWidget* parent) : QDialog(parent), ui(new Ui::ZoomWidget)
{
    ui->setupUi(this);
    const double s = scale();
    desktopWidth = desktopSize().width();
    desktopHeight = desktopSize().height();
    lens = lens_geometry::initialLens(desktopSize(), s);
    const int b = scaled(44, s);
    turnoffRect = QRect(0, 0, b, b);
    closeRect = QRect(0, 0, b, b);
    placeButtons();
    prepareTool(this, ui->pushButton_zoom_turnoff, ui->pushButton_zoom_close);
    updateTurnoffToolTip();
    // A magnifier closed while it was active never saw its deactivation; the new one must
    // still take its picture on its first activation.
    zoomPictureTaken = ActivationPicture();
}

ZoomWidget::~ZoomWidget()
{
    delete ui;
}

void ZoomWidget::updateImage()
{
    const ScreenPicture picture = ScreenGrabber::grab();
    bgImg = picture.image;
    pictureFailure = picture.failure;
    update();
}

void ZoomWidget::on_pushButton_zoom_turnoff_clicked()
{
    lightsOff = !lightsOff;
    ui->pushButton_zoom_turnoff->setChecked(lightsOff);
    updateTurnoffToolTip();
    update();
}

void ZoomWidget::on_pushButton_zoom_close_clicked()
{
    close();
}

void ZoomWidget::updateTurnoffToolTip()
{
    ui->pushButton_zoom_turnoff->setToolTip(lightsOff ? tr("ZoomWidget.Btn.WhiteTheme")
                                                      : tr("ZoomWidget.Btn.BlackTheme"));
}

void ZoomWidget::placeButtons()
{
    const ButtonPair buttons = buttonsUnder(lens, turnoffRect.width(), scale());
    turnoffRect = buttons.left;
    closeRect = buttons.right;
    ui->pushButton_zoom_turnoff->setGeometry(turnoffRect);
    ui->pushButton_zoom_close->setGeometry(closeRect);
}

bool ZoomWidget::eventFilter(QObject* watched, QEvent* event)
{
    return regrabOnActivation(this, watched, event, zoomPictureTaken, [this] { updateImage(); }) ||
           QDialog::eventFilter(watched, event);
}

void ZoomWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!pictureFailure.isEmpty()) {
        paintFailure(painter, rect(), pictureFailure);
        return;
    }
    paintPicture(painter, bgImg, rect(), "[ZOOM]");
    if (lightsOff)
        painter.fillRect(rect(), QBrush(Qt::black, Qt::SolidPattern));
    const QRectF target(lens);
    QRectF source(0, 0, lens.width() / zoomFactor, lens.height() / zoomFactor);
    source.moveCenter(lens.center());
    painter.drawImage(target, bgImg, source);
    paintFrame(painter, lens, scale());
}

void ZoomWidget::mousePressEvent(QMouseEvent* event)
{
    drag.press(lens, event);
    QWidget::mousePressEvent(event);
}

void ZoomWidget::mouseReleaseEvent(QMouseEvent*)
{
    drag.pressed = false;
    drag.dragMode = Move;
}

void ZoomWidget::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint g = event_position::global(event);
    if (!drag.pressed) {
        drag.hover(this, lens, g);
    } else if (drag.dragMode == Move) {
        lens = lens_geometry::moved(lens, g - drag.dragOffset, QSize(desktopWidth, desktopHeight));
        placeButtons();
        event->accept();
    } else {
        const QPoint mirrored = mapToGlobal(2 * drag.pressCentre - g);
        lens = lens_geometry::resized(lens, drag.dragMode, g, drag.pressCentre, mirrored,
                                      QSize(desktopWidth, desktopHeight), scale());
        placeButtons();
    }
    QWidget::mouseMoveEvent(event);
    update();
}

void ZoomWidget::wheelEvent(QWheelEvent* event)
{
    zoomFactor =
        lens_geometry::zoomStep(zoomFactor, lens_geometry::classicDelta(event->angleDelta()));
    update();
}

void ZoomWidget::keyPressEvent(QKeyEvent* event)
{
    // Enter and the dialog's own key handling stay out of reach.
    if (event->key() == Qt::Key_Escape)
        close();
    else
        event->ignore();
}

void ZoomWidget::closeEvent(QCloseEvent* event)
{
    QDialog::closeEvent(event);
    emit sg_exit();
}
