// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/widgettest.h"

#include "common/event-position.h"
#include "common/scale-factor.h"
#include "common/style-sheet-loader.h"
#include "logging/log-categories.h"
#include "tools/time-widget.h"
#include "tools/timer-logic.h"
#include "tools/widget.h"
#include "ui_widgettest.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

Widgettest::Widgettest(QWidget* parent) : QDialog(parent), ui(new Ui::Widgettest)
{
    ui->setupUi(this);
    // Scaled before any font is set below: a new stylesheet resets the fonts of the
    // widgets it covers.
    ui->frame_timer_tabs->setStyleSheet(
        scaleStyleSheet(ui->frame_timer_tabs->styleSheet(), screenScaleFactor()));
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setAttribute(Qt::WA_TranslucentBackground);
    // Polishing with the application's stylesheet resets the palette; it is done now
    // so that the white brush set next stays.
    ensurePolished();
    setWindowBrush(Qt::white);
    // Only the shown page decides how small the window can be.
    ui->stackedWidget->setMinimumSize(1, 1);
    normalMargins = layout()->contentsMargins();

    QFont tabFont(QStringLiteral("微软雅黑"), 11, QFont::Normal);
    tabFont.setPointSize(fitPointSize(tabFont, tr("WidgetTest.Text.CountDown"),
                                      ui->pushButton_timer_countdown->minimumWidth(),
                                      ui->pushButton_timer_countdown));
    ui->pushButton_timer_countdown->setFont(tabFont);
    ui->pushButton_timer_timer->setFont(tabFont);
    ui->pushButton_timer_countdown->setText(tr("WidgetTest.Text.CountDown"));
    ui->pushButton_timer_timer->setText(tr("WidgetTest.Text.Clock"));
    ui->pushButton_timer_countdown->setChecked(true);
    ui->pushButton_timer_timer->setChecked(false);
    ui->stackedWidget->setCurrentIndex(0);
    setFixedSize(timerNormalSize(screenScaleFactor()));

    connect(ui->pushButton_timer_quit, &QPushButton::clicked, this, &Widgettest::quitbtnclick);
    connect(stopwatch(), &timeWidget::showfull, this, &Widgettest::screentimew);
    connect(countdown(), &Widget::showfull, this, &Widgettest::screencountdown);
    connect(stopwatch(), &timeWidget::timestart, this, &Widgettest::timestartreceive);
    connect(stopwatch(), &timeWidget::timestop, this, &Widgettest::timestopreceive);
    connect(countdown(), &Widget::timestart, this, &Widgettest::timestartreceivecount);
    connect(countdown(), &Widget::timestop, this, &Widgettest::timestopreceivecount);
    connect(&autoCompact, &QTimer::timeout, this, &Widgettest::slot_time_out);
    connect(countdown(), &Widget::countdounout, this, &Widgettest::receivecountdownout);
}

Widgettest::~Widgettest()
{
    delete ui;
}

Widget* Widgettest::countdown() const
{
    return ui->page_countdown;
}

timeWidget* Widgettest::stopwatch() const
{
    return ui->page_clock;
}

void Widgettest::setWindowBrush(const QColor& color)
{
    QPalette palette = this->palette();
    palette.setBrush(QPalette::Window, QBrush(color));
    setPalette(palette);
}

void Widgettest::setChromeVisible(bool visible)
{
    ui->pushButton_timer_countdown->setVisible(visible);
    ui->pushButton_timer_timer->setVisible(visible);
    ui->pushButton_timer_quit->setVisible(visible);
    ui->frame_timer_tabs->setVisible(visible);
}

void Widgettest::quitbtnclick()
{
    qCDebug(lcTools) << "sg_timerexit()";
    close();
    emit sg_timerexit();
}

void Widgettest::on_pushButton_timer_countdown_clicked()
{
    ui->stackedWidget->setCurrentIndex(0);
    ui->pushButton_timer_countdown->setChecked(true);
    ui->pushButton_timer_timer->setChecked(false);
}

void Widgettest::on_pushButton_timer_timer_clicked()
{
    ui->stackedWidget->setCurrentIndex(1);
    ui->pushButton_timer_timer->setChecked(true);
    ui->pushButton_timer_countdown->setChecked(false);
}

void Widgettest::timestartreceive()
{
    autoCompact.start(5000);
}

void Widgettest::timestartreceivecount()
{
    autoCompact.start(5000);
}

void Widgettest::timestopreceive()
{
    autoCompact.stop();
    clockCompact = false;
    update();
}

void Widgettest::timestopreceivecount()
{
    autoCompact.stop();
    countdownCompact = false;
    update();
}

