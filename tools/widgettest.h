// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QPoint>
#include <QTimer>

namespace Ui {
class Widgettest;
}
class timeWidget;
class Widget;

// The timer window: a countdown page and a stopwatch page under two tabs. While a
// clock runs the window shrinks after five seconds into a translucent strip of
// digits, which a click restores; either clock can also fill the screen in black.
class Widgettest : public QDialog
{
    Q_OBJECT

public:
    explicit Widgettest(QWidget* parent = nullptr);
    ~Widgettest() override;

    Widget* countdown() const;
    timeWidget* stopwatch() const;
    bool isCompact() const { return clockCompact || countdownCompact; }
    bool isFull() const { return clockFull || countdownFull; }
    // The delay after a clock starts before the window turns compact.
    const QTimer& compactTimer() const { return autoCompact; }

signals:
    void sg_timerexit();

public slots:
    void quitbtnclick();
    void slot_time_out();
    void on_pushButton_timer_countdown_clicked();
    void on_pushButton_timer_timer_clicked();
    void screentimew();
    void screencountdown();
    void timestartreceive();
    void timestopreceive();
    void timestartreceivecount();
    void timestopreceivecount();
    void receivecountdownout();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    enum class Page
    {
        Countdown,
        Clock
    };

    void setWindowBrush(const QColor& color);
    void setChromeVisible(bool visible);
    void showNormalWindow();
    void enterFullScreen();
    void restore(Page page);
    void leaveFullScreen(Page page);

    Ui::Widgettest* ui;
    QTimer autoCompact;
    QPoint dragOffset;
    bool moved = false;
    bool clockFull = false;
    bool countdownFull = false;
    bool clockCompact = false;
    bool countdownCompact = false;
    QMargins normalMargins;
    // Where the window stood before it filled the screen, to go back there.
    QPoint normalPosition;
};
