// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "tools/widget.h"

#include "common/scale-factor.h"
#include "common/style-sheet-loader.h"
#include "tools/timer-logic.h"
#include "ui_widget.h"

#include <QEvent>
#include <QIcon>
#include <QLabel>
#include <QTimerEvent>

namespace {

const char* const buttonFamily = "微软雅黑";

QFont digitFont(int pointSize)
{
    return QFont(QStringLiteral("Arial"), pointSize, QFont::Bold);
}

bool isPlusButton(const QObject* button)
{
    return button->objectName().endsWith(QLatin1String("PlusBtn"));
}

QString stepIcon(const QObject* button, bool hovered)
{
    const QString base =
        isPlusButton(button) ? QStringLiteral(":/image/plus") : QStringLiteral(":/image/minus");
    return base + (hovered ? QStringLiteral("_hover.png") : QStringLiteral(".png"));
}

} // namespace

Widget::Widget(QWidget* parent)
    : QWidget(parent), ui(new Ui::Widget),
      compactStyle(QStringLiteral(
          "QLabel { background-color:rgba(255,255,255,255);color:rgba(0,0,0,255); }"))
{
    ui->setupUi(this);
    // Scaled before any font is set below: a new stylesheet resets the fonts of the
    // widgets it covers.
    setStyleSheet(scaleStyleSheet(styleSheet(), screenScaleFactor()));
    setAttribute(Qt::WA_StyledBackground);
    digitStyle = ui->label_minTen->styleSheet();
    // The fonts are fitted to the labels and buttons as the form lays them out.
    layout()->activate();

    digitFontSize = fitPointSize(digitFont(58), QStringLiteral("0"), ui->label_minTen->width() - 50,
                                 ui->label_minTen);
    applyDigitFont();

    QFont buttonFont(QString::fromUtf8(buttonFamily), 11, QFont::Normal);
    const int buttonSize = fitPointSize(buttonFont, tr("Widget.Btn.FullScreen"),
                                        ui->pushbutton_countdown_resetBtn->width() - 30,
                                        ui->pushbutton_countdown_resetBtn);
    buttonFont.setPointSize(buttonSize);
    ui->pushbutton_countdown_resetBtn->setFont(buttonFont);
    buttonFont.setPointSize(buttonSize + 1);
    ui->pushbutton_countdown_startBtn->setFont(buttonFont);
    ui->pushbutton_countdown_startBtn->setFocusPolicy(Qt::NoFocus);
    ui->pushbutton_countdown_resetBtn->setFocusPolicy(Qt::NoFocus);
    ui->pushbutton_countdown_fullBtn->setFocusPolicy(Qt::NoFocus);
    for (QPushButton* button : stepButtons()) {
        button->setFocusPolicy(Qt::NoFocus);
        button->installEventFilter(this);
    }

    ui->pushbutton_countdown_startBtn->setText(tr("Widget.Btn.Start"));
    ui->pushbutton_countdown_resetBtn->setText(tr("Widget.Btn.Reset"));
    // "fullscree" is a sizing text only; the button itself shows a picture.
    ui->pushbutton_countdown_fullBtn->setToolTip(tr("Widget.Btn.FullScreen"));
    connect(ui->pushbutton_countdown_fullBtn, &QPushButton::clicked, this, &Widget::showfull);
}

Widget::~Widget()
{
    delete ui;
}

QList<QLabel*> Widget::digitLabels() const
{
    return {ui->label_minTen, ui->label_minOne, ui->label_secTen, ui->label_secOne};
}

QList<QLabel*> Widget::digitAndColonLabels() const
{
    return {ui->label_minTen, ui->label_minOne, ui->label_colon, ui->label_secTen,
            ui->label_secOne};
}

QList<QPushButton*> Widget::stepButtons() const
{
    return {ui->m_minTenPlusBtn, ui->m_minTenMinusBtn, ui->m_minOnePlusBtn, ui->m_minOneMinusBtn,
            ui->m_secTenPlusBtn, ui->m_secTenMinusBtn, ui->m_secOnePlusBtn, ui->m_secOneMinusBtn};
}

void Widget::setStepButtonsVisible(bool visible)
{
    for (QPushButton* button : stepButtons())
        button->setVisible(visible);
}

void Widget::applyDigitFont()
{
    const QFont font = digitFont(digitFontSize);
    for (QLabel* label : digitAndColonLabels()) {
        label->setFont(font);
        QPalette palette = label->palette();
        palette.setBrush(QPalette::All, QPalette::WindowText, QBrush(Qt::black));
        label->setPalette(palette);
    }
}

// The plus and minus pictures turn blue under the pointer.
bool Widget::eventFilter(QObject* watched, QEvent* event)
{
    auto* button = qobject_cast<QPushButton*>(watched);
    if (button && (event->type() == QEvent::Enter || event->type() == QEvent::Leave ||
                   event->type() == QEvent::Hide))
        button->setIcon(QIcon(stepIcon(button, event->type() == QEvent::Enter)));
    return QWidget::eventFilter(watched, event);
}

