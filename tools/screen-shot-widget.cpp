// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/screen-shot-widget.h"

#include "common/event-position.h"
#include "logging/log-categories.h"
#include "tools/activation-grab.h"
#include "tools/frame-handles.h"
#include "tools/notice-label.h"
#include "tools/screen-grabber.h"
#include "tools/screenshot-file.h"
#include "tools/selection-geometry.h"
#include "ui_screen-shot-widget.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <cstdio>
#include <ctime>

namespace {
// The screenshot tool's own flag: the magnifier's activations do not count here.
ActivationPicture screenPictureTaken;

QRect screenGeometryAt(const QPoint& point)
{
    QScreen* screen = QGuiApplication::screenAt(point);
    if (screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    return screen != nullptr ? screen->geometry() : QRect();
}
} // namespace

using namespace frame_handles;

screenShotWidget::screenShotWidget(QWidget* parent) : QDialog(parent), ui(new Ui::screenShotWidget)
{
    ui->setupUi(this);
    const QSize desktop = desktopSize();
    desktopWidth = desktop.width();
    desktopHeight = desktop.height();
    selection = selection_geometry::initialSelection(desktop, scale());
    const int b = scaled(44, scale());
    saveRect = QRect(0, 0, b, b);
    closeRect = QRect(0, 0, b, b);
    placeButtons();
    prepareTool(this, ui->pushButton_screenshot, ui->pushButton_screenshot_close);
    // A tool closed while it was active never saw its deactivation; the new one must still
    // take its picture on its first activation.
    screenPictureTaken = ActivationPicture();
}

screenShotWidget::~screenShotWidget()
{
    delete ui;
}

void screenShotWidget::placeButtons()
{
    const QRect screen = screenGeometryAt(selection.center());
    const ButtonPair buttons = buttonsUnder(selection, saveRect.width(), scale());
    saveRect = selection_geometry::keptOnScreen(buttons.left, selection, screen);
    closeRect = selection_geometry::keptOnScreen(buttons.right, selection, screen);
    ui->pushButton_screenshot->setGeometry(saveRect);
    ui->pushButton_screenshot_close->setGeometry(closeRect);
}

void screenShotWidget::on_pushButton_screenshot_clicked()
{
    qCDebug(lcTools) << "------------------------------screen";
    // Only a picture of the screen is ever saved; without one the tick leaves the message up.
    if (!pictureFailure.isEmpty() || bgImg.isNull())
        return;
    const screenshot_file::Target target = screenshot_file::configuredTarget();
    cutImg = bgImg.copy(selection);
    const QString stamp = screenshot_file::timeStamp(std::time(nullptr));
    const QString path = screenshot_file::filePath(target.folder, stamp, target.format);
    qCDebug(lcTools).noquote() << path;
    // A folder that cannot take the file loses only the file; the picture still reaches
    // the clipboard and the board, and the user is told.
    const QString failure = screenshot_file::save(cutImg, path, target.format);
    if (!failure.isEmpty()) {
        std::fprintf(stderr, "[E] screenshot not saved to %s: %s\n",
                     QFile::encodeName(path).constData(), failure.toLocal8Bit().constData());
        NoticeLabel::showOn(screen(),
                            tr("The screenshot could not be saved to %1 (%2). It is on the "
                               "clipboard and pinned on the board.")
                                .arg(path, failure));
    }
    emit sg_screenimage(cutImg.copy());
    QGuiApplication::clipboard()->setImage(cutImg, QClipboard::Clipboard);
    emit sg_transtochoose();
    close();
    emit sg_screenexit();
}

void screenShotWidget::on_pushButton_screenshot_close_clicked()
{
    close();
    emit sg_screenexit();
}

void screenShotWidget::takePicture()
{
    const ScreenPicture picture = ScreenGrabber::grab();
    bgImg = picture.image;
    pictureFailure = picture.failure;
    update();
}

bool screenShotWidget::eventFilter(QObject* watched, QEvent* event)
{
    return regrabOnActivation(this, watched, event, screenPictureTaken,
                              [this] { takePicture(); }) ||
           QDialog::eventFilter(watched, event);
}

void screenShotWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!pictureFailure.isEmpty()) {
        paintFailure(painter, rect(), pictureFailure);
        return;
    }
    paintPicture(painter, bgImg, rect(), "[SCN]");
    paintFrame(painter, selection, scale());
}

void screenShotWidget::mousePressEvent(QMouseEvent* event)
{
    qCDebug(lcTools) << "鼠标事件";
    drag.press(selection, event);
    QWidget::mousePressEvent(event);
}

void screenShotWidget::mouseReleaseEvent(QMouseEvent*)
{
    drag.pressed = false;
}

void screenShotWidget::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint g = event_position::global(event);
    if (!drag.pressed) {
        drag.hover(this, selection, g);
        return;
    }
    if (drag.dragMode == Move) {
        selection = selection_geometry::moved(selection, g - drag.dragOffset,
                                              QSize(desktopWidth, desktopHeight));
        event->accept();
    } else {
        selection = selection_geometry::resized(selection, drag.dragMode, g, scale());
    }
    placeButtons();
    QWidget::mouseMoveEvent(event);
    update();
}

void screenShotWidget::keyPressEvent(QKeyEvent*)
{
    // The tool is left through its buttons only; Escape included, keys do nothing.
}