void Widgettest::slot_time_out()
{
    setChromeVisible(false);
    setFixedSize(timerCompactSize(screenScaleFactor()));
    setWindowOpacity(0.7);
    if (ui->stackedWidget->currentIndex() != 1) {
        countdown()->compactLook();
        countdownCompact = true;
    } else {
        stopwatch()->compactLook();
        clockCompact = true;
    }
    update();
}

// Back to the window with tabs, white at its normal size. Its opacity stays: only
// Escape makes a window that was compact opaque again.
void Widgettest::showNormalWindow()
{
    const bool wasFull = isFull();
    setChromeVisible(true);
    layout()->setContentsMargins(normalMargins);
    setWindowBrush(Qt::white);
    showNormal();
    setFixedSize(timerNormalSize(screenScaleFactor()));
    if (wasFull)
        move(normalPosition);
}

void Widgettest::restore(Page page)
{
    showNormalWindow();
    // Restarted whether or not the clock runs, so the window also shrinks five seconds
    // after leaving full screen with a stopped clock.
    autoCompact.stop();
    autoCompact.start(5000);
    if (page == Page::Countdown) {
        countdownCompact = false;
        countdown()->normalLook();
    } else {
        clockCompact = false;
        stopwatch()->normalLook();
    }
    update();
}

void Widgettest::leaveFullScreen(Page page)
{
    restore(page);
    if (page == Page::Countdown)
        countdownFull = false;
    else
        clockFull = false;
}

void Widgettest::enterFullScreen()
{
    setWindowBrush(Qt::black);
    setChromeVisible(false);
    autoCompact.stop();
    // The clock keeps its size and sits in the middle of the black screen.
    const QSize clockSize = ui->stackedWidget->size();
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    QScreen* screen = this->screen();
    const QRect area = screen ? screen->geometry() : QRect(QPoint(0, 0), size());
    const int dx = qMax(0, (area.width() - clockSize.width()) / 2);
    const int dy = qMax(0, (area.height() - clockSize.height()) / 2);
    layout()->setContentsMargins(dx, dy, area.width() - clockSize.width() - dx,
                                 area.height() - clockSize.height() - dy);
    // Without a window manager nothing acts on the full-screen request, so the
    // window is given the screen's size as well.
    setGeometry(area);
    showFullScreen();
    update();
}

void Widgettest::screentimew()
{
    if (!isFull())
        normalPosition = pos();
    clockFull = true;
    clockCompact = false;
    enterFullScreen();
}

void Widgettest::screencountdown()
{
    if (!isFull())
        normalPosition = pos();
    showNormal();
    countdownFull = true;
    countdownCompact = false;
    enterFullScreen();
}

void Widgettest::receivecountdownout()
{
    showNormalWindow();
    autoCompact.stop();
    countdownCompact = false;
    countdownFull = false;
    update();
}

void Widgettest::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event);
    QPainter painter(this);
    if (clockFull || countdownFull) {
        painter.fillRect(rect(), Qt::black);
        return;
    }
    const double s = screenScaleFactor();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0xdf, 0xe3, 0xe9), 1));
    painter.setBrush(palette().window());
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 12 * s, 12 * s);
}

void Widgettest::keyPressEvent(QKeyEvent* event)
{
    qCDebug(lcTools) << event->key();
    if (event->key() != Qt::Key_Escape) {
        QDialog::keyPressEvent(event);
        return;
    }
    // Escape brings back the normal window; it never closes it.
    leaveFullScreen(ui->stackedWidget->currentIndex() == 0 ? Page::Countdown : Page::Clock);
    setWindowOpacity(1.0);
    event->accept();
}

void Widgettest::mousePressEvent(QMouseEvent* event)
{
    if (event->buttons() == Qt::LeftButton && isFull()) {
        leaveFullScreen(countdownFull ? Page::Countdown : Page::Clock);
        // Keeps the restored window under the pointer if the press turns into a drag.
        dragOffset = event_position::global(event) - frameGeometry().center();
        return;
    }
    moved = false;
    dragOffset = event_position::global(event) - frameGeometry().center();
}

void Widgettest::mouseMoveEvent(QMouseEvent* event)
{
    QRect frame = frameGeometry();
    frame.moveCenter(event_position::global(event) - dragOffset);
    move(frame.topLeft());
    moved = true;
}

void Widgettest::mouseReleaseEvent(QMouseEvent* event)
{
    Q_UNUSED(event);
    if (moved || !isCompact())
        return;
    restore(countdownCompact ? Page::Countdown : Page::Clock);
}