void Widget::on_m_minTenPlusBtn_clicked()
{
    stepDigit(minTen, tensDigitTop, ui->label_minTen, true);
}

void Widget::on_m_minTenMinusBtn_clicked()
{
    stepDigit(minTen, tensDigitTop, ui->label_minTen, false);
}

void Widget::on_m_minOnePlusBtn_clicked()
{
    stepDigit(minOne, onesDigitTop, ui->label_minOne, true);
}

void Widget::on_m_minOneMinusBtn_clicked()
{
    stepDigit(minOne, onesDigitTop, ui->label_minOne, false);
}

void Widget::on_m_secTenPlusBtn_clicked()
{
    stepDigit(secTen, tensDigitTop, ui->label_secTen, true);
}

void Widget::on_m_secTenMinusBtn_clicked()
{
    stepDigit(secTen, tensDigitTop, ui->label_secTen, false);
}

void Widget::on_m_secOnePlusBtn_clicked()
{
    stepDigit(secOne, onesDigitTop, ui->label_secOne, true);
}

void Widget::on_m_secOneMinusBtn_clicked()
{
    stepDigit(secOne, onesDigitTop, ui->label_secOne, false);
}

void Widget::stepDigit(int& digit, int top, QLabel* label, bool up)
{
    digit = up ? nextDigit(digit, top) : previousDigit(digit, top);
    label->setText(QString::number(digit));
}

void Widget::on_pushbutton_countdown_startBtn_clicked()
{
    if (!running) {
        ticker.start(this);
        setStepButtonsVisible(false);
        // The labels show what is left after a pause, so the count goes on from there.
        minTen = ui->label_minTen->text().toInt();
        minOne = ui->label_minOne->text().toInt();
        secTen = ui->label_secTen->text().toInt();
        secOne = ui->label_secOne->text().toInt();
        savedDigits[0] = minTen;
        savedDigits[1] = minOne;
        savedDigits[2] = secTen;
        savedDigits[3] = secOne;
        target = countdownTarget(minTen, minOne, secTen, secOne);
        ui->pushbutton_countdown_startBtn->setText(tr("Widget.Btn.Pause"));
        ui->pushbutton_countdown_startBtn->setChecked(true);
        running = true;
        emit timestart();
    } else {
        ticker.reset(this);
        running = false;
        ui->pushbutton_countdown_startBtn->setText(tr("Widget.Btn.Start"));
        ui->pushbutton_countdown_startBtn->setChecked(false);
        emit timestop();
    }
}

void Widget::on_pushbutton_countdown_resetBtn_clicked()
{
    ticker.reset(this);
    emit timestop();
    // Toggled rather than cleared: a reset while stopped leaves the countdown marked
    // running, so the next press of start pauses instead of starting.
    running = !running;
    ui->pushbutton_countdown_startBtn->setText(tr("Widget.Btn.Start"));
    ui->pushbutton_countdown_startBtn->setChecked(false);
    showDigits(savedDigits[0], savedDigits[1], savedDigits[2], savedDigits[3]);
    setStepButtonsVisible(true);
}

void Widget::timerEvent(QTimerEvent* event)
{
    if (ticker.count(event))
        refresh_ui();
    else
        QWidget::timerEvent(event);
}

void Widget::refresh_ui()
{
    const QTime remaining = countdownRemaining(target, ticker.elapsed());
    if (countdownFinished(remaining)) {
        on_pushbutton_countdown_resetBtn_clicked();
        normalLook();
        emit countdounout();
        ticker.reset(this);
    }
    showDigits(remaining.minute() / 10, remaining.minute() % 10, remaining.second() / 10,
               remaining.second() % 10);
}

void Widget::showDigits(int mt, int mo, int st, int so)
{
    ui->label_minTen->setText(QString::number(mt));
    ui->label_minOne->setText(QString::number(mo));
    ui->label_secTen->setText(QString::number(st));
    ui->label_secOne->setText(QString::number(so));
}

void Widget::normalLook()
{
    // Styles go first: setting a stylesheet resets the label's font.
    for (QLabel* label : digitLabels()) {
        label->setStyleSheet(digitStyle);
        label->setMinimumSize(60, 90);
    }
    ui->label_colon->setStyleSheet(compactStyle);
    applyDigitFont();
    ui->pushbutton_countdown_startBtn->show();
    ui->pushbutton_countdown_resetBtn->show();
    ui->pushbutton_countdown_fullBtn->show();
}

void Widget::compactLook()
{
    setStepButtonsVisible(false);
    ui->pushbutton_countdown_startBtn->hide();
    ui->pushbutton_countdown_resetBtn->hide();
    ui->pushbutton_countdown_fullBtn->hide();
    for (QLabel* label : digitLabels()) {
        label->setStyleSheet(compactStyle);
        label->setMinimumSize(30, 45);
    }
    const QFont font = digitFont(35);
    for (QLabel* label : digitAndColonLabels())
        label->setFont(font);
}
