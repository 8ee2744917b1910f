// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/time-widget.h"

#include "common/scale-factor.h"
#include "common/style-sheet-loader.h"
#include "tools/timer-logic.h"
#include "ui_time-widget.h"

#include <QLabel>
#include <QTimerEvent>

namespace {

const char* const buttonFamily = "微软雅黑";

QFont digitFont(int pointSize)
{
    QFont font(QStringLiteral("Arial"), pointSize, QFont::Bold);
    return font;
}

QPalette blackText(QPalette palette)
{
    palette.setBrush(QPalette::All, QPalette::WindowText, QBrush(Qt::black));
    return palette;
}

} // namespace

timeWidget::timeWidget(QWidget* parent) : QWidget(parent), ui(new Ui::timeWidget)
{
    ui->setupUi(this);
    // Scaled before any font is set below: a new stylesheet resets the fonts of the
    // widgets it covers.
    setStyleSheet(scaleStyleSheet(styleSheet(), screenScaleFactor()));
    setAttribute(Qt::WA_StyledBackground);
    // The fonts are fitted to the labels and buttons as the form lays them out.
    layout()->activate();

    digitFontSize = fitPointSize(digitFont(50), QStringLiteral("00"), ui->label_hour->width() - 30,
                                 ui->label_hour);
    applyDigitFont();

    QFont buttonFont(QString::fromUtf8(buttonFamily), 11, QFont::Normal);
    const int buttonSize =
        fitPointSize(buttonFont, tr("TimeWidget.Text.FullScreen"),
                     ui->pushbutton_timer_reset_btn->width() - 30, ui->pushbutton_timer_reset_btn);
    buttonFont.setPointSize(buttonSize);
    ui->pushbutton_timer_reset_btn->setFont(buttonFont);
    buttonFont.setPointSize(buttonSize + 1);
    ui->pushbutton_timer_start_btn->setFont(buttonFont);
    ui->pushbutton_timer_start_btn->setFocusPolicy(Qt::NoFocus);
    ui->pushbutton_timer_reset_btn->setFocusPolicy(Qt::NoFocus);
    ui->pushbutton_timer_full_btn->setFocusPolicy(Qt::NoFocus);

    ui->pushbutton_timer_start_btn->setText(tr("TimeWidget.Btn.Start"));
    ui->pushbutton_timer_reset_btn->setText(tr("TimeWidget.Btn.Reset"));
    // "fullscree" is a sizing text only; the button itself shows a picture.
    ui->pushbutton_timer_full_btn->setToolTip(tr("TimeWidget.Text.FullScreen"));
    connect(ui->pushbutton_timer_full_btn, &QPushButton::clicked, this, &timeWidget::showfull);
}

timeWidget::~timeWidget()
{
    delete ui;
}

void timeWidget::applyDigitFont()
{
    const QFont font = digitFont(digitFontSize);
    for (QLabel* label : {ui->label_hour, ui->label_colon_1, ui->label_minute, ui->label_colon_2,
                          ui->label_second}) {
        label->setFont(font);
        label->setPalette(blackText(label->palette()));
    }
}

void timeWidget::on_pushbutton_timer_start_btn_clicked()
{
    if (!running) {
        ticker.start(this);
        running = true;
        ui->pushbutton_timer_start_btn->setText(tr("TimeWidget.Btn.Pause"));
        ui->pushbutton_timer_start_btn->setChecked(true);
        emit timestart();
    } else {
        ticker.stop(this);
        running = false;
        ui->pushbutton_timer_start_btn->setChecked(false);
        ui->pushbutton_timer_start_btn->setText(tr("TimeWidget.Btn.Start"));
        emit timestop();
    }
}

void timeWidget::on_pushbutton_timer_reset_btn_clicked()
{
    ticker.reset(this);
    ui->label_hour->setText(QStringLiteral("00"));
    ui->label_minute->setText(QStringLiteral("00"));
    ui->label_second->setText(QStringLiteral("00"));
    ui->pushbutton_timer_start_btn->setChecked(false);
    ui->pushbutton_timer_start_btn->setText(tr("TimeWidget.Btn.Start"));
    running = false;
    emit timestop();
}

void timeWidget::clickReset()
{
    emit ui->pushbutton_timer_reset_btn->clicked(false);
}

void timeWidget::timerEvent(QTimerEvent* event)
{
    if (ticker.count(event))
        showElapsed();
    else
        QWidget::timerEvent(event);
}

void timeWidget::showElapsed()
{
    const int elapsed = ticker.elapsed();
    ui->label_hour->setText(twoDigits(stopwatchHours(elapsed)));
    ui->label_minute->setText(twoDigits(stopwatchMinutes(elapsed)));
    ui->label_second->setText(twoDigits(stopwatchSeconds(elapsed)));
}

void timeWidget::normalLook()
{
    ui->pushbutton_timer_start_btn->show();
    ui->pushbutton_timer_reset_btn->show();
    ui->pushbutton_timer_full_btn->show();
    applyDigitFont();
}

void timeWidget::compactLook()
{
    ui->pushbutton_timer_start_btn->hide();
    ui->pushbutton_timer_reset_btn->hide();
    ui->pushbutton_timer_full_btn->hide();
    const QFont font(QString::fromUtf8(buttonFamily), 24, QFont::Normal);
    const int side = stopwatchCompactDigitSide(screenScaleFactor());
    for (QLabel* label :
         {ui->label_hour, ui->label_colon_1, ui->label_minute, ui->label_colon_2, ui->label_second})
        label->setFont(font);
    for (QLabel* label : {ui->label_hour, ui->label_minute, ui->label_second})
        label->setMinimumSize(side, side);
}
