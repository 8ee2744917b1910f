// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/second-ticker.h"

#include <QTime>
#include <QWidget>

namespace Ui {
class Widget;
}
class QLabel;
class QPushButton;

// The countdown page of the timer window: four digits set with plus and minus,
// counted down once a second to 00:00.
class Widget : public QWidget
{
    Q_OBJECT

public:
    explicit Widget(QWidget* parent = nullptr);
    ~Widget() override;

    // Buttons shown, digits in their large bold face on their tiles.
    void normalLook();
    // Digits only, smaller, for the compact timer window.
    void compactLook();

    bool isRunning() const { return running; }
    int elapsedSeconds() const { return ticker.elapsed(); }
    int fittedDigitFontSize() const { return digitFontSize; }
    QTime targetTime() const { return target; }
    // Id of the one-second timer while the countdown runs, 0 otherwise.
    int runningTimerId() const { return ticker.id(); }

signals:
    void showfull();
    void timestart();
    void timestop();
    void countdounout();

public slots:
    void on_m_minTenPlusBtn_clicked();
    void on_m_minTenMinusBtn_clicked();
    void on_m_minOnePlusBtn_clicked();
    void on_m_minOneMinusBtn_clicked();
    void on_m_secTenPlusBtn_clicked();
    void on_m_secTenMinusBtn_clicked();
    void on_m_secOnePlusBtn_clicked();
    void on_m_secOneMinusBtn_clicked();
    void refresh_ui();
    void on_pushbutton_countdown_startBtn_clicked();
    void on_pushbutton_countdown_resetBtn_clicked();

protected:
    void timerEvent(QTimerEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QList<QLabel*> digitLabels() const;
    QList<QLabel*> digitAndColonLabels() const;
    QList<QPushButton*> stepButtons() const;
    void setStepButtonsVisible(bool visible);
    void showDigits(int mt, int mo, int st, int so);
    static void stepDigit(int& digit, int top, QLabel* label, bool up);
    void applyDigitFont();

    Ui::Widget* ui;
    int minTen = 0;
    int minOne = 5;
    int secTen = 0;
    int secOne = 0;
    int savedDigits[4] = {0, 5, 0, 0};
    QTime target;
    bool running = false;
    SecondTicker ticker;
    int digitFontSize = 58;
    QString digitStyle;
    QString compactStyle;
};
