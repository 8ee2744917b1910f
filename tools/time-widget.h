// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tools/second-ticker.h"

#include <QWidget>

namespace Ui {
class timeWidget;
}

// The stopwatch page of the timer window: hours, minutes and seconds counted up
// once a second, with start/pause, reset and full-screen buttons.
class timeWidget : public QWidget
{
    Q_OBJECT

public:
    explicit timeWidget(QWidget* parent = nullptr);
    ~timeWidget() override;

    // Buttons shown, digits in their large bold face.
    void normalLook();
    // Digits only, in a small face, for the compact timer window.
    void compactLook();
    // Resets the clock the way a click on its reset button does.
    void clickReset();

    bool isRunning() const { return running; }
    int elapsedSeconds() const { return ticker.elapsed(); }
    int fittedDigitFontSize() const { return digitFontSize; }
    // Id of the one-second timer while the clock runs, 0 otherwise.
    int runningTimerId() const { return ticker.id(); }

signals:
    void showfull();
    void timestart();
    void timestop();

public slots:
    void on_pushbutton_timer_start_btn_clicked();
    void on_pushbutton_timer_reset_btn_clicked();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void showElapsed();
    void applyDigitFont();

    Ui::timeWidget* ui;
    SecondTicker ticker;
    bool running = false;
    int digitFontSize = 50;
};
